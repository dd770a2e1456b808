// A small generator whose numbers are the same on every machine.
#ifndef TICKMUX_FEED_RANDOM_H
#define TICKMUX_FEED_RANDOM_H

#include <cstdint>

namespace tools {

class Random {
public:
    explicit Random(uint64_t seed) : m_nState(seed) {}

    // A counter that steps by an odd number, its bits mixed by shifts and multiplications.
    uint64_t Next() {
        m_nState += 0x9E3779B97F4A7C15U;
        uint64_t mixed = m_nState;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31);
    }

    // 0 to `bound` - 1; the bound is above 0.
    int64_t Below(int64_t bound) { return static_cast<int64_t>(Next() % static_cast<uint64_t>(bound)); }

    // `first` to `last`.
    int64_t Between(int64_t first, int64_t last) { return first + Below(last - first + 1); }

    bool Chance(int percent) { return Below(100) < percent; }

private:
    uint64_t m_nState;
};

}  // namespace tools

#endif
