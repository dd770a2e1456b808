#include "decoders/OrderRows.h"

#include "framework/codecs.h"

// ------------------------------------------------------------------ RankCounts

namespace {

std::size_t LowestBit(std::size_t number) {
    return number & (~number + 1);
}

}  // namespace

// The sums are numbered from 1: sum n covers the LowestBit(n) ranks up to n.
void RankCounts::Append(int32_t value) {
    const std::size_t number = m_Sums.Size() + 1;
    for (std::size_t covered = 1; covered < LowestBit(number); covered *= 2) {
        value += m_Sums[number - covered - 1];
    }
    *m_Sums.Append() = value;
}

void RankCounts::Add(std::size_t rank, int32_t value) {
    for (std::size_t number = rank + 1; number <= m_Sums.Size(); number += LowestBit(number)) {
        m_Sums[number - 1] += value;
    }
}

int32_t RankCounts::Below(std::size_t rank) const {
    int32_t sum = 0;
    for (std::size_t number = rank; number > 0; number -= LowestBit(number)) {
        sum += m_Sums[number - 1];
    }
    return sum;
}

// ------------------------------------------------------------------ OrderRows

void OrderRows::Clear() {
    m_nRows = 0;
    m_nShown = 0;
    m_Index.Clear();
    m_Ranks.Clear();
    m_Live.Clear();
    m_Shown.Clear();
    for (PlainArray<OrderEntry*>& marked : m_Marked) {
        marked.Clear();
    }
    m_Sorted.Clear();
    m_Touched.Clear();
    m_Entries.Clear();
}

OrderEntry* OrderRows::InsertTop(const OrderRow& row) {
    // When most ranks are gaps.
    constexpr std::size_t kFewRanks = 64;
    if (m_Ranks.Size() >= kFewRanks + 2 * static_cast<std::size_t>(m_nRows)) {
        CloseGaps();
    }
    OrderEntry* entry = ReserveOne() ? m_Entries.Take() : nullptr;
    if (entry == nullptr) {
        return nullptr;
    }
    *entry = {};
    entry->Row = row;
    entry->Number = ToLong(row.OrderNo);
    entry->Rank = static_cast<uint32_t>(m_Ranks.Size());
    *m_Ranks.Append() = entry;
    m_Live.Append(1);
    m_Shown.Append(IsShown(entry) ? 1 : 0);
    m_nShown += IsShown(entry) ? 1 : 0;
    m_Index.PutFirst(entry);
    ++m_nRows;
    return entry;
}

// So that neither a mark nor a touch of a row ever needs memory.
bool OrderRows::ReserveOne() {
    const std::size_t ranks = m_Ranks.Size() + 1;
    const std::size_t rows = static_cast<std::size_t>(m_nRows) + 1;
    return m_Ranks.Reserve(ranks) && m_Live.Reserve(ranks) && m_Shown.Reserve(ranks) &&
           m_Marked[0].Reserve(rows) && m_Marked[1].Reserve(rows) && m_Sorted.Reserve(rows) &&
           m_Touched.Reserve(rows);
}

void OrderRows::Remove(OrderEntry* entry) {
    SetMark(entry, RowMark::None);
    SetShown(entry, false);
    if (entry->Touched) {
        m_Touched.Remove(entry);
    }
    m_Index.Remove(entry);
    m_Ranks[entry->Rank] = nullptr;
    m_Live.Add(entry->Rank, -1);
    m_Entries.Give(entry);
    --m_nRows;
}

void OrderRows::CloseGaps() {
    const std::size_t ranks = m_Ranks.Size();
    uint32_t next = 0;
    m_Live.Clear();
    m_Shown.Clear();
    for (std::size_t rank = 0; rank < ranks; ++rank) {
        OrderEntry* entry = m_Ranks[rank];
        if (entry != nullptr) {
            entry->Rank = next;
            m_Ranks[next++] = entry;
            m_Live.Append(1);
            m_Shown.Append(IsShown(entry) ? 1 : 0);
        }
    }
    m_Ranks.Shrink(next);
}

void OrderRows::SetMark(OrderEntry* entry, RowMark mark) {
    if (entry->Mark == mark) {
        return;
    }
    if (entry->Mark != RowMark::None) {
        PlainArray<OrderEntry*>& former = Marked(entry->Mark);
        OrderEntry* last = former[former.Size() - 1];
        former[entry->MarkedAt] = last;
        last->MarkedAt = entry->MarkedAt;
        former.Shrink(former.Size() - 1);
    }
    entry->Mark = mark;
    if (mark != RowMark::None) {
        entry->MarkedAt = static_cast<uint32_t>(Marked(mark).Size());
        *Marked(mark).Append() = entry;
    }
}

const PlainArray<OrderEntry*>& OrderRows::SortMarked() {
    m_Sorted.Clear();
    for (const PlainArray<OrderEntry*>& marked : m_Marked) {
        for (std::size_t i = 0; i < marked.Size(); ++i) {
            *m_Sorted.Append() = marked[i];
        }
    }
    Sort(m_Sorted);
    return m_Sorted;
}

void OrderRows::SetShown(OrderEntry* entry, bool shown) {
    if (IsShown(entry) == shown) {
        return;
    }
    entry->Row.ShownMark = shown ? kShown : ' ';
    m_Shown.Add(entry->Rank, shown ? 1 : -1);
    m_nShown += shown ? 1 : -1;
}

void OrderRows::Touch(OrderEntry* entry) {
    if (!entry->Touched) {
        entry->Touched = true;
        *m_Touched.Append() = entry;
        m_bTouchedSorted = false;
    }
}

OrderEntry* OrderRows::TakeTouched() {
    if (m_Touched.Empty()) {
        return nullptr;
    }
    if (!m_bTouchedSorted) {
        Sort(m_Touched);
        m_bTouchedSorted = true;
    }
    OrderEntry* lowest = m_Touched[m_Touched.Size() - 1];
    m_Touched.Shrink(m_Touched.Size() - 1);
    lowest->Touched = false;
    return lowest;
}
