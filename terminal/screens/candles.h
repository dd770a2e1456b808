// The periods of a chart, as its Init text names them.
#ifndef TICKMUX_TERMINAL_SCREENS_CANDLES_H
#define TICKMUX_TERMINAL_SCREENS_CANDLES_H

namespace tools {

inline constexpr char kPeriodWords[] =
    "A (ticks), B (30 seconds), C (1 minute), E (3), G (5), H (10), I (15), J (30), K (60), L (day)";

}  // namespace tools

#endif
