// What goes into a target, and what comes out of it.
#ifndef TICKMUX_FUZZ_INPUT_H
#define TICKMUX_FUZZ_INPUT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

// The fuzzer's bytes, taken from the front; behind their end come zeros.
class Input {
public:
    Input(const uint8_t* data, std::size_t size) : m_Rest(reinterpret_cast<const char*>(data), size) {}

    std::size_t Left() const { return m_Rest.size(); }
    bool Empty() const { return m_Rest.empty(); }
    unsigned Byte() {
        const std::string_view byte = Take(1);
        return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
    }
    // Fewer where the input ends.
    std::string_view Take(std::size_t size) {
        const std::string_view taken = m_Rest.substr(0, size);
        m_Rest.remove_prefix(taken.size());
        return taken;
    }
    std::string_view Rest() { return Take(m_Rest.size()); }
    // Up to the next zero byte, which goes too.
    std::string_view Text() {
        const std::string_view taken = Take(std::min(m_Rest.find('\0'), m_Rest.size()));
        Take(1);
        return taken;
    }

private:
    std::string_view m_Rest;
};

inline volatile uint64_t g_Checksum = 0;

// Output that a target reads goes in here, so that no compiler can leave the reading out.
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
