// When things happen in a trading session: moments spread over its minutes, denser after the opening and
// before the close.
#ifndef TICKMUX_FEED_SESSION_H
#define TICKMUX_FEED_SESSION_H

#include <cstdint>

#include "feed/random.h"
#include "terminal/times.h"

namespace tools {

inline constexpr std::chrono::hours kSessionOpen(9);
inline constexpr std::chrono::hours kSessionClose(16);
inline constexpr int kSessionMinutes =
    static_cast<int>(std::chrono::minutes(kSessionClose - kSessionOpen).count());

// Deals out `packets` in batches, on the exchange's clock. All lie within the first `length` minutes of the
// session, however many there are, and no time comes before an earlier one.
class Session {
public:
    Session(Timestamp day, int length, int64_t packets);

    // The next batch; false when no packets are left.
    bool NextBatch(Random& dice);

    int BatchSize() const { return m_nBatch; }
    // Of the batch's packets by number, and of its end behind them.
    Timestamp PacketTime(int number) const { return m_Start + m_Spacing * number; }
    Timestamp BatchEnd() const { return PacketTime(m_nBatch); }

    int64_t PacketsLeft() const { return m_nLeft; }

private:
    Timestamp m_Open;
    int64_t m_nBusyness;  // of the session, in busyness times nanoseconds
    int64_t m_nPassed = 0;
    int64_t m_nLeft;
    int m_nBatch = 0;
    Timestamp m_Start;
    std::chrono::nanoseconds m_Spacing{0};
};

}  // namespace tools

#endif
