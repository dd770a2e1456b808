#include "feed/order_packets.h"

#include "terminal/text.h"

namespace tools {

namespace {

// The code chars of an event, in OrderEvent's order.
struct EventChars {
    char NoticeKind;
    char OrderState;
    char ResultFlag;
};
constexpr EventChars kEventChars[] = {{kSendingNotice, kAcceptance, kNormal},
                                      {kAnswer, kAcceptance, kNormal},
                                      {kAnswer, kFill, kNormal},
                                      {kAnswer, kConfirmation, kNormal},
                                      {kAnswer, kAcceptance, kRefused},
                                      {kAnswer, kConfirmation, kRefused}};

}  // namespace

WholePacket<OrderPacket> MakeOrder(const OrderNotice& notice) {
    const EventChars& chars = kEventChars[static_cast<std::size_t>(notice.Event)];
    WholePacket<OrderPacket> whole;
    OrderPacket& order = whole.Payload;
    FillBlank(order);
    PutLeft(order.Time, TimeText(notice.Time));
    PutLeft(order.RecordKind, "01");
    order.NoticeKind = chars.NoticeKind;
    order.OrderAction = static_cast<char>(notice.Action);
    order.OrderState = chars.OrderState;
    order.ResultFlag = chars.ResultFlag;
    PutLeft(order.UserField, notice.By->UserField);
    PutDigits(order.OrderNo, notice.Number);
    PutDigits(order.ParentOrderNo, notice.Parent);
    PutLeft(order.Code, notice.Of->Code);
    order.Side = notice.Side;
    PutDigits(order.Quantity, int64_t{notice.Quantity} * notice.On->Unit);
    PutDigits(order.Price, notice.Price);
    PutLeft(order.Name, notice.Of->Code + " shares");
    PutLeft(order.GroupCode, notice.By->Group);
    PutLeft(order.ChannelCode, notice.Channel);
    PutLeft(order.UserId, notice.By->User);
    // The exchange's reference, which an order on its way does not have yet.
    if (notice.Event != OrderEvent::Sending) {
        PutLeft(order.DisplayText, "REF" + std::to_string(notice.Number));
    }
    PutLeft(order.BoardName, notice.On->Name);
    PutRight(order.LotSize, notice.On->LotSize);
    return whole;
}

}  // namespace tools
