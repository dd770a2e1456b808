// Reads an Init text: two bytes of request tag, then the body up to the zero byte.
//
// Reads that run short give false; what a text says of counts and sizes is never trusted beyond its own end
// or the reader's own room.
#ifndef TICKMUX_MODULE_FRAMEWORK_INIT_READER_H
#define TICKMUX_MODULE_FRAMEWORK_INIT_READER_H

#include <algorithm>
#include <cstddef>
#include <span>

#include "module/wire/shapes.h"

class InitReader {
public:
    explicit InitReader(const char* buffer);

    // Back to the first byte, for a text that has no tag.
    void ReadTagAsBody();

    // Zero bytes where the text is shorter than a tag.
    const RequestTag& Tag() const { return m_Tag; }

    // Bytes of the body not yet read; negative if the text ends within the tag.
    int Remain() const { return m_nRemain; }
    bool AtEnd() const { return m_nRemain == 0; }

    // The bytes not yet read, and the same as shapes close behind one another: as many as are whole.
    const char* Rest() const { return m_pCursor; }
    template <class Shape>
    std::span<const Shape> RestAs() const {
        static_assert(alignof(Shape) == 1);
        return {reinterpret_cast<const Shape*>(m_pCursor),
                static_cast<std::size_t>(std::max(m_nRemain, 0)) / sizeof(Shape)};
    }

    // False: fewer bytes remain, nothing moved.
    bool ReadBytes(void* dst, int n);

    template <class Shape>
    bool Read(Shape& shape) {
        static_assert(alignof(Shape) == 1);
        return ReadBytes(&shape, sizeof(Shape));
    }

    // A repeat head and, of the items that it announces, the first `Max`, each as long as the head says;
    // items beyond stay unread. A longer item than Row loses its tail, a shorter one has spaces there; rows
    // that did not come are spaces. False if the text runs short: behind a whole head the rest then counts as
    // read.
    template <class Row, std::size_t Max>
    bool ReadRepeatBlock(Row (&rows)[Max]) {
        static_assert(alignof(Row) == 1);
        return ReadRows(rows, sizeof(Row), Max);
    }

    // A repeat head and, close behind one another, the items that it announces, whatever their size: all at
    // once into the room for them. False if the text runs short or the room does not suffice; then no item is
    // read.
    template <class Room>
    bool ReadWholeBlock(RepeatHead& head, Room& items) {
        static_assert(alignof(Room) == 1);
        return ReadItems(head, &items, sizeof(Room));
    }

private:
    bool ReadItems(RepeatHead& head, void* items, std::size_t room);
    bool ReadRows(void* rows, int rowSize, int maxCount);

    RequestTag m_Tag{};
    const char* m_pCursor;
    int m_nRemain;
};

#endif
