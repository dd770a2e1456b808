// A trading session on its way into a capture: the market's packets, and among them what follows from its
// trades. No record comes before an earlier one.
#ifndef TICKMUX_FEED_FEED_H
#define TICKMUX_FEED_FEED_H

#include "feed/books.h"
#include "feed/broker_totals.h"
#include "feed/derived_feed.h"
#include "feed/emitters.h"
#include "feed/market.h"
#include "feed/news.h"
#include "feed/orders.h"
#include "feed/session.h"
#include "terminal/capture.h"

namespace tools {

struct FeedOptions {
    uint64_t Seed = 1;
    Timestamp Day = ParseDate("20261120");
    int Minutes = kSessionMinutes;
    int64_t Packets = 0;  // trades and fund values; the rest comes on top
    int Stocks = 20;
    int Funds = 2;
    int Compact = 100;  // per cent of the trades that come in compact form too
    int Books = 20;     // per cent of Packets; so are the next four
    int Orders = 3;     // order notices
    int Brokers = 3;    // broker summaries
    int News = 1;       // headlines
    int Others = 1;     // packets that nobody reads
    BarFaults Bars;
    UtcOffset Offset{0};  // the exchange's clock against the capture's times
};

class Feed {
public:
    Feed(const FeedOptions& options, CaptureWriter& capture);

    // The market's next batch, and what comes before it. False at the session's end, when all is written.
    bool WriteBatch();

    // Of the options' number.
    int64_t PacketsLeft() const { return m_Session.PacketsLeft(); }

private:
    void WriteQuietBatches(Timestamp until);
    void WriteDue(Timestamp now);
    Timestamp WriteNextDerived();
    // Gives the stock, if it was a trade.
    const Stock* WriteMarketPacket(Timestamp local);
    void WriteTrade(Timestamp local, const Deal& deal);
    void WriteBook(Timestamp local, const Stock* traded);
    void WriteBrokers(Timestamp local, const Stock* traded);
    void WriteNews(Timestamp local);
    void WriteOther(Timestamp local);
    void WriteOrderNotice(Timestamp local);
    template <class Packet>
    void Write(Timestamp local, const WholePacket<Packet>& packet) {
        m_Capture.Packet(local - m_Offset, &packet, sizeof(packet));
    }

    CaptureWriter& m_Capture;
    const UtcOffset m_Offset;
    const int m_nCompact;
    const int m_nOrders;
    const int m_nOthers;
    Market m_Market;
    DerivedFeed m_Derived;
    Books m_Books;
    BrokerSummaries m_Brokers;
    NewsWire m_News;
    Random m_OtherDice;
    int64_t m_nOtherPackets = 0;
    Random m_CompactDice;
    Random m_OrderDice;
    OrderFlow m_Orders;
    Session m_Session;
};

}  // namespace tools

#endif
