#include "terminal/screens/plain_table.h"

#include "terminal/screens/panel.h"
#include "terminal/screens/row_table.h"
#include "terminal/text.h"

namespace tools {

std::size_t PlainTable::Take(std::string_view buffer) {
    const std::size_t rows = RowsIn(m_Front, m_Row, buffer);
    const RepeatHead& repeat = reinterpret_cast<const PlainRows*>(buffer.data())->Repeat;
    const std::string_view count(repeat.Count, sizeof(repeat.Count));
    const std::string_view size(repeat.Size, sizeof(repeat.Size));
    if (ParseInteger(Trim(count)) != static_cast<int64_t>(rows) ||
        ParseInteger(Trim(size)) != static_cast<int64_t>(m_Row.Size)) {
        Fault("repeat head " + Quoted(count) + " of " + Quoted(size) + ", but the buffer holds " +
              Counted(rows, "row") + " of " + Counted(m_Row.Size, "byte"));
    }
    TakeRows(buffer.substr(m_Front.Size));
    return rows;
}

std::string PlainTable::Show(std::string_view buffer) const {
    return FieldLines(m_Front, buffer.substr(0, m_Front.Size)) + Table(buffer.substr(m_Front.Size));
}

std::string PlainTable::Table(std::string_view rows) const {
    return RowTable(m_Row, rows);
}

}  // namespace tools
