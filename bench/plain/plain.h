// What one writes first: the formatted print and the C library's scans, linked lists, linear searches.
#ifndef TICKMUX_BENCH_PLAIN_PLAIN_H
#define TICKMUX_BENCH_PLAIN_PLAIN_H

#include <cstring>
#include <list>
#include <string_view>
#include <vector>

#include "bench/forms/module.h"
#include "bench/plain/codecs.h"

namespace plain {

// A linked list of rows, each allocated for itself.
template <class Row>
class RowChain {
public:
    RowChain() = default;
    ~RowChain() { Clear(); }
    RowChain(const RowChain&) = delete;
    RowChain& operator=(const RowChain&) = delete;

    int Count() const { return static_cast<int>(m_Rows.size()); }

    Row& Add() {
        m_Rows.push_back(new Row{});
        return *m_Rows.back();
    }

    // Oldest first; gives the place behind them.
    char* MoveTo(char* place) {
        for (const Row* row : m_Rows) {
            memcpy(place, row, sizeof(*row));
            place += sizeof(*row);
        }
        Clear();
        return place;
    }

    void Clear() {
        for (const Row* row : m_Rows) {
            delete row;
        }
        m_Rows.clear();
    }

private:
    std::list<Row*> m_Rows;
};

// Looks at one code after the other.
class Places {
public:
    void Add(std::string_view code) { m_Codes.push_back(code); }
    // Of a code among those added; -1: it is none of them.
    int Find(std::string_view code) const {
        for (size_t place = 0; place < m_Codes.size(); ++place) {
            if (m_Codes[place] == code) {
                return static_cast<int>(place);
            }
        }
        return -1;
    }

private:
    std::vector<std::string_view> m_Codes;
};

struct Style : Codecs {
    template <class Row>
    using Rows = RowChain<Row>;
    template <class Item>
    using Sequence = std::list<Item>;
    using Index = Places;
};

}  // namespace plain

extern template class forms::Module<plain::Style>;

#endif
