#include "tools/screens/row_list.h"

#include "tools/errors.h"
#include "tools/screens/panel.h"
#include "tools/text.h"

namespace tools {

namespace {

// One column: the values of a field, as wide as the widest. Numbers stand at the right of their field.
class Column {
public:
    explicit Column(const std::string& name) : m_Cells{name}, m_nWidth(name.size()) {}

    void Add(std::string_view value) {
        const std::string_view trimmed = Trim(value);
        m_bRight = m_bRight || (!trimmed.empty() && value.front() == ' ');
        m_Cells.push_back(Printable(trimmed));
        m_nWidth = std::max(m_nWidth, m_Cells.back().size());
    }

    std::string Cell(std::size_t line) const {
        const std::string& cell = m_Cells[line];
        const std::string gap(m_nWidth - cell.size(), ' ');
        return m_bRight ? gap + cell : cell + gap;
    }

private:
    std::vector<std::string> m_Cells;
    std::size_t m_nWidth;
    bool m_bRight = false;
};

}  // namespace

std::size_t RowList::Take(std::string_view buffer) {
    const std::size_t rows = buffer.size() < m_Front.Size ? 0 : (buffer.size() - m_Front.Size) / m_Row.Size;
    if (buffer.size() != m_Front.Size + rows * m_Row.Size) {
        throw Failure("a buffer of " + Counted(buffer.size(), "byte") + " where the layout has " +
                      std::to_string(m_Front.Size) + " and " + std::to_string(m_Row.Size) + " for each row");
    }
    m_LatestFront = buffer.substr(0, m_Front.Size);
    m_Newest += buffer.substr(m_Front.Size);
    const std::size_t kept = m_nLimit * m_Row.Size;
    if (m_Newest.size() > 2 * kept) {
        m_Newest.erase(0, m_Newest.size() - kept);
    }
    return rows;
}

std::string RowList::Show(std::string_view buffer) const {
    return FieldLines(m_Front, buffer.substr(0, m_Front.Size)) + RowTable(buffer.substr(m_Front.Size));
}

std::string RowList::Image() const {
    if (m_LatestFront.empty()) {
        return "";
    }
    const std::string_view newest = m_Newest;
    const std::size_t shown = std::min(newest.size(), m_nLimit * m_Row.Size);
    return FieldLines(m_Front, m_LatestFront) + RowTable(newest.substr(newest.size() - shown));
}

std::string RowList::RowTable(std::string_view rows) const {
    std::vector<Column> columns;
    for (const Field& field : m_Row.Fields) {
        columns.emplace_back(field.Name);
        for (std::size_t row = 0; row < rows.size(); row += m_Row.Size) {
            columns.back().Add(rows.substr(row + field.Offset - m_Row.Offset, field.Width));
        }
    }
    std::string text;
    for (std::size_t line = 0; line <= rows.size() / m_Row.Size; ++line) {
        std::string cells;
        for (const Column& column : columns) {
            cells += "  " + column.Cell(line);
        }
        cells.erase(cells.find_last_not_of(' ') + 1);
        text += cells + "\n";
    }
    return text;
}

}  // namespace tools
