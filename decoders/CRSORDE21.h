// Order list: all orders of the user that the inquiry found or that came since, open or finished. A row never
// leaves; its last word tells what became of the order.
//
// Takes order notices, a repeated one only once; sends inserted rows at once, changed ones at the batch end.
#ifndef TICKMUX_DECODERS_CRSORDE21_H
#define TICKMUX_DECODERS_CRSORDE21_H

#include "decoders/OrderCommon.h"
#include "layouts/RSORDE21.h"

class CRSORDE21 : public AnsweredOrders {
public:
    static constexpr char kMapName[] = "RSORDE21_R";

    explicit CRSORDE21(HWND hWnd);

    int Init(const char* buffer) override;
    const char* GetMapName() const override { return kMapName; }

private:
    int OnOrderPacket(const OrderPacket& notice);

    void ApplyAcceptance(const OrderEvent& event) override;
    void ApplyRefusal(const OrderEvent& event) override;
    bool ApplyEvent(const OrderEvent& event) override;

    bool ApplyWithoutRow(const OrderEvent& event) override;
    void Fill(OrderEntry& own, const OrderEvent& event) override;
    void ConfirmAmendment(OrderEntry& own, const OrderEvent& event) override;
    void ConfirmCancellation(OrderEntry& own, const OrderEvent& event) override;
    void Close(OrderEntry& own) override;

    char m_UserField[sizeof(OrderListInit::UserField)] = {};
    RepeatFilter m_Repeats;
};

#endif
