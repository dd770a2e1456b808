// An integer as it lies on the wire: little-endian, at any address.
#ifndef TICKMUX_MODULE_WIRE_LITTLE_H
#define TICKMUX_MODULE_WIRE_LITTLE_H

#include <array>
#include <bit>
#include <cstdint>

static_assert(std::endian::native == std::endian::little, "every target of the terminal is little-endian");

template <class T>
class Little {
public:
    Little() = default;
    constexpr Little(T value) noexcept  // NOLINT(google-explicit-constructor): stands for the number
        : m_Bytes(std::bit_cast<Bytes>(value)) {}
    constexpr operator T() const noexcept {  // NOLINT(google-explicit-constructor)
        return std::bit_cast<T>(m_Bytes);
    }

private:
    using Bytes = std::array<unsigned char, sizeof(T)>;
    Bytes m_Bytes;
};

static_assert(sizeof(Little<int32_t>) == 4 && alignof(Little<int32_t>) == 1);
static_assert(sizeof(Little<int64_t>) == 8 && alignof(Little<int64_t>) == 1);

#endif
