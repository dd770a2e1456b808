// The percentage of change that screens show beside a price.
#ifndef TICKMUX_MODULE_WIRE_CHANGE_RATE_H
#define TICKMUX_MODULE_WIRE_CHANGE_RATE_H

inline constexpr double kRateBias = 0.00499;

// Per cent that `change` is of `base`, moved towards zero so that a print with two decimals cuts instead of
// rounding. The direction is that of the packet's sign char, as SignToColor tells it. 0.0 against a base of
// zero.
constexpr double BiasedRate(double change, double base, int direction) {
    return base == 0.0 ? 0.0 : change / base * 100.0 - kRateBias * direction;
}

// The same move where no packet tells a direction: the rate's own sign does.
constexpr double MovedToZero(double rate) {
    return rate > 0.0 ? rate - kRateBias : rate < 0.0 ? rate + kRateBias : rate;
}

#endif
