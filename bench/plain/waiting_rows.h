// Rows that wait for the batch end: a linked list of blocks, each allocated for itself.
#ifndef TICKMUX_BENCH_PLAIN_WAITING_ROWS_H
#define TICKMUX_BENCH_PLAIN_WAITING_ROWS_H

#include <cstring>
#include <list>

#include "bench/plain/framework.h"

namespace plain {

template <class Row>
class WaitingRows {
public:
    WaitingRows() = default;
    ~WaitingRows() { Clear(); }
    WaitingRows(const WaitingRows&) = delete;
    WaitingRows& operator=(const WaitingRows&) = delete;

    int Count() const { return static_cast<int>(m_Rows.size()); }

    // A row of spaces.
    Row* Add() {
        Row* row = new Row;
        memset(row, ' ', sizeof(*row));
        m_Rows.push_back(row);
        return row;
    }

    // Oldest first; gives the place behind them.
    char* MoveTo(char* place) {
        while (!m_Rows.empty()) {
            memcpy(place, m_Rows.front(), sizeof(Row));
            place += sizeof(Row);
            delete m_Rows.front();
            m_Rows.pop_front();
        }
        return place;
    }

    void Clear() {
        for (Row* row : m_Rows) {
            delete row;
        }
        m_Rows.clear();
    }

private:
    std::list<Row*> m_Rows;
};

}  // namespace plain

#endif
