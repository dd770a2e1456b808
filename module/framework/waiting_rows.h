// Rows that gather while packets come in and leave together, oldest first, when the batch ends.
#ifndef TICKMUX_MODULE_FRAMEWORK_WAITING_ROWS_H
#define TICKMUX_MODULE_FRAMEWORK_WAITING_ROWS_H

#include <cstring>

#include "module/containers/plain_array.h"
#include "module/framework/rows_buffer.h"

template <class Row>
class WaitingRows {
public:
    bool Empty() const { return m_Rows.Empty(); }
    void Clear() { m_Rows.Clear(); }
    const Row& Last() const { return m_Rows[m_Rows.Size() - 1]; }

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
        ViewBuffer buffer = RowsBuffer<Row>(front, m_Rows.Size());
        if (buffer) {
            std::memcpy(RowsBehind<Front, Row>(buffer), m_Rows.Data(), m_Rows.Size() * sizeof(Row));
        }
        return buffer;
    }

private:
    PlainArray<Row> m_Rows;
};

#endif
