// The orders of a few traders, and what the exchange tells about each from its sending to its end. It knows
// nothing of packets.
//
// An order's quantity is at every time the sum of what is filled, what is open and what amendments or
// cancellations took away.
#ifndef TICKMUX_FEED_ORDERS_H
#define TICKMUX_FEED_ORDERS_H

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "feed/market.h"
#include "feed/random.h"
#include "terminal/times.h"

namespace tools {

struct Trader {
    const char* User;
    const char* UserField;
    const char* Group;
};

// Where an order is traded, and how quantities are told there.
struct OrderBoard {
    const char* Name;
    int32_t Unit;         // told for one unit of quantity
    const char* LotSize;  // the same as the notice has it; blank where it is the usual hundred
};

// What an order asks for, with the chars that notices have.
enum class OrderAction : char { New = '1', Amend = '2', Cancel = '3', Close = '4' };

// What is told about it.
enum class OrderEvent { Sending, Acceptance, Fill, Confirmation, Refusal, LateRefusal };

struct OrderNotice {
    Timestamp Time;  // on the exchange's clock
    OrderEvent Event;
    OrderAction Action;
    int32_t Number;
    int32_t Parent;  // number of the order that this one amends or cancels; 0: none
    const Trader* By;
    const OrderBoard* On;
    const char* Channel;
    const Stock* Of;
    char Side;
    int32_t Quantity;  // of this event
    int32_t Price;
};

class OrderFlow {
public:
    // Stocks are the market's, which outlives the flow.
    OrderFlow(const Market& market, uint64_t seed);

    // What happens next, at a time that is not before the last one. None when all numbers are used up and all
    // orders have ended. Seldom a notice comes once more, or a later one overtakes an acceptance.
    std::optional<OrderNotice> Next(Timestamp now);

private:
    enum class Stage { Sent, Unconfirmed, Working };

    struct Order {
        OrderNotice Terms;  // with the whole quantity
        Stage At;
        int32_t Open;
    };

    OrderNotice Step(Timestamp now);
    OrderNotice Send(OrderNotice terms);
    OrderNotice SendNew(Timestamp now);
    OrderNotice SendChange(const Order& parent, OrderAction action, Timestamp now);
    OrderNotice Answer(std::size_t at, Timestamp now);
    OrderNotice Accept(std::size_t at, Timestamp now);
    OrderNotice Confirm(std::size_t at, Timestamp now);
    OrderNotice Work(std::size_t at, Timestamp now);
    OrderNotice Fill(std::size_t at, bool whole, Timestamp now);
    static OrderNotice Tell(const Order& order, OrderEvent event, Timestamp now);
    // The order ends if nothing is open any more.
    void TakeOpen(std::size_t at, int32_t quantity);

    std::optional<std::size_t> Find(int32_t number) const;
    static int32_t PriceNear(const Stock& stock, int32_t price, int64_t ticks);
    template <class Item, std::size_t N>
    const Item& OneOf(const Item (&items)[N]) {
        return items[m_Dice.Below(N)];
    }

    const Market& m_Market;
    Random m_Dice;
    std::vector<Order> m_Orders;  // that have not ended, by number
    std::deque<OrderNotice> m_Behind;
    int32_t m_nLastNumber = 0;
};

}  // namespace tools

#endif
