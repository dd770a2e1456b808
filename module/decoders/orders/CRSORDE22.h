// Filtered order list: the user's orders from their sending on, as far as the screen's filters let them in. A
// row stays to the end; the status filter decides which rows the view has, and takes back those that left it.
//
// Takes order notices, a repeated one only once; sends inserted rows at once, changed ones at the batch end.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_CRSORDE22_H
#define TICKMUX_MODULE_DECODERS_ORDERS_CRSORDE22_H

#include "module/decoders/orders/OrderCommon.h"
#include "module/decoders/orders/ParkedEvents.h"
#include "module/framework/packet_decoder.h"
#include "module/layouts/RSORDE22.h"

class CRSORDE22 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSORDE22_R";

    explicit CRSORDE22(HWND hWnd);

    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnStop() override { ClearOrders(); }
    void OnRelease() override { ClearOrders(); }
    void OnEndUnpack() override;
    int OnOrderPacket(const OrderPacket& notice);

    void ApplySending(const OrderEvent& event);
    void ApplyRefusal(const OrderEvent& event);
    // False: the event has to wait.
    bool ApplyEvent(const OrderEvent& event);
    void ApplyToOwn(OrderEntry& own, const OrderEvent& event);
    void ApplyToParent(OrderEntry& parent, const OrderEvent& event);
    void ApplyFill(OrderEntry& entry, const OrderEvent& event);
    void DrainPending(int32_t orderNo);

    void InsertRow(const OrderEvent& event);
    void OpenRow(OrderEntry& entry, const OrderEvent& event);
    void CloseRow(OrderEntry& entry, const Word& word);
    void SetStatus(OrderEntry& entry, const Word& word);
    void ClearOrders();

    void SendRows(char action);
    void PruneShown();
    void SendDeletion(int place);

    RequestTag m_Tag{};
    OrderUser m_UserId;
    FilteredOrdersInit m_Filter{};  // its repeat head is not kept up
    LastNotice m_LastPacket;
    ParkedEvents m_Pending;
    OrderRows m_Rows;
};

#endif
