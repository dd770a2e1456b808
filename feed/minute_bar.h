// One minute of a stock's trades.
#ifndef TICKMUX_FEED_MINUTE_BAR_H
#define TICKMUX_FEED_MINUTE_BAR_H

#include <algorithm>
#include <cstdint>

namespace tools {

struct MinuteBar {
    int32_t Open = 0;
    int32_t High = 0;
    int32_t Low = 0;
    int32_t Close = 0;
    int32_t Volume = 0;  // 0: no trade yet

    void Add(int32_t price, int32_t volume) {
        if (Volume == 0) {
            Open = High = Low = price;
        }
        High = std::max(High, price);
        Low = std::min(Low, price);
        Close = price;
        Volume += volume;
    }
};

}  // namespace tools

#endif
