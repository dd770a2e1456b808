// The rows of a board: the inquiry names them, packets change them, and what a batch has changed leaves
// together in board order.
//
// A Kind tells what a board is made of: its Row, the Key by which packets find a row, and `KeyOf(row)`.
#ifndef TICKMUX_MODULE_FRAMEWORK_ROW_BOARD_H
#define TICKMUX_MODULE_FRAMEWORK_ROW_BOARD_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "module/containers/key_index.h"
#include "module/framework/rows_buffer.h"
#include "module/wire/shapes.h"

template <class Kind>
class RowBoard {
public:
    using Row = typename Kind::Row;
    using Key = typename Kind::Key;

    // As long as there are no rows, no packet finds one.
    void Close() {
        m_Index.Clear();
        Clear();
        m_nRows = 0;
    }

    // Takes the rows of an inquiry, top first. False if memory fails; then the board is as it was.
    bool Take(std::span<const Row> rows) {
        std::unique_ptr<Row[]> copies(new (std::nothrow) Row[rows.size()]);
        std::unique_ptr<char[]> dirty(new (std::nothrow) char[rows.size()]{});
        if (copies == nullptr || dirty == nullptr || !m_Index.Reset(rows.size())) {
            return false;
        }
        std::copy(rows.begin(), rows.end(), copies.get());
        m_pRows = std::move(copies);
        m_pDirty = std::move(dirty);
        m_nRows = static_cast<int>(rows.size());
        m_nDirty = 0;
        for (int place = 0; place < m_nRows; ++place) {
            m_Index.Put(Kind::KeyOf(At(place)), place);
        }
        return true;
    }

    int Count() const { return m_nRows; }
    Row& At(int place) { return m_pRows[static_cast<std::size_t>(place)]; }

    // Of equal keys the first row is found; kNowhere says that there is none.
    static constexpr int kNowhere = KeyIndex<Key>::kNowhere;
    int Find(const Key& key) const { return m_Index.Find(key); }

    // The row leaves with the next buffer.
    void Touch(int place) {
        char& dirty = m_pDirty[static_cast<std::size_t>(place)];
        m_nDirty += dirty == kChanged ? 0 : 1;
        dirty = kChanged;
    }

    // SendRows makes a buffer of the changed rows.
    bool Empty() const { return m_nDirty == 0; }

    template <class Front>
    ViewBuffer Pack(const Front& front) const {
        ViewBuffer buffer = RowsBuffer<Row>(front, static_cast<std::size_t>(m_nDirty));
        if (buffer) {
            Row* next = RowsBehind<Front, Row>(buffer);
            const char* const all = m_pDirty.get();
            const char* dirty = all;
            for (int left = m_nDirty; left > 0; --left, ++dirty) {
                dirty = static_cast<const char*>(
                    std::memchr(dirty, kChanged, static_cast<std::size_t>(all + m_nRows - dirty)));
                *next++ = m_pRows[static_cast<std::size_t>(dirty - all)];
            }
        }
        return buffer;
    }

    void Clear() {
        if (m_nDirty > 0) {
            std::memset(m_pDirty.get(), 0, static_cast<std::size_t>(m_nRows));
            m_nDirty = 0;
        }
    }

private:
    static constexpr char kChanged = 1;

    KeyIndex<Key> m_Index;
    int m_nDirty = 0;
    int m_nRows = 0;
    std::unique_ptr<char[]> m_pDirty;  // by place; kChanged or 0
    std::unique_ptr<Row[]> m_pRows;
};

#endif
