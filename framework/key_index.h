// Finds the place of a key in a list, in about the same time for one key and for thousands. It keeps copies
// of the keys; of equal ones the first counts.
#ifndef TICKMUX_FRAMEWORK_KEY_INDEX_H
#define TICKMUX_FRAMEWORK_KEY_INDEX_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "framework/shapes.h"

template <class Key>
class KeyIndex {
    static_assert(alignof(Key) == 1);

public:
    static constexpr int kNowhere = -1;

    // Empty, with room for so many keys. False if memory fails; then the index is as it was.
    bool Reset(std::size_t keys) {
        const std::size_t slots = std::bit_ceil(keys * 2 + 1);
        std::unique_ptr<Slot[]> fresh(new (std::nothrow) Slot[slots]);
        if (fresh == nullptr) {
            return false;
        }
        std::fill_n(fresh.get(), slots, Slot{{}, kNowhere});
        m_pSlots = std::move(fresh);
        m_nMask = slots - 1;
        return true;
    }

    // There must be room. False if the key is there already; it keeps its place.
    bool Put(const Key& key, int place) {
        Slot& slot = SlotOf(key);
        if (slot.Place != kNowhere) {
            return false;
        }
        slot = {key, place};
        return true;
    }

    int Find(const Key& key) const { return m_pSlots == nullptr ? kNowhere : SlotOf(key).Place; }

    void Clear() { m_pSlots.reset(); }

private:
    struct Slot {
        Key Code;
        int Place;
    };

    // The key's own slot, or the empty one where its search ends: at least half of all are empty.
    Slot& SlotOf(const Key& key) const {
        std::size_t at = Hash(key) & m_nMask;
        while (m_pSlots[at].Place != kNowhere && !SameBytes(m_pSlots[at].Code, key)) {
            at = (at + 1) & m_nMask;
        }
        return m_pSlots[at];
    }

    // Products of odd numbers spread every character over the upper half.
    static std::size_t Hash(const Key& key) {
        constexpr uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
        constexpr uint64_t kOtherOdd = 0xC2B2AE3D27D4EB4F;
        constexpr int kUpperHalf = 32;
        return static_cast<std::size_t>((HeadOf(key) * kGoldenRatio ^ TailOf(key) * kOtherOdd) >> kUpperHalf);
    }

    std::unique_ptr<Slot[]> m_pSlots;
    std::size_t m_nMask = 0;  // slots less one; a power of two of them
};

#endif
