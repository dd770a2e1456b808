// The rows of an order list, top first, with their marks.
//
// What the list must tell fast: the first row of an order number from the top, the place of a row, and the
// marked rows in list order. New rows come in at the top only, so each row keeps a rank that rises from the
// bottom; places are counted by a tree of sums over the ranks. Removed rows leave gaps that are closed now
// and then.
#ifndef TICKMUX_DECODERS_ORDERROWS_H
#define TICKMUX_DECODERS_ORDERROWS_H

#include <algorithm>
#include <cstdint>

#include "framework/node_pool.h"
#include "framework/number_index.h"
#include "framework/plain_array.h"
#include "layouts/Orders.h"

// What of a row the view does not have yet.
enum class RowMark : unsigned char { None, Changed, New };

struct OrderEntry {
    OrderRow Row;
    int32_t Number;  // of Row.OrderNo
    uint32_t Rank;
    uint32_t MarkedAt;  // its place among the rows of its mark
    RowMark Mark;
    bool Touched;
    OrderEntry* Previous;
    OrderEntry* Next;
};

// Counts ones among zeros: how many stand below a rank.
class RankCounts {
public:
    bool Reserve(std::size_t ranks) { return m_Sums.Reserve(ranks); }
    void Append(int32_t value);
    void Add(std::size_t rank, int32_t value);
    int32_t Below(std::size_t rank) const;
    void Clear() { m_Sums.Clear(); }

private:
    PlainArray<int32_t>
        m_Sums;  // the entry of rank r holds the sum of as many ranks as r + 1 has trailing zeros
};

class OrderRows {
public:
    void Clear();

    // A copy of the row at the top, without a mark. Null: memory failed, nothing changed.
    OrderEntry* InsertTop(const OrderRow& row);
    void Remove(OrderEntry* entry);

    // The first from the top; null: none.
    OrderEntry* Find(int32_t number) const { return m_Index.Find(number); }
    // How many rows stand above.
    int PlaceOf(const OrderEntry* entry) const { return m_nRows - m_Live.Below(entry->Rank + 1); }

    // ---- marks
    void SetMark(OrderEntry* entry, RowMark mark);
    int CountMarked(RowMark mark) const { return static_cast<int>(Marked(mark).Size()); }
    // Calls visit(entry) for the rows of the mark in list order, and takes the mark off them.
    template <class Visitor>
    void TakeMarked(RowMark mark, Visitor&& visit) {
        PlainArray<OrderEntry*>& marked = Marked(mark);
        Sort(marked);
        for (std::size_t i = 0; i < marked.Size(); ++i) {
            marked[i]->Mark = RowMark::None;
            visit(*marked[i]);
        }
        marked.Clear();
    }

    // All rows that have a mark, in list order. The array is the list's own, until the next call.
    const PlainArray<OrderEntry*>& SortMarked();

    // ---- shown rows: those that the view has, where a filter decides it
    void SetShown(OrderEntry* entry, bool shown);
    static bool IsShown(const OrderEntry* entry) { return entry->Row.ShownMark == kShown; }
    // How many shown rows stand above.
    int ShownAbove(const OrderEntry* entry) const { return m_nShown - m_Shown.Below(entry->Rank + 1); }

    // Rows to be looked at again; each is remembered once, and taken from the bottom up. Null: no more.
    void Touch(OrderEntry* entry);
    OrderEntry* TakeTouched();

private:
    static constexpr char kShown = 's';

    static bool Above(const OrderEntry* a, const OrderEntry* b) { return a->Rank > b->Rank; }

    PlainArray<OrderEntry*>& Marked(RowMark mark) { return m_Marked[mark == RowMark::New ? 1 : 0]; }
    const PlainArray<OrderEntry*>& Marked(RowMark mark) const {
        return m_Marked[mark == RowMark::New ? 1 : 0];
    }
    static void Sort(PlainArray<OrderEntry*>& entries) {
        std::sort(entries.Data(), entries.Data() + entries.Size(), Above);
    }
    bool ReserveOne();
    void CloseGaps();

    int m_nRows = 0;
    int m_nShown = 0;
    NodePool<OrderEntry> m_Entries;
    NumberIndex<OrderEntry> m_Index;
    PlainArray<OrderEntry*> m_Ranks;  // null: a gap
    RankCounts m_Live;
    RankCounts m_Shown;
    PlainArray<OrderEntry*> m_Marked[2];
    PlainArray<OrderEntry*> m_Sorted;
    PlainArray<OrderEntry*> m_Touched;
    bool m_bTouchedSorted = true;
};

#endif
