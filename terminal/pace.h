// Holds a replay to the capture's own times, divided by a speed. Each record has its moment counted from one
// fixed anchor, so that delays never add up.
#ifndef TICKMUX_TERMINAL_PACE_H
#define TICKMUX_TERMINAL_PACE_H

#include <optional>

#include "terminal/times.h"

namespace tools {

inline constexpr double kSlowest = 0.1;
inline constexpr double kFastest = 1000.0;

class Pace {
public:
    // Without a speed: as fast as it goes.
    Pace(std::optional<double> speed, Timestamp first);

    void WaitFor(Timestamp time) const {
        if (m_Speed) {
            SleepUntil(time);
        }
    }

private:
    void SleepUntil(Timestamp time) const;

    std::optional<double> m_Speed;
    Timestamp m_First;
    std::chrono::steady_clock::time_point m_Anchor;
};

}  // namespace tools

#endif
