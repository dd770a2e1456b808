// An event is an order notice as an order list reads it.
//
// Which event a notice becomes, and which way it takes through the list, stands in a table of routes.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_ORDEREVENT_H
#define TICKMUX_MODULE_DECODERS_ORDERS_ORDEREVENT_H

#include <cstdint>
#include <span>

#include "module/decoders/orders/OrderWords.h"
#include "module/layouts/Orders.h"
#include "module/wire/packets.h"

// True if the notice is about an order; other record kinds are not.
bool IsRecord(const OrderPacket& notice);

// ------------------------------------------------------------------ routes

// What a table of routes may ask for instead of one value.
inline constexpr NoticeKind kAnyKind{'*'};
inline constexpr ResultFlag kAnyResult{'*'};
inline constexpr ResultFlag kNotNormal{'!'};
inline constexpr OrderState kAnyState{'*'};
inline constexpr OrderAction kAnyAction{'*'};

// What the event is about. Where an order is sent or accepted it is the order's kind.
enum class EventCode : char {
    None = '\0',
    Opening = '0',  // a new order that was sent before is accepted
    NewOrder = '1',
    Fill = NewOrder,  // in an answer beyond the acceptance
    Amendment = '2',
    Cancellation = '3',
    Refusal = '4',
    Closing = '5',
};

// What becomes of the event.
enum class Route {
    Sending,     // an order on its way
    Acceptance,  // makes the row, and lets parked events go
    Refusal,
    Apply,    // changes a row, or waits for it
    Dropped,  // nothing
};

// One row of a table; the first that fits a notice counts, and the last fits all.
struct NoticeRoute {
    ::NoticeKind NoticeKind;
    ::ResultFlag ResultFlag;
    ::OrderState OrderState;
    ::OrderAction OrderAction;
    ::EventCode EventCode;
    Word StatusWord;  // of a row that the notice makes
    Route Way;
};

// The routes of the lists that follow the answers to orders, from the acceptance on.
std::span<const NoticeRoute> AnswerRoutes();
// The routes of the list that follows orders from their sending on.
std::span<const NoticeRoute> SendingRoutes();

// ------------------------------------------------------------------ events

struct OrderEvent {
    ::EventCode EventCode;
    Route Way;
    int32_t OrderNo;
    int32_t ParentOrderNo;
    int64_t Quantity;
    OrderRow Columns;  // texts, price and word; a row built from the event begins with these
};

// `divisor` turns the notice's quantity into the list's unit.
OrderEvent BuildEvent(const OrderPacket& notice, std::span<const NoticeRoute> routes, int64_t divisor);

// Quantities count hundredths of a unit, on the boards NG and ADV whole units.
int64_t DivisorOfBoard(const OrderPacket& notice);
// The lot that the notice tells divides its quantity, or 100 if it tells none.
int64_t DivisorOfLot(const OrderPacket& notice);

// OrderRow::ChannelMark of the notice's channel.
char ChannelMarkOf(const OrderPacket& notice);

#endif
