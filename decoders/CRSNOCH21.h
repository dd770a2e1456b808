// Open orders: the user's orders that are not finished. A filled, cancelled or replaced order leaves the
// list.
//
// Takes order notices; sends inserted and removed rows at once, changed ones at the batch end, and writes
// each message to the log "RSNOCH21.txt".
#ifndef TICKMUX_DECODERS_CRSNOCH21_H
#define TICKMUX_DECODERS_CRSNOCH21_H

#include "decoders/OrderCommon.h"
#include "layouts/RSNOCH21.h"

class CRSNOCH21 : public AnsweredOrders {
public:
    static constexpr char kMapName[] = "RSNOCH21_R";

    explicit CRSNOCH21(HWND hWnd);

    int Init(const char* buffer) override;
    const char* GetMapName() const override { return kMapName; }

private:
    int OnOrderPacket(const OrderPacket& notice);

    void ApplyAcceptance(const OrderEvent& event) override;
    void WriteLog(ViewBuffer& message) override;

    bool ApplyWithoutRow(const OrderEvent& event) override;
    void Fill(OrderEntry& own, const OrderEvent& event) override;
    void ConfirmAmendment(OrderEntry& own, const OrderEvent& event) override;
    void ConfirmCancellation(OrderEntry& own, const OrderEvent& event) override;
    void Close(OrderEntry& own) override;

    void RemoveRow(OrderEntry& entry);
    void RemoveIfNothingOpen(int32_t number);

    char m_UserField[sizeof(OpenOrdersInit::UserField)] = {};
};

#endif
