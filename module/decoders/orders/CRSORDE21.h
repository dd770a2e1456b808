// Order list: all orders of the user that the inquiry found or that came since, open or finished. A row never
// leaves; its last word tells what became of the order.
//
// Takes order notices, a repeated one only once; sends inserted rows at once, changed ones at the batch end.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_CRSORDE21_H
#define TICKMUX_MODULE_DECODERS_ORDERS_CRSORDE21_H

#include "module/decoders/orders/OrderCommon.h"
#include "module/decoders/orders/ParkedEvents.h"
#include "module/framework/packet_decoder.h"
#include "module/layouts/RSORDE21.h"

class CRSORDE21 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSORDE21_R";

    explicit CRSORDE21(HWND hWnd);

    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnStop() override { ClearOrders(); }
    void OnRelease() override { ClearOrders(); }
    void OnEndUnpack() override;
    int OnOrderPacket(const OrderPacket& notice);

    void ApplyAcceptance(const OrderEvent& event);
    void ApplyRefusal(const OrderEvent& event);
    // False: the event has to wait.
    bool ApplyEvent(const OrderEvent& event);
    void ApplyWithoutRow(const OrderEvent& event);
    void ApplyFill(OrderEntry& own, const OrderEvent& event);
    void DrainPending(int32_t orderNo);

    void InsertRow(const OrderEvent& event, RowMode mode);
    void SetStatus(OrderEntry& entry, const Word& word);
    void ClearOrders();

    void SendRows(char operation, int index, char action);

    RequestTag m_Tag{};
    OrderUser m_UserId;
    char m_UserField[sizeof(OrderListInit::UserField)] = {};
    LastNotice m_LastPacket;
    ParkedEvents m_Pending;
    OrderRows m_Rows;
};

#endif
