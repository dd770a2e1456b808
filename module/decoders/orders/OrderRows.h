// The rows of an order list, top first, with their marks.
//
// What the list must tell fast: the first row of an order number from the top, the place of a row, and the
// rows with a mark in list order. New rows come in at the top only, so each row gets a serial that rises from
// the bottom to the top, and what is asked for in list order stands in arrays that are kept by it.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_ORDERROWS_H
#define TICKMUX_MODULE_DECODERS_ORDERS_ORDERROWS_H

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>

#include "module/containers/node_pool.h"
#include "module/containers/number_index.h"
#include "module/containers/plain_array.h"
#include "module/framework/init_reader.h"
#include "module/layouts/Orders.h"

// What of a row the view does not have yet.
enum class RowMark : unsigned char { None, Changed, New };

struct OrderEntry {
    OrderRow Row;
    RowMark Mark;
    bool Touched;
    int32_t Number;   // of Row.OrderNo
    uint32_t Serial;  // rises from the bottom of the list to its top
    OrderEntry* Previous;
    OrderEntry* Next;
};

inline uint32_t SerialOf(uint32_t serial) {
    return serial;
}
inline uint32_t SerialOf(const OrderEntry* entry) {
    return entry->Serial;
}

// Serials, or entries by their serials, in rising order: the bottom of the list comes first. A new row is
// appended; one that comes in or leaves further down moves those behind it as one block.
template <class Item>
class InListOrder {
public:
    bool Reserve(std::size_t items) { return m_Items.Reserve(items); }
    std::size_t Size() const { return m_Items.Size(); }
    Item operator[](std::size_t place) const { return m_Items[place]; }
    void Clear() { m_Items.Clear(); }

    void Insert(Item item) {
        const bool atTop = Size() == 0 || SerialOf(m_Items[Size() - 1]) < SerialOf(item);
        const std::size_t place = atTop ? Size() : PlaceOf(item);
        assert(place == Size() || m_Items[place] != item);
        m_Items.Insert(place, item);  // OrderRows has room for every row
    }
    void Remove(Item item) {
        const std::size_t place = PlaceOf(item);
        assert(place < Size() && m_Items[place] == item);
        std::copy(m_Items.Data() + place + 1, m_Items.Data() + Size(), m_Items.Data() + place);
        m_Items.Resize(Size() - 1);
    }
    int CountAbove(Item item) const {
        const std::size_t place = PlaceOf(item);
        assert(place < Size() && m_Items[place] == item);
        return static_cast<int>(Size() - 1 - place);
    }
    // Looks at the items from the place on.
    template <class Test>
    void RemoveIf(std::size_t place, Test&& test) {
        Item* end = m_Items.Data() + Size();
        m_Items.Resize(
            static_cast<std::size_t>(std::remove_if(m_Items.Data() + place, end, test) - m_Items.Data()));
    }

private:
    // The place of the first item that is not below this one.
    std::size_t PlaceOf(Item item) const {
        const Item* first = m_Items.Data();
        const auto below = [](Item a, Item b) { return SerialOf(a) < SerialOf(b); };
        return static_cast<std::size_t>(std::lower_bound(first, first + Size(), item, below) - first);
    }

    PlainArray<Item> m_Items;
};

class OrderRows {
public:
    void Clear();
    // Copies the rows that the text has left, each to go out as changed; shown ones are touched.
    // False: it is not exactly so many, or memory failed; the list is empty then.
    bool ReadRows(const InitReader& in, int count);

    // A copy of the row at the top. Null: memory failed, nothing changed.
    OrderEntry* InsertTop(const OrderRow& row, RowMark mark);
    void Remove(OrderEntry* entry);

    // The first row from the top, or null if there is none.
    OrderEntry* FindRow(int32_t number) const { return m_Index.Find(number); }
    // How many rows stand above.
    int IndexOf(const OrderEntry* entry) const { return m_Rows.CountAbove(entry->Serial); }

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
        m_Marked.RemoveIf(0, IsUnmarked);
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
        m_Marked.RemoveIf(lowest, IsUnmarked);
    }

    // ---- shown rows: those that the view has, where a filter decides it
    void SetShown(OrderEntry* entry, bool shown);
    static bool IsShown(const OrderEntry* entry) { return entry->Row.ShownMark == kShown; }
    // How many shown rows stand above.
    int CountShownAbove(const OrderEntry* entry) const { return m_Shown.CountAbove(entry->Serial); }

    // ---- touched rows: shown ones to be looked at again
    void Touch(OrderEntry* entry);  // a row that is not shown is passed over
    // They come from the bottom up. Null: there are no more.
    OrderEntry* TakeTouched();

private:
    static constexpr char kShown = 's';

    static bool IsUnmarked(const OrderEntry* entry) { return entry->Mark == RowMark::None; }

    bool ReserveOne();
    void ChangeMark(OrderEntry* entry, RowMark mark) {
        --m_nRows[static_cast<std::size_t>(entry->Mark)];
        ++m_nRows[static_cast<std::size_t>(mark)];
        entry->Mark = mark;
    }

    uint32_t m_nNextSerial = 0;
    int m_nRows[3] = {};  // by mark
    NodePool<OrderEntry> m_Entries;
    NumberIndex<OrderEntry> m_Index;
    InListOrder<uint32_t> m_Rows;
    InListOrder<uint32_t> m_Shown;
    InListOrder<OrderEntry*> m_Marked;
    InListOrder<OrderEntry*> m_Touched;
};

#endif
