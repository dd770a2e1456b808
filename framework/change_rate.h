// The percentage of change that screens show beside a price.
#ifndef TICKMUX_FRAMEWORK_CHANGE_RATE_H
#define TICKMUX_FRAMEWORK_CHANGE_RATE_H

// Per cent of `base` by which `value` lies from it; 0.0 against a base of zero.
constexpr double ChangeRate(double value, double base) {
    return base == 0.0 ? 0.0 : (value - base) / base * 100.0;
}

// Moved towards zero, so that a print with two decimals cuts instead of rounding. The direction is that of
// the packet's sign char, as SignToColor tells it.
constexpr double BiasedRate(double rate, int direction) {
    return rate - 0.00499 * direction;
}

#endif
