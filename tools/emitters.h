// From the market's figures to packets: one function for each packet type.
#ifndef TICKMUX_TOOLS_EMITTERS_H
#define TICKMUX_TOOLS_EMITTERS_H

#include "framework/packets.h"
#include "tools/market.h"
#include "tools/times.h"

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

// With `close` both closing values, otherwise the indicative one.
WholePacket<NavPacket> MakeNav(const Fund& fund, bool close);

}  // namespace tools

#endif
