// What order lists share beside their rows and events: whose notices they take, the figures and words of a
// row, and the message to the view.
//
// An amendment or a cancellation is an order of its own, whose ParentOrderNo names the order that it changes.
// A notice touches its own row and its direct parent only. One that finds no row may be parked until the
// notice comes that makes the row. A send tells the window, which may call back and change the list: rows are
// looked up again behind it.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_ORDERCOMMON_H
#define TICKMUX_MODULE_DECODERS_ORDERS_ORDERCOMMON_H

#include <cstdint>

#include "module/decoders/orders/OrderEvent.h"
#include "module/decoders/orders/OrderRows.h"
#include "module/framework/view_buffer.h"
#include "module/layouts/Orders.h"
#include "module/wire/codecs.h"
#include "module/wire/packets.h"

// ------------------------------------------------------------------ notices

// The logged-in user, as of the screen's opening.
class OrderUser {
public:
    OrderUser();
    bool IsOf(const OrderPacket& notice) const;

private:
    char m_UserId[19];
};

// The notice before, whoever's that was.
class LastNotice {
public:
    LastNotice() { FillBlank(m_Packet); }
    // A notice that differs takes its place.
    bool IsRepeatedBy(const OrderPacket& notice);

private:
    OrderPacket m_Packet;
};

// ------------------------------------------------------------------ rows

// A blank figure counts as 0.
template <std::size_t N>
int64_t Figure(const char (&field)[N]) {
    return AsciiToInt64(field, N);
}

// As an empty figure stands in the list: blanks, and two zero bytes at the end.
void ClearFigure(char (&field)[15]);

// Takes the quantity out of what is open; nothing open leaves the figure cleared.
void ReduceOpen(char (&unfilledQty)[15], int64_t quantity);

// No more shows as filled than was ordered.
void LimitFilled(OrderRow& row, int64_t filled);

// Fills add up; the word tells how much is open behind them.
const Word& FillWord(int64_t filled, int64_t open);

// ------------------------------------------------------------------ lists of answers

// The event's row, of an order that was accepted, or "Open" if it comes with the confirmation.
enum class RowMode { Accepted, Confirmed };
OrderRow BuildRow(const OrderEvent& event, RowMode mode);

// An amendment or a cancellation takes its quantity out of its parent when it is accepted.
void ReduceParent(OrderRows& rows, const OrderEvent& event);

// The word of an order that is accepted once more.
const Word& KindWord(EventCode code);

// ------------------------------------------------------------------ the list of sendings

// The event's row, of an order on its way or of an answer that finds no order.
OrderRow BuildRow(const OrderEvent& event);

// ------------------------------------------------------------------ messages

// Without rows yet: tag and control record stand, the repeat head counts `rows` and the record.
ViewBuffer MakeMessage(const RequestTag& tag, char operation, int index, char action, int rows);

inline OrderRow* RowsOf(ViewBuffer& message) {
    return reinterpret_cast<OrderRow*>(message.Bytes() + sizeof(OrderMessage));
}

// With the rows whose mark the action is for, and their marks taken off. Empty: an update without rows, or
// memory failed, and the marks stay.
ViewBuffer PackMarked(OrderRows& rows, const RequestTag& tag, char operation, int index, char action);

#endif
