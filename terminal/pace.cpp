#include "terminal/pace.h"

#include <algorithm>
#include <thread>

namespace tools {

Pace::Pace(std::optional<double> speed, Timestamp first)
    : m_Speed(speed), m_First(first), m_Anchor(std::chrono::steady_clock::now()) {}

void Pace::SleepUntil(Timestamp time) const {
    using Seconds = std::chrono::duration<double>;
    constexpr Seconds kLongest(1e9);
    const Seconds wait = std::min(Seconds(time - m_First) / *m_Speed, kLongest);
    std::this_thread::sleep_until(m_Anchor +
                                  std::chrono::duration_cast<std::chrono::steady_clock::duration>(wait));
}

}  // namespace tools
