#include "module/decoders/orders/OrderRows.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <span>

#include "module/wire/codecs.h"

void OrderRows::Clear() {
    std::fill(std::begin(m_nRows), std::end(m_nRows), 0);
    m_Index.Clear();
    m_Rows.Clear();
    m_Shown.Clear();
    m_Marked.Clear();
    m_Touched.Clear();
    m_Entries.Clear();
    m_nNextSerial = 0;
}

bool OrderRows::ReadRows(const InitReader& in, int count) {
    Clear();
    const std::span<const OrderRow> rows = in.RestAs<OrderRow>();
    if (in.Remain() != count * static_cast<int>(sizeof(OrderRow))) {
        return false;
    }
    // The list grows at its top, so the last row goes in first.
    for (std::size_t i = rows.size(); i > 0; --i) {
        OrderEntry* entry = InsertTop(rows[i - 1], RowMark::Changed);
        if (entry == nullptr) {
            Clear();
            return false;
        }
        Touch(entry);
    }
    return true;
}

OrderEntry* OrderRows::InsertTop(const OrderRow& row, RowMark mark) {
    OrderEntry* entry = ReserveOne() ? m_Entries.Take() : nullptr;
    if (entry == nullptr) {
        return nullptr;
    }
    *entry = {};
    entry->Row = row;
    entry->Number = ToLong(row.OrderNo);
    entry->Serial = m_nNextSerial++;
    ++m_nRows[static_cast<std::size_t>(RowMark::None)];
    m_Rows.Insert(entry->Serial);
    m_Index.PutFirst(entry);
    SetMark(entry, mark);
    if (IsShown(entry)) {
        m_Shown.Insert(entry->Serial);
    }
    return entry;
}

// For one row more in all arrays, so that neither a mark nor a touch ever needs memory.
bool OrderRows::ReserveOne() {
    const std::size_t rows = m_Rows.Size() + 1;
    return m_nNextSerial < std::numeric_limits<uint32_t>::max() && m_Rows.Reserve(rows) &&
           m_Marked.Reserve(rows) && m_Shown.Reserve(rows) && m_Touched.Reserve(rows);
}

void OrderRows::Remove(OrderEntry* entry) {
    SetMark(entry, RowMark::None);
    SetShown(entry, false);
    if (entry->Touched) {
        m_Touched.Remove(entry);
    }
    m_Index.Remove(entry);
    m_Rows.Remove(entry->Serial);
    --m_nRows[static_cast<std::size_t>(RowMark::None)];
    m_Entries.Give(entry);
}

void OrderRows::SetMark(OrderEntry* entry, RowMark mark) {
    if (entry->Mark == RowMark::None && mark != RowMark::None) {
        m_Marked.Insert(entry);
    } else if (entry->Mark != RowMark::None && mark == RowMark::None) {
        m_Marked.Remove(entry);
    }
    ChangeMark(entry, mark);
}

void OrderRows::SetShown(OrderEntry* entry, bool shown) {
    if (IsShown(entry) == shown) {
        return;
    }
    entry->Row.ShownMark = shown ? kShown : ' ';
    if (shown) {
        m_Shown.Insert(entry->Serial);
    } else {
        m_Shown.Remove(entry->Serial);
    }
}

void OrderRows::Touch(OrderEntry* entry) {
    if (IsShown(entry) && !entry->Touched) {
        entry->Touched = true;
        m_Touched.Insert(entry);
    }
}

OrderEntry* OrderRows::TakeTouched() {
    if (m_Touched.Size() == 0) {
        return nullptr;
    }
    OrderEntry* lowest = m_Touched[0];
    m_Touched.Remove(lowest);
    lowest->Touched = false;
    return lowest;
}
