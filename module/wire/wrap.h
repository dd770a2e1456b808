// Sums and products of figures that may run over: they wrap as two's complement.
#ifndef TICKMUX_MODULE_WIRE_WRAP_H
#define TICKMUX_MODULE_WIRE_WRAP_H

#include <cstdint>

constexpr int32_t WrapAdd(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

constexpr int32_t WrapSubtract(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

constexpr int32_t WrapMultiply(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

constexpr int64_t WrapMultiply(int64_t a, int64_t b) {
    return static_cast<int64_t>(static_cast<uint64_t>(a) * static_cast<uint64_t>(b));
}

// The base that a packet tells: its value without its change, which is a magnitude with a direction.
constexpr int32_t BaseOf(int32_t value, int direction, int32_t change) {
    return WrapAdd(value, WrapMultiply(int32_t{-direction}, change));
}

#endif
