#include "feed/orders.h"

#include <algorithm>

namespace tools {

namespace {

// One of them more often: our user, whose screens the sample workspace opens.
constexpr Trader kTraders[] = {{"TRADER01", "ACC001", "GROUP01"}, {"TRADER01", "ACC001", "GROUP01"},
                               {"TRADER01", "ACC001", "GROUP02"}, {"TRADER01", "ACC002", "GROUP01"},
                               {"TRADER02", "ACC001", "GROUP01"}, {"3BRANCH", "ACC003", "GROUP02"}};

constexpr OrderBoard kBoards[] = {{"RG", 100, ""},      {"RG", 100, ""}, {"RG", 100, "00100"},
                                  {"TN", 100, "00100"}, {"NG", 1, "1"},  {"ADV", 1, "00000"}};

constexpr const char* kChannels[] = {"00", "03", "21", "33", "M1", "M2", "M3", "T1", "X7"};

// Numbers have seven digits. The first stays 0, which one of the screens has in its key.
constexpr int32_t kLastNumber = 999'999;
constexpr std::size_t kMostAtWork = 40;

}  // namespace

OrderFlow::OrderFlow(const Market& market, uint64_t seed) : m_Market(market), m_Dice(seed) {}

std::optional<OrderNotice> OrderFlow::Next(Timestamp now) {
    constexpr int kPercentTwice = 2;
    if (!m_Behind.empty()) {
        const OrderNotice notice = m_Behind.front();
        m_Behind.pop_front();
        return notice;
    }
    if (m_Orders.empty() && m_nLastNumber == kLastNumber) {
        return std::nullopt;
    }
    const OrderNotice notice = Step(now);
    if (m_Dice.Chance(kPercentTwice)) {
        m_Behind.push_front(notice);
    }
    return notice;
}

OrderNotice OrderFlow::Step(Timestamp now) {
    constexpr int kPercentNew = 30;
    const bool canSend = m_Orders.size() < kMostAtWork && m_nLastNumber < kLastNumber;
    if (m_Orders.empty() || (canSend && m_Dice.Chance(kPercentNew))) {
        return SendNew(now);
    }
    const auto at = static_cast<std::size_t>(m_Dice.Below(static_cast<int64_t>(m_Orders.size())));
    switch (m_Orders[at].At) {
        case Stage::Sent:
            return Answer(at, now);
        case Stage::Unconfirmed:
            return Confirm(at, now);
        default:
            return Work(at, now);
    }
}

OrderNotice OrderFlow::Send(OrderNotice terms) {
    terms.Number = ++m_nLastNumber;
    terms.Event = OrderEvent::Sending;
    m_Orders.push_back({terms, Stage::Sent, terms.Quantity});
    return terms;
}

OrderNotice OrderFlow::SendNew(Timestamp now) {
    constexpr int64_t kFarthest = 3;  // ticks
    constexpr int64_t kLargest = 50;
    const std::vector<Stock>& stocks = m_Market.Stocks();
    OrderNotice terms{};
    terms.Time = now;
    terms.Action = OrderAction::New;
    terms.By = &OneOf(kTraders);
    terms.On = &OneOf(kBoards);
    terms.Channel = OneOf(kChannels);
    terms.Of = &stocks[static_cast<std::size_t>(m_Dice.Below(static_cast<int64_t>(stocks.size())))];
    terms.Side = m_Dice.Chance(50) ? '1' : '2';
    terms.Quantity = static_cast<int32_t>(m_Dice.Between(1, kLargest));
    terms.Price = PriceNear(*terms.Of, terms.Of->Price, m_Dice.Between(-kFarthest, kFarthest));
    return Send(terms);
}

// Mostly of all that is open.
OrderNotice OrderFlow::SendChange(const Order& parent, OrderAction action, Timestamp now) {
    constexpr int kPercentWhole = 70;
    OrderNotice terms = parent.Terms;
    terms.Time = now;
    terms.Action = action;
    terms.Parent = parent.Terms.Number;
    terms.Quantity =
        m_Dice.Chance(kPercentWhole) ? parent.Open : static_cast<int32_t>(m_Dice.Between(1, parent.Open));
    if (action == OrderAction::Amend) {
        terms.Price = PriceNear(*terms.Of, terms.Price, m_Dice.Chance(50) ? 1 : -1);
    }
    return Send(terms);
}

// A change is refused as well if its parent has less open by now.
OrderNotice OrderFlow::Answer(std::size_t at, Timestamp now) {
    constexpr int kPercentRefused = 6;
    constexpr int kPercentOvertaken = 4;
    const OrderNotice terms = m_Orders[at].Terms;
    const std::optional<std::size_t> parent = Find(terms.Parent);
    const bool covered = terms.Parent == 0 || (parent && m_Orders[*parent].Open >= terms.Quantity);
    if (!covered || m_Dice.Chance(kPercentRefused)) {
        const OrderEvent refusal = m_Dice.Chance(50) ? OrderEvent::Refusal : OrderEvent::LateRefusal;
        const OrderNotice notice = Tell(m_Orders[at], refusal, now);
        TakeOpen(at, notice.Quantity);
        return notice;
    }
    const OrderNotice acceptance = Accept(at, now);
    if (!m_Dice.Chance(kPercentOvertaken)) {
        return acceptance;
    }
    m_Behind.push_back(acceptance);
    const std::size_t own = *Find(terms.Number);  // the parent may have ended in front of it
    return m_Orders[own].At == Stage::Unconfirmed ? Confirm(own, now) : Fill(own, m_Dice.Chance(50), now);
}

// From now on the parent's part can no longer be filled.
OrderNotice OrderFlow::Accept(std::size_t at, Timestamp now) {
    Order& order = m_Orders[at];
    order.At = order.Terms.Parent == 0 ? Stage::Working : Stage::Unconfirmed;
    const OrderNotice notice = Tell(order, OrderEvent::Acceptance, now);
    if (notice.Parent != 0) {
        TakeOpen(*Find(notice.Parent), notice.Quantity);
    }
    return notice;
}

// An amendment then works as any order; a cancellation has done its work.
OrderNotice OrderFlow::Confirm(std::size_t at, Timestamp now) {
    Order& order = m_Orders[at];
    order.At = Stage::Working;
    const OrderNotice notice = Tell(order, OrderEvent::Confirmation, now);
    if (notice.Action == OrderAction::Cancel) {
        TakeOpen(at, notice.Quantity);
    }
    return notice;
}

OrderNotice OrderFlow::Work(std::size_t at, Timestamp now) {
    const int64_t kind = m_Dice.Below(100);
    if (kind < 65 || m_nLastNumber == kLastNumber) {
        return Fill(at, kind < 20, now);
    }
    if (kind < 97) {
        return SendChange(m_Orders[at], kind < 82 ? OrderAction::Amend : OrderAction::Cancel, now);
    }
    // The exchange itself ends what is open.
    OrderNotice notice = Tell(m_Orders[at], OrderEvent::Confirmation, now);
    notice.Action = OrderAction::Close;
    notice.Quantity = m_Orders[at].Open;
    TakeOpen(at, notice.Quantity);
    return notice;
}

// At the order's price, or a tick better: lower for side 1, higher for side 2.
OrderNotice OrderFlow::Fill(std::size_t at, bool whole, Timestamp now) {
    constexpr int kPercentBetter = 25;
    const Order& order = m_Orders[at];
    OrderNotice notice = Tell(order, OrderEvent::Fill, now);
    notice.Quantity = whole ? order.Open : static_cast<int32_t>(m_Dice.Between(1, order.Open));
    if (m_Dice.Chance(kPercentBetter)) {
        notice.Price = PriceNear(*notice.Of, notice.Price, notice.Side == '1' ? -1 : 1);
    }
    TakeOpen(at, notice.Quantity);
    return notice;
}

OrderNotice OrderFlow::Tell(const Order& order, OrderEvent event, Timestamp now) {
    OrderNotice notice = order.Terms;
    notice.Time = now;
    notice.Event = event;
    return notice;
}

void OrderFlow::TakeOpen(std::size_t at, int32_t quantity) {
    m_Orders[at].Open -= quantity;
    if (m_Orders[at].Open == 0) {
        m_Orders.erase(m_Orders.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

std::optional<std::size_t> OrderFlow::Find(int32_t number) const {
    const auto found =
        std::lower_bound(m_Orders.begin(), m_Orders.end(), number,
                         [](const Order& order, int32_t wanted) { return order.Terms.Number < wanted; });
    if (found == m_Orders.end() || found->Terms.Number != number) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - m_Orders.begin());
}

// So many ticks away, and within the day's limits.
int32_t OrderFlow::PriceNear(const Stock& stock, int32_t price, int64_t ticks) {
    for (; ticks > 0; --ticks) {
        price += TickSize(price);
    }
    for (; ticks < 0; ++ticks) {
        price -= TickSize(price - 1);
    }
    return std::clamp(price, stock.Limits.Lowest, stock.Limits.Highest);
}

}  // namespace tools
