// guarded.h - calls from C must not throw: what lacks memory is refused.
#ifndef TICKMUX_HOST_PLATFORM_GUARDED_H
#define TICKMUX_HOST_PLATFORM_GUARDED_H

#include <exception>

template <class Result, class Action>
Result OrRefuse(Result refusal, const Action& action) {
    try {
        return action();
    } catch (const std::exception&) {
        return refusal;
    }
}

#endif
