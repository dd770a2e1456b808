#include "terminal/screens/order_table.h"

#include <algorithm>
#include <cstring>

#include "terminal/screens/panel.h"
#include "terminal/screens/row_table.h"
#include "terminal/text.h"

namespace tools {

namespace {

template <std::size_t N>
std::string_view TextOf(const char (&field)[N]) {
    return {field, N};
}

std::string CharText(char value) {
    return Quoted(std::string_view(&value, 1));
}

std::string NumberText(const OrderRow& row) {
    return Quoted(Trim(TextOf(row.OrderNo)));
}

template <std::size_t N>
std::optional<int64_t> NumberIn(const char (&field)[N]) {
    return ParseInteger(Trim(TextOf(field)));
}

bool IsSameOrder(const OrderRow& a, const OrderRow& b) {
    return TextOf(a.OrderNo) == TextOf(b.OrderNo);
}

std::string BytesOf(const std::deque<OrderRow>& rows, std::size_t count) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) {
        bytes.append(reinterpret_cast<const char*>(&rows[i]), sizeof(OrderRow));
    }
    return bytes;
}

}  // namespace

std::vector<LayoutTable> OrderTables() {
    return RowsTables<OrderMessage, OrderRow>();
}

OrderTable::OrderTable(std::size_t limit, BlankTail tail)
    : m_Front(OrderTables()[0]), m_Row(OrderTables()[1]), m_nLimit(limit), m_Tail(tail) {}

std::size_t OrderTable::Take(std::string_view buffer) {
    const std::vector<OrderRow> rows = RowsOf(buffer);
    OrderMessage message;
    std::memcpy(&message, buffer.data(), sizeof(message));
    const OrderControl& control = message.Control;
    const std::optional<int64_t> index = NumberIn(control.Index);
    if (!index) {
        Fault("index " + Quoted(TextOf(control.Index)) + " is no number");
    } else if (control.Operation == kUpdateRows) {
        TakeUpdate(*index, control.Action, rows);
    } else if (control.Operation == kDeleteRow) {
        TakeDelete(*index, control.Action, rows);
    } else {
        Fault("unknown operation " + CharText(control.Operation));
    }
    return rows.size();
}

std::vector<OrderRow> OrderTable::RowsOf(std::string_view buffer) {
    const std::size_t room = RowsIn(m_Front, m_Row, buffer);
    RepeatHead repeat;
    std::memcpy(&repeat, buffer.data() + offsetof(OrderMessage, Repeat), sizeof(repeat));
    if (NumberIn(repeat.Size) != static_cast<int64_t>(sizeof(OrderRow))) {
        Fault("repeat size " + Quoted(TextOf(repeat.Size)) + ", but a row has " +
              std::to_string(sizeof(OrderRow)) + " bytes");
    }
    // The control record counts as one.
    const int64_t counted = NumberIn(repeat.Count).value_or(0) - 1;
    const auto most = static_cast<int64_t>(room);
    std::vector<OrderRow> rows(static_cast<std::size_t>(std::clamp<int64_t>(counted, 0, most)));
    const std::string_view tail = buffer.substr(sizeof(OrderMessage) + rows.size() * sizeof(OrderRow));
    const bool isShort = counted >= 0 && counted < most && m_Tail == BlankTail::Allowed;
    if (counted != most && !isShort) {
        Fault("repeat count " + Quoted(TextOf(repeat.Count)) +
              ", but there is room for the control record and " + Counted(room, "row"));
    } else if (tail.find_first_not_of(' ') != std::string_view::npos) {
        Fault("behind the last row the message is not blank");
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::memcpy(&rows[i], buffer.data() + sizeof(OrderMessage) + i * sizeof(OrderRow), sizeof(OrderRow));
    }
    return rows;
}

void OrderTable::TakeUpdate(int64_t index, char action, const std::vector<OrderRow>& rows) {
    switch (action) {
        case kAllRows:
            m_Rows.assign(rows.begin(), rows.end());
            break;
        case kNewRows:
            m_Rows.insert(m_Rows.begin(), rows.begin(), rows.end());
            break;
        case kChangedRows:
            Change(rows);
            break;
        default:
            UnknownAction(kUpdateRows, action);
            return;
    }
    if (index == kNoSingleRow) {
        return;
    }
    // It points at one of the rows that the message brings.
    if (index < 0 || index >= static_cast<int64_t>(m_Rows.size())) {
        Fault("update with index " + std::to_string(index) + ", but the table has " +
              Counted(m_Rows.size(), "row"));
        return;
    }
    const OrderRow& meant = m_Rows[static_cast<std::size_t>(index)];
    if (std::none_of(rows.begin(), rows.end(),
                     [&meant](const OrderRow& row) { return IsSameOrder(row, meant); })) {
        Fault("update with index " + std::to_string(index) + ", which is order " + NumberText(meant) +
              ", but does not bring it");
    }
}

// The sender's list has lost the row when it sends the others.
void OrderTable::TakeDelete(int64_t index, char action, const std::vector<OrderRow>& rows) {
    if (action != kChangedRows) {
        UnknownAction(kDeleteRow, action);
        return;
    }
    if (index == kNoSingleRow) {
        Fault("delete without an index");
    } else if (index < 0 || index >= static_cast<int64_t>(m_Rows.size())) {
        Fault("delete of row " + std::to_string(index) + ", but the table has " +
              Counted(m_Rows.size(), "row"));
    } else {
        m_Rows.erase(m_Rows.begin() + index);
    }
    Change(rows);
}

// Of two rows with one number the upper one is meant.
void OrderTable::Change(const std::vector<OrderRow>& rows) {
    for (const OrderRow& row : rows) {
        const auto found = std::find_if(m_Rows.begin(), m_Rows.end(),
                                        [&row](const OrderRow& own) { return IsSameOrder(own, row); });
        if (found == m_Rows.end()) {
            Fault("update of order " + NumberText(row) + ", which the table does not have");
        } else {
            *found = row;
        }
    }
}

void OrderTable::UnknownAction(char operation, char action) {
    Fault("unknown action " + CharText(action) + " of operation " + CharText(operation));
}

std::string OrderTable::Show(std::string_view buffer) const {
    return FieldLines(m_Front, buffer.substr(0, m_Front.Size)) + RowTable(m_Row, buffer.substr(m_Front.Size));
}

std::string OrderTable::Image() const {
    if (m_Rows.empty()) {
        return "";
    }
    const std::size_t shown = std::min(m_nLimit, m_Rows.size());
    const std::size_t below = m_Rows.size() - shown;
    return RowTable(m_Row, BytesOf(m_Rows, shown)) +
           (below == 0 ? "" : "  " + Counted(below, "row") + " below\n");
}

}  // namespace tools
