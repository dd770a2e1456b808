// Finds the place of a key in a list, in about the same time for one key and for thousands. It keeps copies
// of the keys; of equal ones the first counts.
#ifndef TICKMUX_MODULE_CONTAINERS_KEY_INDEX_H
#define TICKMUX_MODULE_CONTAINERS_KEY_INDEX_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "module/wire/shapes.h"

template <class Key>
class KeyIndex {
    static_assert(alignof(Key) == 1);

public:
    static constexpr int kNowhere = -1;

    // Empty, with room for so many keys. False if memory fails; then the index is as it was.
    bool Reset(std::size_t keys) {
        const std::size_t slots = std::bit_ceil(keys * 2 + 2);
        std::unique_ptr<Slot[]> fresh(new (std::nothrow) Slot[slots]);
        if (fresh == nullptr) {
            return false;
        }
        std::fill_n(fresh.get(), slots, Slot{{}, kNowhere});
        m_pSlots = std::move(fresh);
        m_nMask = slots - 1;
        m_nShift = std::countl_zero(m_nMask) + kWordBits - kMaskBits;
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
        auto at = static_cast<std::size_t>(Hash(key) >> m_nShift);
        while (m_pSlots[at].Place != kNowhere && !SameBytes(m_pSlots[at].Code, key)) {
            at = (at + 1) & m_nMask;
        }
        return m_pSlots[at];
    }

    // A product carries every character up into its highest bits, from which the place is taken.
    static uint64_t Hash(const Key& key) {
        constexpr uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
        constexpr uint64_t kOtherOdd = 0xC2B2AE3D27D4EB4F;
        return (HeadOf(key) * kOtherOdd ^ TailOf(key)) * kGoldenRatio;
    }

    static constexpr int kWordBits = std::numeric_limits<uint64_t>::digits;
    static constexpr int kMaskBits = std::numeric_limits<std::size_t>::digits;

    std::unique_ptr<Slot[]> m_pSlots;
    std::size_t m_nMask = 0;  // slots less one; a power of two of them
    int m_nShift = 0;         // leaves as many bits of a hash as the mask has
};

#endif
