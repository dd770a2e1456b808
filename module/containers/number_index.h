// Finds objects by a number that several of them may share; those of one number stay in the order in which
// they were put. The objects link themselves: they have `int32_t Number` and two pointers `Previous` and
// `Next`.
#ifndef TICKMUX_MODULE_CONTAINERS_NUMBER_INDEX_H
#define TICKMUX_MODULE_CONTAINERS_NUMBER_INDEX_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

template <class T>
class NumberIndex {
public:
    // The first object of the number, or null if there is none.
    T* Find(int32_t number) const {
        T* at = BucketOf(number).First;
        while (at != nullptr && at->Number != number) {
            at = at->Next;
        }
        return at;
    }

    void PutFirst(T* object) {
        Grow();
        Bucket& bucket = BucketOf(object->Number);
        object->Previous = nullptr;
        object->Next = bucket.First;
        (bucket.First == nullptr ? bucket.Last : bucket.First->Previous) = object;
        bucket.First = object;
        ++m_nObjects;
    }

    void PutLast(T* object) {
        Grow();
        Append(BucketOf(object->Number), object);
        ++m_nObjects;
    }

    void Remove(T* object) {
        Bucket& bucket = BucketOf(object->Number);
        (object->Previous == nullptr ? bucket.First : object->Previous->Next) = object->Next;
        (object->Next == nullptr ? bucket.Last : object->Next->Previous) = object->Previous;
        --m_nObjects;
    }

    void Clear() {
        std::fill_n(Buckets(), m_nBuckets, Bucket{});
        m_nObjects = 0;
    }

private:
    struct Bucket {
        T* First;
        T* Last;
    };
    static constexpr std::size_t kFewBuckets = 16;
    static_assert(std::has_single_bit(kFewBuckets));

    Bucket* Buckets() { return m_pMany == nullptr ? m_Few : m_pMany.get(); }
    const Bucket* Buckets() const { return m_pMany == nullptr ? m_Few : m_pMany.get(); }

    // Neighbouring numbers fall far apart.
    std::size_t Place(int32_t number) const {
        constexpr uint32_t kGoldenRatio = 2654435769U;
        return static_cast<uint32_t>(number) * kGoldenRatio >> (33 - std::bit_width(m_nBuckets));
    }
    Bucket& BucketOf(int32_t number) { return Buckets()[Place(number)]; }
    const Bucket& BucketOf(int32_t number) const { return Buckets()[Place(number)]; }

    static void Append(Bucket& bucket, T* object) {
        object->Next = nullptr;
        object->Previous = bucket.Last;
        (bucket.Last == nullptr ? bucket.First : bucket.Last->Next) = object;
        bucket.Last = object;
    }

    // As many buckets as objects; without memory for more, chains get longer and nothing else happens.
    void Grow() {
        if (m_nObjects < m_nBuckets) {
            return;
        }
        const std::size_t formerCount = m_nBuckets;
        std::unique_ptr<Bucket[]> many(new (std::nothrow) Bucket[formerCount * 4]{});
        if (many == nullptr) {
            return;
        }
        const std::unique_ptr<Bucket[]> former = std::exchange(m_pMany, std::move(many));
        m_nBuckets = formerCount * 4;
        const Bucket* bucket = former == nullptr ? m_Few : former.get();
        for (const Bucket* end = bucket + formerCount; bucket != end; ++bucket) {
            for (T* object = bucket->First; object != nullptr;) {
                T* next = object->Next;
                Append(BucketOf(object->Number), object);
                object = next;
            }
        }
    }

    std::size_t m_nBuckets = kFewBuckets;  // a power of two
    std::size_t m_nObjects = 0;
    std::unique_ptr<Bucket[]> m_pMany;  // null: the few are enough
    Bucket m_Few[kFewBuckets] = {};
};

#endif
