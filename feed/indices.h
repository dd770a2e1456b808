// Indices over the market's stocks. All figures of an index follow from those of its members.
#ifndef TICKMUX_FEED_INDICES_H
#define TICKMUX_FEED_INDICES_H

#include <cstdint>
#include <string>
#include <vector>

#include "feed/market.h"

namespace tools {

struct Index {
    std::string Code;
    int32_t Base;         // in ten-thousandths of a point, as all values
    std::size_t Members;  // so many stocks from the first, which are the busier ones
    int32_t Value = 0;    // as of the last update; so are all others
    int32_t Open = 0;
    int32_t High = 0;
    int32_t Low = 0;
    int32_t Volume = 0;  // between the last update and the one before
    int64_t Money = 0;   // the same
    int32_t TotalVolume = 0;
    int64_t TotalValue = 0;
    int32_t TradeCount = 0;
    int32_t Rising = 0;  // members by their distance from the base price
    int32_t Falling = 0;
    int32_t Unchanged = 0;
    int32_t Untraded = 0;

    // False, with nothing changed: no member has traded since the last update.
    bool Update(const std::vector<Stock>& stocks);
};

// One of all stocks, and one of the busier quarter.
std::vector<Index> IndicesOf(const std::vector<Stock>& stocks);

}  // namespace tools

#endif
