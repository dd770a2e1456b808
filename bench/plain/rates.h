// The percentage of change, moved towards zero so that two decimals cut instead of rounding.
#ifndef TICKMUX_BENCH_PLAIN_RATES_H
#define TICKMUX_BENCH_PLAIN_RATES_H

namespace plain {

// By the direction of the packet's sign; 0.0 against a base of zero.
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
