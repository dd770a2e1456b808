// A queue of plain objects in one array that keeps its room. Appending and taking cost the same however many
// wait.
#ifndef TICKMUX_MODULE_CONTAINERS_PLAIN_QUEUE_H
#define TICKMUX_MODULE_CONTAINERS_PLAIN_QUEUE_H

#include <algorithm>
#include <cstddef>

#include "module/containers/plain_array.h"

template <class T>
class PlainQueue {
public:
    std::size_t Size() const { return m_Items.Size() - m_nTaken; }
    bool Empty() const { return Size() == 0; }

    // So many more items at the end, their values not set; gives the first of them. Null: memory failed,
    // nothing changed.
    T* Append(std::size_t count = 1) {
        // Once more than half have been taken the others move down, each as often as one was taken.
        if (m_nTaken > m_Items.Size() / 2) {
            std::copy(m_Items.Data() + m_nTaken, m_Items.Data() + m_Items.Size(), m_Items.Data());
            m_Items.Resize(Size());
            m_nTaken = 0;
        }
        const std::size_t place = m_Items.Size();
        if (!m_Items.Reserve(place + count)) {
            return nullptr;
        }
        m_Items.Resize(place + count);
        return m_Items.Data() + place;
    }

    // The oldest; there must be so many to drop.
    const T* First() const { return m_Items.Data() + m_nTaken; }
    void DropFirst(std::size_t count = 1) {
        m_nTaken += count;
        if (Empty()) {
            Clear();
        }
    }

    void Clear() {
        m_Items.Clear();
        m_nTaken = 0;
    }

private:
    PlainArray<T> m_Items;
    std::size_t m_nTaken = 0;  // at the head of the array
};

#endif
