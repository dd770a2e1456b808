// A buffer of rows on its way to the view: a front that ends in a repeat head, the rows close behind it.
#ifndef TICKMUX_MODULE_FRAMEWORK_ROWS_BUFFER_H
#define TICKMUX_MODULE_FRAMEWORK_ROWS_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "module/framework/view_buffer.h"
#include "module/wire/codecs.h"
#include "module/wire/shapes.h"

// A repeat head of no rows; their length is known.
template <class Row>
constexpr RepeatHead EmptyRepeat() {
    RepeatHead head{};
    std::fill(std::begin(head.Count), std::end(head.Count), ' ');
    std::fill(std::begin(head.Size), std::end(head.Size), ' ');
    std::fill(std::begin(head.Reserved), std::end(head.Reserved), ' ');
    char* place = std::end(head.Size);
    for (std::size_t size = sizeof(Row); size > 0; size /= 10) {
        *--place = static_cast<char>('0' + size % 10);
    }
    return head;
}

// Of so many rows, mostly few.
template <class Row>
RepeatHead RepeatOf(std::size_t rows) {
    static constexpr RepeatHead kEmpty = EmptyRepeat<Row>();
    RepeatHead head = kEmpty;
    if (rows < 10) {
        *std::rbegin(head.Count) = static_cast<char>('0' + rows);
    } else {
        Put(head.Count, static_cast<int32_t>(rows));
    }
    return head;
}

// Counts the rows in the front's repeat head; the rows' bytes are for the caller to write, all of them. Empty
// if memory fails.
template <class Row, class Front>
ViewBuffer RowsBuffer(const Front& front, std::size_t rows) {
    ViewBuffer buffer = ViewBuffer::Unwritten(sizeof(Front) + rows * sizeof(Row));
    if (buffer) {
        auto& packed = buffer.template As<Front>();
        packed = front;
        packed.Repeat = RepeatOf<Row>(rows);
    }
    return buffer;
}

template <class Front, class Row>
Row* RowsBehind(ViewBuffer& buffer) {
    static_assert(alignof(Row) == 1);
    return reinterpret_cast<Row*>(buffer.Bytes() + sizeof(Front));
}

#endif
