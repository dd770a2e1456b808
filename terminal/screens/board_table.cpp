#include "terminal/screens/board_table.h"

#include "terminal/text.h"

namespace tools {

// Of two rows with one key the upper one is meant.
void BoardTable::TakeRows(std::string_view rows) {
    const std::size_t size = Row().Size;
    for (std::size_t from = 0; from < rows.size(); from += size) {
        const std::string_view row = rows.substr(from, size);
        std::size_t to = 0;
        while (to < m_Rows.size() && m_Key.Of(std::string_view(m_Rows).substr(to, size)) != m_Key.Of(row)) {
            to += size;
        }
        if (to < m_Rows.size()) {
            m_Rows.replace(to, size, row);
        } else {
            Fault(std::string("a row of ") + m_What + " " + Quoted(Trim(m_Key.Of(row))) +
                  ", which the board does not have");
        }
    }
}

}  // namespace tools
