// The rows of an order list, top first, with their marks.
//
// What the list must tell fast: the first row of an order number from the top, the place of a row, and the
// rows with a mark in list order. New rows come in at the top only, so each row gets a serial that rises from
// the bottom to the top; whoever must be found in list order stands in an array that is kept in that order.
#ifndef TICKMUX_DECODERS_ORDERROWS_H
#define TICKMUX_DECODERS_ORDERROWS_H

#include <cstdint>

#include "framework/init_reader.h"
#include "framework/node_pool.h"
#include "framework/number_index.h"
#include "framework/plain_array.h"
#include "layouts/Orders.h"

// What of a row the view does not have yet.
enum class RowMark : unsigned char { None, Changed, New };

struct OrderEntry {
    OrderRow Row;
    RowMark Mark;
    bool Touched;
    int32_t Number;  // of Row.OrderNo
    uint64_t Serial;
    OrderEntry* Previous;
    OrderEntry* Next;
};

// Entries of one list in its order, the bottom first: a new row is appended, and who comes in or leaves
// further down moves those behind as one block.
class RowsInOrder {
public:
    bool Reserve(std::size_t rows) { return m_Entries.Reserve(rows); }
    std::size_t Size() const { return m_Entries.Size(); }
    OrderEntry* operator[](std::size_t place) const { return m_Entries[place]; }

    // There is room for it, and it is not there yet.
    void Insert(OrderEntry* entry);
    // It is there.
    void Remove(const OrderEntry* entry);
    int CountAbove(const OrderEntry* entry) const;

    // Those without a mark leave, from the place on.
    void DropUnmarked(std::size_t place);
    void Clear() { m_Entries.Clear(); }

private:
    // Of the first that is not below the entry.
    std::size_t PlaceOf(const OrderEntry* entry) const;

    PlainArray<OrderEntry*> m_Entries;
};

class OrderRows {
public:
    void Clear();
    // Copies the rows that the text has left, each to go out as changed. False: it is not exactly so many, or
    // memory failed; the list is empty then.
    bool ReadRows(InitReader& in, int count);

    // A copy of the row at the top. Null: memory failed, nothing changed.
    OrderEntry* InsertTop(const OrderRow& row, RowMark mark);
    void Remove(OrderEntry* entry);

    // The first from the top; null: none.
    OrderEntry* FindRow(int32_t number) const { return m_Index.Find(number); }
    // How many rows stand above.
    int IndexOf(const OrderEntry* entry) const { return m_Rows.CountAbove(entry); }

    // ---- marks
    void SetMark(OrderEntry* entry, RowMark mark);
    int CountMarked(RowMark mark) const { return m_nRows[static_cast<std::size_t>(mark)]; }
    // Calls visit(entry) for all rows that have a mark, top first; it gives the mark that the row is to have.
    template <class Visitor>
    void VisitMarked(Visitor&& visit) {
        for (std::size_t place = m_Marked.Size(); place > 0; --place) {
            OrderEntry* entry = m_Marked[place - 1];
            ChangeMark(entry, visit(*entry));
        }
        m_Marked.DropUnmarked(0);
    }
    // Calls visit(entry) for the rows of the mark, from the bottom up, and takes the mark off them.
    template <class Visitor>
    void TakeMarked(RowMark mark, Visitor&& visit) {
        // New rows stand above the others: the lowest of the mark is looked for from the top.
        std::size_t lowest = m_Marked.Size();
        for (int left = CountMarked(mark); left > 0;) {
            left -= m_Marked[--lowest]->Mark == mark ? 1 : 0;
        }
        for (std::size_t place = lowest; place < m_Marked.Size(); ++place) {
            OrderEntry* entry = m_Marked[place];
            if (entry->Mark == mark) {
                ChangeMark(entry, RowMark::None);
                visit(*entry);
            }
        }
        m_Marked.DropUnmarked(lowest);
    }

    // ---- shown rows: those that the view has, where a filter decides it
    void SetShown(OrderEntry* entry, bool shown);
    static bool IsShown(const OrderEntry* entry) { return entry->Row.ShownMark == kShown; }
    // How many shown rows stand above.
    int CountShownAbove(const OrderEntry* entry) const { return m_Shown.CountAbove(entry); }

    // ---- touched rows: shown ones to be looked at again
    void Touch(OrderEntry* entry);  // a row that is not shown is passed over
    void TouchAll();
    // From the bottom up; null: no more.
    OrderEntry* TakeTouched();

private:
    static constexpr char kShown = 's';

    bool ReserveOne();
    void ChangeMark(OrderEntry* entry, RowMark mark) {
        --m_nRows[static_cast<std::size_t>(entry->Mark)];
        ++m_nRows[static_cast<std::size_t>(mark)];
        entry->Mark = mark;
    }

    uint64_t m_nNextSerial = 0;
    int m_nRows[3] = {};  // by mark
    NodePool<OrderEntry> m_Entries;
    NumberIndex<OrderEntry> m_Index;
    RowsInOrder m_Rows;
    RowsInOrder m_Marked;
    RowsInOrder m_Shown;
    RowsInOrder m_Touched;
};

#endif
