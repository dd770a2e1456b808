// The rows of a board: the inquiry names them, packets change them, and what a batch has changed leaves
// together in board order.
//
// A Kind tells what a board is made of: its Row, the Key by which packets find a row, `KeyOf(row)`, and the
// Request, a Subscription, with `CodeOf(row)`, the code that a row asks for.
#ifndef TICKMUX_FRAMEWORK_ROW_BOARD_H
#define TICKMUX_FRAMEWORK_ROW_BOARD_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "framework/init_reader.h"
#include "framework/key_index.h"
#include "framework/rows_buffer.h"
#include "framework/shapes.h"

template <class Kind>
class RowBoard {
public:
    using Row = typename Kind::Row;
    using Key = typename Kind::Key;

    // The rows of one inquiry, top first.
    struct Rows {
        std::unique_ptr<Row[]> Items;
        int nRows = 0;
        int nAsked = 0;  // for the codes of so many a request has gone out

        Row* begin() const { return Items.get(); }
        Row* end() const { return Items.get() + nRows; }
    };

    // Until rows are taken no packet finds one. Those that are there still name what is subscribed to.
    void Close() {
        m_Index.Clear();
        Clear();
    }

    // Reads the rows, which must be there, and gives the former ones, for MoveFrom. False if memory fails;
    // then the former ones stay.
    bool Take(InitReader& in, int rows, Rows& former) {
        const auto count = static_cast<std::size_t>(rows);
        Rows next{std::unique_ptr<Row[]>(new (std::nothrow) Row[count]), rows, 0};
        std::unique_ptr<char[]> dirty(new (std::nothrow) char[count]{});
        if (next.Items == nullptr || dirty == nullptr || !m_Index.Reset(count)) {
            return false;
        }
        int place = 0;
        for (Row& row : next) {
            in.Read(row);
            m_Index.Put(Kind::KeyOf(row), place++);
        }
        former = std::exchange(m_Rows, std::move(next));
        m_pDirty = std::move(dirty);
        m_nDirty = 0;
        ++m_nGeneration;
        return true;
    }

    // Asks for the codes of the rows and then gives up those of the former ones, each in board order. The
    // communication manager may call back and end this board, or bring another: then false.
    bool MoveFrom(const Rows& former) {
        const unsigned generation = m_nGeneration;
        while (m_nGeneration == generation && m_Rows.nAsked < m_Rows.nRows) {
            Kind::Request::Add(Kind::CodeOf(At(m_Rows.nAsked++)));
        }
        DeleteAll(former);
        return m_nGeneration == generation;
    }

    void GiveUp() {
        Close();
        ++m_nGeneration;
        DeleteAll(std::exchange(m_Rows, {}));
    }

    int Count() const { return m_Rows.nRows; }
    Row& At(int place) { return m_Rows.Items[static_cast<std::size_t>(place)]; }

    // Of equal keys the first row. kNowhere: there is none.
    static constexpr int kNowhere = KeyIndex<Key>::kNowhere;
    int Find(const Key& key) const { return m_Index.Find(key); }

    // The row leaves with the next buffer.
    void Touch(int place) {
        char& dirty = m_pDirty[static_cast<std::size_t>(place)];
        m_nDirty += dirty == kChanged ? 0 : 1;
        dirty = kChanged;
    }

    // For SendRows: the changed rows.
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
                    std::memchr(dirty, kChanged, static_cast<std::size_t>(all + m_Rows.nRows - dirty)));
                *next++ = m_Rows.Items[static_cast<std::size_t>(dirty - all)];
            }
        }
        return buffer;
    }

    void Clear() {
        if (m_nDirty > 0) {
            std::memset(m_pDirty.get(), 0, static_cast<std::size_t>(m_Rows.nRows));
            m_nDirty = 0;
        }
    }

private:
    static constexpr char kChanged = 1;

    static void DeleteAll(const Rows& rows) {
        std::for_each(rows.begin(), rows.begin() + rows.nAsked,
                      [](const Row& row) { Kind::Request::Delete(Kind::CodeOf(row)); });
    }

    KeyIndex<Key> m_Index;
    int m_nDirty = 0;
    std::unique_ptr<char[]> m_pDirty;  // by place; kChanged or 0
    Rows m_Rows;
    unsigned m_nGeneration = 0;  // of the rows
};

#endif
