// What a competent programmer writes: std::to_chars and std::from_chars, arrays that keep their room, a hash
// index.
#ifndef TICKMUX_BENCH_COMPETENT_COMPETENT_H
#define TICKMUX_BENCH_COMPETENT_COMPETENT_H

#include <cstring>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "bench/competent/codecs.h"
#include "bench/forms/module.h"

namespace competent {

template <class Row>
class RowArray {
public:
    int Count() const { return static_cast<int>(m_Rows.size()); }
    Row& Add() { return m_Rows.emplace_back(); }

    char* MoveTo(char* place) {
        const size_t size = m_Rows.size() * sizeof(Row);
        memcpy(place, m_Rows.data(), size);
        m_Rows.clear();
        return place + size;
    }

    void Clear() { m_Rows.clear(); }

private:
    std::vector<Row> m_Rows;
};

class HashIndex {
public:
    void Add(std::string_view code) { m_Places.try_emplace(code, m_nCodes++); }
    int Find(std::string_view code) const {
        const auto found = m_Places.find(code);
        return found == m_Places.end() ? -1 : found->second;
    }

private:
    std::unordered_map<std::string_view, int> m_Places;
    int m_nCodes = 0;
};

struct Style : Codecs {
    template <class Row>
    using Rows = RowArray<Row>;
    template <class Item>
    using Sequence = std::vector<Item>;
    using Index = HashIndex;
};

}  // namespace competent

extern template class forms::Module<competent::Style>;

#endif
