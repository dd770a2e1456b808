// Output that a target reads goes in here, so that no compiler can leave the reading out.
#ifndef TICKMUX_FUZZ_FOLD_H
#define TICKMUX_FUZZ_FOLD_H

#include <cstdint>
#include <string_view>

namespace fuzz {

inline volatile uint64_t g_Checksum = 0;

inline void Fold(std::string_view bytes) {
    constexpr uint64_t kPrime = 0x100000001B3;
    uint64_t sum = g_Checksum;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * kPrime;
    }
    g_Checksum = sum;
}

}  // namespace fuzz

#endif
