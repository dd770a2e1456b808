#include "feed/feed.h"

#include <algorithm>

#include "feed/news_packets.h"
#include "feed/order_packets.h"

namespace tools {

namespace {

// What comes within this time goes into one batch.
constexpr std::chrono::milliseconds kGather(50);

// Dice of their own leave the market's as they fall without these packets.
constexpr uint64_t kCompactDice = 0xC0DE;
constexpr uint64_t kOrderDice = 0x0D1CE;
constexpr uint64_t kOrderFlow = 0x0F10A;
constexpr uint64_t kOtherDice = 0x07E2;

}  // namespace

Feed::Feed(const FeedOptions& options, CaptureWriter& capture)
    : m_Capture(capture),
      m_Offset(options.Offset),
      m_nCompact(options.Compact),
      m_nOrders(options.Orders),
      m_nOthers(options.Others),
      m_Market(options.Seed, options.Stocks, options.Funds),
      m_Derived(m_Market, options.Seed, options.Bars),
      m_Books(m_Market.Stocks(), options.Seed, options.Books),
      m_Brokers(m_Market.Stocks(), options.Seed, options.Brokers),
      m_News(m_Market.Stocks(), options.Seed, options.News),
      m_OtherDice(options.Seed + kOtherDice),
      m_CompactDice(options.Seed + kCompactDice),
      m_OrderDice(options.Seed + kOrderDice),
      m_Orders(m_Market, options.Seed + kOrderFlow),
      m_Session(options.Day, options.Minutes, options.Packets) {}

bool Feed::WriteBatch() {
    if (!m_Session.NextBatch(m_Market.Dice())) {
        WriteQuietBatches(Timestamp::max());
        return false;
    }
    WriteQuietBatches(m_Session.PacketTime(0) - kGather);
    for (int number = 0; number < m_Session.BatchSize(); ++number) {
        const Timestamp time = m_Session.PacketTime(number);
        WriteDue(time);
        const Stock* const traded = WriteMarketPacket(time);
        WriteBook(time, traded);
        WriteOrderNotice(time);
        WriteBrokers(time, traded);
        WriteNews(time);
        WriteOther(time);
    }
    WriteDue(m_Session.BatchEnd());
    m_Capture.BatchEnd(m_Session.BatchEnd() - m_Offset);
    return true;
}

// Batches without a packet of the market.
void Feed::WriteQuietBatches(Timestamp until) {
    constexpr int kMostPackets = 20;
    m_Derived.Advance(until);
    while (m_Derived.IsDue(until)) {
        const Timestamp end = std::min(until, m_Derived.Waiting().begin()->first + kGather);
        Timestamp last;
        for (int number = 0; number < kMostPackets && m_Derived.IsDue(end); ++number) {
            last = WriteNextDerived();
        }
        m_Capture.BatchEnd(last - m_Offset);
    }
}

void Feed::WriteDue(Timestamp now) {
    m_Derived.Advance(now);
    while (m_Derived.IsDue(now)) {
        WriteNextDerived();
    }
}

Timestamp Feed::WriteNextDerived() {
    const auto next = m_Derived.Waiting().extract(m_Derived.Waiting().begin());
    m_Capture.Packet(next.key() - m_Offset, next.mapped().data(), next.mapped().size());
    return next.key();
}

const Stock* Feed::WriteMarketPacket(Timestamp local) {
    constexpr int kPercentFunds = 5;
    constexpr int kPercentClosing = 10;
    if (!m_Market.Funds().empty() && m_Market.Dice().Chance(kPercentFunds)) {
        const bool close = m_Market.Dice().Chance(kPercentClosing);
        Write(local, MakeNav(m_Market.NextFund(close), close));
        return nullptr;
    }
    const Deal deal = m_Market.NextDeal();
    WriteTrade(local, deal);
    m_Derived.Take(deal, local);
    m_Brokers.Take(deal);
    return deal.Of;
}

// The market-wide feed has trades only, not what moves the best prices.
void Feed::WriteTrade(Timestamp local, const Deal& deal) {
    Write(local, MakeTrade(deal, local));
    if (deal.Volume != 0 && m_CompactDice.Chance(m_nCompact)) {
        Write(local, MakeCompactTrade(deal, local));
    }
}

void Feed::WriteBook(Timestamp local, const Stock* traded) {
    if (const Book* book = m_Books.Next(traded)) {
        Write(local, MakeBook(*book));
    }
}

void Feed::WriteBrokers(Timestamp local, const Stock* traded) {
    if (const BrokerTotals* totals = m_Brokers.Next(traded)) {
        Write(local, MakeBrokers(*totals, local));
    }
}

void Feed::WriteNews(Timestamp local) {
    if (const std::optional<Headline> headline = m_News.Next()) {
        Write(local, MakeNews(*headline, local));
    }
}

void Feed::WriteOther(Timestamp local) {
    if (!m_OtherDice.Chance(m_nOthers)) {
        return;
    }
    const int64_t number = ++m_nOtherPackets;
    if (m_OtherDice.Chance(50)) {
        Write(local, MakeMarketNotice(number));
    } else {
        Write(local, MakeSpecialNotice(number));
    }
}

// A market packet may bring one more: what a trader or the exchange does at that moment.
void Feed::WriteOrderNotice(Timestamp local) {
    if (m_OrderDice.Chance(m_nOrders)) {
        if (const std::optional<OrderNotice> notice = m_Orders.Next(local)) {
            Write(local, MakeOrder(*notice));
        }
    }
}

}  // namespace tools
