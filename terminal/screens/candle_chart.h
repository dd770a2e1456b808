// Candles drawn as text: one column each, the price scale at the left, times below.
#ifndef TICKMUX_TERMINAL_SCREENS_CANDLE_CHART_H
#define TICKMUX_TERMINAL_SCREENS_CANDLE_CHART_H

#include <cstdint>
#include <string>
#include <vector>

namespace tools {

// Values count in the last decimal that is shown.
struct Candle {
    std::string Time;  // HHMMSS
    int64_t Open;
    int64_t High;
    int64_t Low;
    int64_t Close;
};

// The body is o for a rise, # for a fall, - for neither; | is the rest of the range. Empty without candles.
std::string ChartText(const std::vector<Candle>& candles, int decimals);

}  // namespace tools

#endif
