#include "feed/session.h"

#include <algorithm>

namespace tools {

namespace {

using std::chrono::minutes;
using std::chrono::nanoseconds;

// How busy a stretch of the session is against the quietest.
struct Stretch {
    minutes Length;
    int64_t Busyness;
};
constexpr Stretch kStretches[] = {
    {minutes(30), 6}, {minutes(150), 3}, {minutes(90), 1}, {minutes(120), 3}, {minutes(30), 5}};

int64_t BusynessUntil(nanoseconds time) {
    int64_t sum = 0;
    for (const Stretch& stretch : kStretches) {
        const nanoseconds within = std::min<nanoseconds>(time, stretch.Length);
        sum += within.count() * stretch.Busyness;
        time -= within;
    }
    return sum;
}

// The inverse.
nanoseconds TimeAt(int64_t busyness) {
    nanoseconds time{0};
    for (const Stretch& stretch : kStretches) {
        const int64_t whole = nanoseconds(stretch.Length).count() * stretch.Busyness;
        if (busyness < whole) {
            return time + nanoseconds(busyness / stretch.Busyness);
        }
        busyness -= whole;
        time += stretch.Length;
    }
    return time;
}

}  // namespace

Session::Session(Timestamp day, int length, int64_t packets)
    : m_Open(day + kSessionOpen), m_nBusyness(BusynessUntil(minutes(length))), m_nLeft(packets) {}

bool Session::NextBatch(Random& dice) {
    if (m_nLeft == 0) {
        return false;
    }
    constexpr int64_t kMostPackets = 20;
    constexpr nanoseconds kWidestSpacing(400'000);
    // Small batches are the rule.
    const int64_t size = std::min(dice.Between(1, kMostPackets), dice.Between(1, kMostPackets));
    m_nBatch = static_cast<int>(std::min(size, m_nLeft));
    // Up to twice the mean share of what is left, so that packets and session end together.
    const int64_t most =
        std::min((m_nBusyness - m_nPassed) / m_nLeft * 2 * m_nBatch, m_nBusyness - m_nPassed);
    const int64_t share = dice.Between(most / 4, most - most / 4);
    m_Start = m_Open + TimeAt(m_nPassed);
    m_nPassed += share;
    m_nLeft -= m_nBatch;
    const nanoseconds room = m_Open + TimeAt(m_nPassed) - m_Start;
    m_Spacing = std::min(room / (m_nBatch + 1), nanoseconds(dice.Below(kWidestSpacing.count())));
    return true;
}

}  // namespace tools
