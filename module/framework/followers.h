// Who follows a key, found by the key: the decoders that run and follow it, in order of registration.
//
// A decoder is a link of the chain of its key, so that it changes chains in the middle of a packet's way, and
// without memory. Chains hang on a table of places by the key's first eight bytes; keys that share a place
// share a chain and are told apart by these bytes, keys that share these by the handlers, which compare the
// whole key.
#ifndef TICKMUX_MODULE_FRAMEWORK_FOLLOWERS_H
#define TICKMUX_MODULE_FRAMEWORK_FOLLOWERS_H

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "module/containers/plain_array.h"

// What a decoder is to the fan-out.
class Follower {
public:
    Follower() = default;
    Follower(const Follower&) = delete;
    Follower& operator=(const Follower&) = delete;

    // Rises from one registration to the next; 0: not registered.
    uint64_t Serial() const { return m_nSerial; }
    void SetSerial(uint64_t serial) { m_nSerial = serial; }

protected:
    ~Follower() = default;

private:
    friend class Followers;

    uint64_t m_nHead = 0;  // of its key
    Follower* m_pNext = nullptr;
    uint64_t m_nSerial = 0;
    Follower* m_pPrevious = nullptr;
};

class Followers {
public:
    // Counts up `changes` with each change of a chain.
    explicit Followers(std::atomic<uint64_t>& changes) : m_nChanges(changes) {}

    // For so many decoders; without memory for it chains get longer.
    void MakeRoom(std::size_t decoders);

    // Into the chain of the key with this head, and out of it.
    void Enter(Follower& follower, uint64_t head);
    void Leave(Follower& follower);

    // The first that follows the key with this head; null: there is none.
    Follower* FirstOf(uint64_t head) const { return ThisOrNext(PlaceOf(head).pFirst, head); }
    static Follower* NextOf(const Follower& one) { return ThisOrNext(one.m_pNext, one.m_nHead); }

private:
    struct Place {
        Follower* pFirst = nullptr;
        Follower* pLast = nullptr;
    };

    static Follower* ThisOrNext(Follower* follower, uint64_t head) {
        while (follower != nullptr && follower->m_nHead != head) {
            follower = follower->m_pNext;
        }
        return follower;
    }

    std::size_t IndexOf(uint64_t head) const {
        constexpr uint64_t kSpread = 0x9E3779B97F4A7C15;  // odd, its bits as good as random
        constexpr int kUpperHalf = 32;
        return static_cast<std::size_t>(head * kSpread >> kUpperHalf) & (m_Table.Size() - 1);
    }
    const Place& PlaceOf(uint64_t head) const {
        return m_Table.Empty() ? m_OnePlace : m_Table[IndexOf(head)];
    }
    Place& PlaceOf(uint64_t head) { return m_Table.Empty() ? m_OnePlace : m_Table[IndexOf(head)]; }

    Place m_OnePlace;           // of all keys, while decoders are few
    PlainArray<Place> m_Table;  // its size is a power of two
    std::atomic<uint64_t>& m_nChanges;
};

#endif
