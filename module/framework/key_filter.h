// What the fan-out asks before it calls a decoder of one key.
#ifndef TICKMUX_MODULE_FRAMEWORK_KEY_FILTER_H
#define TICKMUX_MODULE_FRAMEWORK_KEY_FILTER_H

#include <cstddef>
#include <cstdint>

#include "module/wire/shapes.h"

// Rejects most packets of other keys at a glance: compares the first eight bytes of a payload, which begins
// with its key, or as many as the key has. Without a key it rejects none.
class KeyFilter {
public:
    static constexpr std::size_t kHeadSize = sizeof(uint64_t);

    template <class Key>
    void Set(const Key& key) {
        m_nHead = HeadOf(key);
        m_nMask = sizeof(Key) < kHeadSize ? (uint64_t{1} << sizeof(Key) % kHeadSize * 8) - 1 : ~uint64_t{0};
    }
    bool Admits(uint64_t head) const { return ((head ^ m_nHead) & m_nMask) == 0; }

private:
    uint64_t m_nHead = 0;
    uint64_t m_nMask = 0;
};

#endif
