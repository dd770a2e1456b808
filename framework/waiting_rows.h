// Rows that gather while packets come in and leave together, oldest first, when the batch ends.
#ifndef TICKMUX_FRAMEWORK_WAITING_ROWS_H
#define TICKMUX_FRAMEWORK_WAITING_ROWS_H

#include <cstring>

#include "framework/codecs.h"
#include "framework/plain_array.h"
#include "framework/shapes.h"
#include "framework/view_buffer.h"

template <class Row>
class WaitingRows {
public:
    bool Empty() const { return m_Rows.Empty(); }
    void Clear() { m_Rows.Clear(); }

    // A new row of spaces behind the others; null: memory failed, the row is lost.
    Row* Add() {
        Row* row = m_Rows.Append();
        if (row != nullptr) {
            FillBlank(*row);
        }
        return row;
    }

    // A buffer of the front, its repeat head filled, and behind it all rows; empty if memory fails. The rows
    // stay here.
    template <class Front>
    ViewBuffer Pack(const Front& front) const {
        const std::size_t rowBytes = m_Rows.Size() * sizeof(Row);
        ViewBuffer buffer = ViewBuffer::Blank(sizeof(Front) + rowBytes);
        if (buffer) {
            auto& packed = buffer.template As<Front>();
            packed = front;
            FillBlank(packed.Repeat);
            Put(packed.Repeat.Count, static_cast<int32_t>(m_Rows.Size()));
            Put(packed.Repeat.Size, static_cast<int32_t>(sizeof(Row)));
            std::memcpy(buffer.Bytes() + sizeof(Front), m_Rows.Data(), rowBytes);
        }
        return buffer;
    }

private:
    PlainArray<Row> m_Rows;
};

#endif
