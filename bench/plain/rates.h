// The arithmetic of prices: bases, percentages of change, and sums that wrap where they run over.
#ifndef TICKMUX_BENCH_PLAIN_RATES_H
#define TICKMUX_BENCH_PLAIN_RATES_H

#include <cstdint>

namespace plain {

inline int32_t Difference32(int32_t a, int32_t b) {
    return static_cast<int32_t>(int64_t{a} - b);
}
inline int32_t Product32(int32_t a, int32_t b) {
    return static_cast<int32_t>(int64_t{a} * b);
}

// What a packet's value was before its change, a magnitude with a direction.
inline int32_t BaseOf(int32_t value, int direction, int32_t change) {
    return static_cast<int32_t>(int64_t{value} - int64_t{direction} * change);
}

// Per cent, moved towards zero by the direction of the packet's sign, so that two decimals cut instead of
// rounding; 0.0 against a base of zero.
inline double ChangeRate(double change, double base, int direction) {
    if (base == 0.0) {
        return 0.0;
    }
    const double rate = change / base * 100.0;
    if (direction < 0) {
        return rate + 0.00499;
    }
    if (direction > 0) {
        return rate - 0.00499;
    }
    return rate;
}

// How a value lies to a base.
template <class Number>
int Compare(Number value, Number base) {
    return value > base ? 1 : value < base ? -1 : 0;
}

}  // namespace plain

#endif
