// Filtered order list: the user's orders from their sending on, as far as the screen's filters let them in. A
// row stays to the end; the status filter decides which rows the view has, and takes back those that left it.
//
// Takes order notices, a repeated one only once; sends inserted rows at once, changed ones at the batch end.
#ifndef TICKMUX_DECODERS_CRSORDE22_H
#define TICKMUX_DECODERS_CRSORDE22_H

#include "decoders/OrderCommon.h"
#include "layouts/RSORDE22.h"

class CRSORDE22 : public OrderDecoder {
public:
    static constexpr char kMapName[] = "RSORDE22_R";

    explicit CRSORDE22(HWND hWnd);

    int Init(const char* buffer) override;
    void EndUnpack() override;
    const char* GetMapName() const override { return kMapName; }

private:
    int OnOrderPacket(const OrderPacket& notice);

    void ApplySending(const OrderEvent& event);
    void ApplyRefusal(const OrderEvent& event);
    bool ApplyEvent(const OrderEvent& event) override;
    void ApplyToOwn(OrderEntry& own, const OrderEvent& event);
    void ApplyToParent(OrderEntry& parent, const OrderEvent& event);

    void InsertRow(const OrderEvent& event);
    void Fill(OrderEntry& entry, const OrderEvent& event);
    void Open(OrderEntry& entry, const OrderEvent& event);
    void Close(OrderEntry& entry, const Word& word);
    void SetStatus(OrderEntry& entry, const Word& word);
    void Touch(OrderEntry& entry, RowMark mark);

    void SendRows(char action);
    void PruneShown();

    FilteredOrdersInit m_Filter;  // its repeat head is not kept up
    RepeatFilter m_Repeats;
};

#endif
