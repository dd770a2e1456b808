#include "terminal/screens/row_list.h"

#include "terminal/screens/panel.h"
#include "terminal/screens/row_table.h"

namespace tools {

std::size_t RowList::Take(std::string_view buffer) {
    const std::size_t rows = RowsIn(m_Front, m_Row, buffer);
    m_LatestFront = buffer.substr(0, m_Front.Size);
    m_Newest += buffer.substr(m_Front.Size);
    const std::size_t kept = m_nKept * m_Row.Size;
    if (m_Newest.size() > 2 * kept) {
        m_Newest.erase(0, m_Newest.size() - kept);
    }
    return rows;
}

std::string RowList::Show(std::string_view buffer) const {
    return FieldLines(m_Front, buffer.substr(0, m_Front.Size)) + RowTable(m_Row, buffer.substr(m_Front.Size));
}

std::string RowList::Image() const {
    if (m_LatestFront.empty()) {
        return "";
    }
    return FieldLines(m_Front, m_LatestFront) + RowTable(m_Row, Newest(m_nLimit));
}

std::string_view RowList::Newest(std::size_t rows) const {
    const std::string_view newest = m_Newest;
    return newest.substr(newest.size() - std::min(newest.size(), rows * m_Row.Size));
}

void RowList::DropNewest() {
    m_Newest.resize(m_Newest.size() - std::min(m_Newest.size(), m_Row.Size));
}

}  // namespace tools
