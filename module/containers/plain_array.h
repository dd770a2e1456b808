// A growing array of plain objects that tells a failed allocation instead of throwing, and keeps its room.
#ifndef TICKMUX_MODULE_CONTAINERS_PLAIN_ARRAY_H
#define TICKMUX_MODULE_CONTAINERS_PLAIN_ARRAY_H

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>

template <class T>
class PlainArray {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    std::size_t Size() const { return m_nSize; }
    bool Empty() const { return m_nSize == 0; }
    const T* Data() const { return m_pItems.get(); }
    T* Data() { return m_pItems.get(); }
    const T& operator[](std::size_t index) const { return m_pItems[index]; }
    T& operator[](std::size_t index) { return m_pItems[index]; }

    // Room for so many; false if memory fails.
    bool Reserve(std::size_t room) {
        while (m_nRoom < room) {
            if (!Grow()) {
                return false;
            }
        }
        return true;
    }

    // One more item behind the last, its value not set. Null: memory failed, nothing changed.
    T* Append() {
        if (m_nSize == m_nRoom && !Grow()) {
            return nullptr;
        }
        return &m_pItems[m_nSize++];
    }

    // There must be room; the items behind move down.
    void Insert(std::size_t place, const T& item) {
        assert(place <= m_nSize && m_nSize < m_nRoom);
        T* at = m_pItems.get() + place;
        std::copy_backward(at, m_pItems.get() + m_nSize, m_pItems.get() + m_nSize + 1);
        *at = item;
        ++m_nSize;
    }

    // The items behind move up.
    void RemoveAt(std::size_t place) {
        assert(place < m_nSize);
        std::copy(m_pItems.get() + place + 1, m_pItems.get() + m_nSize, m_pItems.get() + place);
        --m_nSize;
    }

    void Clear() { m_nSize = 0; }

    // To so many items, for which there must be room; the values of new ones are not set.
    void Resize(std::size_t size) {
        assert(size <= m_nRoom);
        m_nSize = size;
    }

private:
    bool Grow() {
        constexpr std::size_t kFirstRoom = 16;
        const std::size_t room = m_nRoom == 0 ? kFirstRoom : m_nRoom * 2;
        std::unique_ptr<T[]> items(new (std::nothrow) T[room]);
        if (items == nullptr) {
            return false;
        }
        std::copy_n(m_pItems.get(), m_nSize, items.get());
        m_pItems = std::move(items);
        m_nRoom = room;
        return true;
    }

    std::unique_ptr<T[]> m_pItems;
    std::size_t m_nSize = 0;
    std::size_t m_nRoom = 0;
};

#endif
