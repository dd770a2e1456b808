// Open orders: the user's orders that are not finished. A filled, cancelled or replaced order leaves the
// list.
//
// Takes order notices; sends inserted and removed rows at once, changed ones at the batch end, and writes
// each message to the log "RSNOCH21.txt".
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_CRSNOCH21_H
#define TICKMUX_MODULE_DECODERS_ORDERS_CRSNOCH21_H

#include "module/decoders/orders/OrderCommon.h"
#include "module/decoders/orders/ParkedEvents.h"
#include "module/framework/packet_decoder.h"
#include "module/layouts/RSNOCH21.h"

class CRSNOCH21 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSNOCH21_R";

    explicit CRSNOCH21(HWND hWnd);

    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnStop() override { ClearOrders(); }
    void OnRelease() override { ClearOrders(); }
    void OnEndUnpack() override;
    int OnOrderPacket(const OrderPacket& notice);

    void ApplyAcceptance(const OrderEvent& event);
    // False: the event has to wait.
    bool ApplyEvent(const OrderEvent& event);
    void ApplyFill(OrderEntry& own, const OrderEvent& event);
    void DrainPending(int32_t orderNo);

    void InsertRow(const OrderEvent& event, RowMode mode);
    void RemoveRow(OrderEntry& entry);
    void RemoveIfNothingOpen(int32_t orderNo);
    void ClearOrders();

    void SendRows(char operation, int index, char action);

    RequestTag m_Tag{};
    OrderUser m_UserId;
    char m_UserField[sizeof(OpenOrdersInit::UserField)] = {};
    ParkedEvents m_Pending;
    OrderRows m_Rows;
};

#endif
