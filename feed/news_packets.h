// From headlines and notices to packets.
#ifndef TICKMUX_FEED_NEWS_PACKETS_H
#define TICKMUX_FEED_NEWS_PACKETS_H

#include "feed/emitters.h"
#include "feed/news.h"

namespace tools {

// `local` is the time on the exchange's clock. A title that is too long loses its end.
WholePacket<NewsPacket> MakeNews(const Headline& headline, Timestamp local);

// Plain text of some code; nobody reads it.
WholePacket<MarketPacket> MakeMarketNotice(int64_t number);
WholePacket<SpecialPacket> MakeSpecialNotice(int64_t number);

}  // namespace tools

#endif
