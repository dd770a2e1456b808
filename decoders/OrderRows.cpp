#include "decoders/OrderRows.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <iterator>

#include "framework/codecs.h"

// ------------------------------------------------------------------ RowsInOrder

std::size_t RowsInOrder::PlaceOf(const OrderEntry* entry) const {
    OrderEntry* const* first = m_Entries.Data();
    const auto below = [](const OrderEntry* a, const OrderEntry* b) { return a->Serial < b->Serial; };
    return static_cast<std::size_t>(std::lower_bound(first, first + Size(), entry, below) - first);
}

void RowsInOrder::Insert(OrderEntry* entry) {
    const bool atTop = Size() == 0 || m_Entries[Size() - 1]->Serial < entry->Serial;
    const std::size_t place = atTop ? Size() : PlaceOf(entry);
    assert(place == Size() || m_Entries[place] != entry);
    m_Entries.Insert(place, entry);
}

void RowsInOrder::Remove(const OrderEntry* entry) {
    const std::size_t place = PlaceOf(entry);
    assert(place < Size() && m_Entries[place] == entry);
    OrderEntry** at = m_Entries.Data() + place;
    std::copy(at + 1, m_Entries.Data() + Size(), at);
    m_Entries.Shrink(Size() - 1);
}

int RowsInOrder::CountAbove(const OrderEntry* entry) const {
    const std::size_t place = PlaceOf(entry);
    assert(place < Size() && m_Entries[place] == entry);
    return static_cast<int>(Size() - 1 - place);
}

void RowsInOrder::DropUnmarked(std::size_t place) {
    OrderEntry** first = m_Entries.Data();
    OrderEntry** end = std::remove_if(first + place, first + Size(),
                                      [](const OrderEntry* entry) { return entry->Mark == RowMark::None; });
    m_Entries.Shrink(static_cast<std::size_t>(end - first));
}

// ------------------------------------------------------------------ OrderRows

void OrderRows::Clear() {
    std::fill(std::begin(m_nRows), std::end(m_nRows), 0);
    m_Index.Clear();
    for (RowsInOrder* rows : {&m_Rows, &m_Marked, &m_Shown, &m_Touched}) {
        rows->Clear();
    }
    m_Entries.Clear();
}

bool OrderRows::ReadRows(InitReader& in, int count) {
    Clear();
    constexpr auto kRowSize = static_cast<int>(sizeof(OrderRow));
    if (in.Remain() != count * kRowSize) {
        return false;
    }
    // The list grows at its top, so the last row goes in first.
    const char* rows = in.Rest();
    for (int i = count - 1; i >= 0; --i) {
        OrderRow row;
        std::memcpy(&row, rows + static_cast<std::ptrdiff_t>(i) * kRowSize, sizeof(row));
        if (InsertTop(row, RowMark::Changed) == nullptr) {
            Clear();
            return false;
        }
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
    m_Rows.Insert(entry);
    m_Index.PutFirst(entry);
    SetMark(entry, mark);
    if (IsShown(entry)) {
        m_Shown.Insert(entry);
    }
    return entry;
}

// For one row more in all arrays, so that neither a mark nor a touch ever needs memory.
bool OrderRows::ReserveOne() {
    const std::size_t rows = m_Rows.Size() + 1;
    return m_Rows.Reserve(rows) && m_Marked.Reserve(rows) && m_Shown.Reserve(rows) && m_Touched.Reserve(rows);
}

void OrderRows::Remove(OrderEntry* entry) {
    SetMark(entry, RowMark::None);
    SetShown(entry, false);
    if (entry->Touched) {
        m_Touched.Remove(entry);
    }
    m_Index.Remove(entry);
    m_Rows.Remove(entry);
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
        m_Shown.Insert(entry);
    } else {
        m_Shown.Remove(entry);
    }
}

void OrderRows::Touch(OrderEntry* entry) {
    if (IsShown(entry) && !entry->Touched) {
        entry->Touched = true;
        m_Touched.Insert(entry);
    }
}

void OrderRows::TouchAll() {
    for (std::size_t place = 0; place < m_Shown.Size(); ++place) {
        Touch(m_Shown[place]);
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
