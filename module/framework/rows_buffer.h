// A buffer of rows on its way to the view: a front that ends in a repeat head, the rows close behind it.
#ifndef TICKMUX_MODULE_FRAMEWORK_ROWS_BUFFER_H
#define TICKMUX_MODULE_FRAMEWORK_ROWS_BUFFER_H

#include <cstddef>
#include <cstdint>

#include "module/framework/view_buffer.h"
#include "module/wire/codecs.h"
#include "module/wire/shapes.h"

// Counts the rows in the front's repeat head; the rows' bytes are for the caller to write, all of them. Empty
// if memory fails.
template <class Row, class Front>
ViewBuffer RowsBuffer(const Front& front, std::size_t rows) {
    ViewBuffer buffer = ViewBuffer::Unwritten(sizeof(Front) + rows * sizeof(Row));
    if (buffer) {
        auto& packed = buffer.template As<Front>();
        packed = front;
        FillBlank(packed.Repeat);
        Put(packed.Repeat.Count, static_cast<int32_t>(rows));
        Put(packed.Repeat.Size, static_cast<int32_t>(sizeof(Row)));
    }
    return buffer;
}

template <class Front, class Row>
Row* RowsBehind(ViewBuffer& buffer) {
    static_assert(alignof(Row) == 1);
    return reinterpret_cast<Row*>(buffer.Bytes() + sizeof(Front));
}

#endif
