// Sums of 32-bit figures that may run over: they wrap as two's complement.
#ifndef TICKMUX_FRAMEWORK_WRAP_H
#define TICKMUX_FRAMEWORK_WRAP_H

#include <cstdint>

constexpr int32_t WrapAdd(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

#endif
