// From the market's figures to packets: one function for each packet type.
#ifndef TICKMUX_FEED_EMITTERS_H
#define TICKMUX_FEED_EMITTERS_H

#include "feed/books.h"
#include "feed/broker_totals.h"
#include "feed/indices.h"
#include "feed/market.h"
#include "feed/minute_bar.h"
#include "module/wire/packets.h"
#include "terminal/times.h"

namespace tools {

// A packet as it travels, type byte first.
template <class Packet>
struct WholePacket {
    char Type = Packet::kType;
    Packet Payload;
};
static_assert(sizeof(WholePacket<TradePacket>) == 1 + sizeof(TradePacket));

// `local` is the time on the exchange's clock.
WholePacket<TradePacket> MakeTrade(const Deal& deal, Timestamp local);

// The same trade in compact form.
WholePacket<CompactTradePacket> MakeCompactTrade(const Deal& deal, Timestamp local);

// A level without a price is 0.
WholePacket<BookPacket> MakeBook(const Book& book);

// The ten largest on each side; rows are blank where fewer have traded.
WholePacket<BrokerPacket> MakeBrokers(const BrokerTotals& totals, Timestamp local);

// With `close` both closing values, otherwise the indicative one.
WholePacket<NavPacket> MakeNav(const Fund& fund, bool close);

// `end` is the minute's end, which is the bar's time.
WholePacket<BarPacket> MakeBar(const Stock& stock, const MinuteBar& minute, Timestamp end);

WholePacket<IndexPacket> MakeIndex(const Index& index, Timestamp local);

// The index as it stands, and the quantity of its minute.
WholePacket<IndexBarPacket> MakeIndexBar(const Index& index, int32_t volume, Timestamp end);

}  // namespace tools

#endif
