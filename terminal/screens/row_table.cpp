#include "terminal/screens/row_table.h"

#include "terminal/code_page.h"
#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

namespace {

// Numbers stand at the right of their field.
class Column {
public:
    explicit Column(const std::string& name) : m_Cells{name}, m_nWidth(name.size()) {}

    void Add(std::string_view value) {
        const std::string_view text = value.substr(0, value.find('\0'));
        const std::string_view trimmed = Trim(text);
        m_bRight = m_bRight || (!trimmed.empty() && text.front() == ' ');
        m_Cells.push_back(ShownText(trimmed));
        m_nWidth = std::max(m_nWidth, ShownWidth(m_Cells.back()));
        m_bBlank = m_bBlank && trimmed.empty();
    }

    bool IsBlank() const { return m_bBlank; }

    std::string Cell(std::size_t line) const {
        const std::string& cell = m_Cells[line];
        const std::string gap(m_nWidth - ShownWidth(cell), ' ');
        return m_bRight ? gap + cell : cell + gap;
    }

private:
    std::vector<std::string> m_Cells;
    std::size_t m_nWidth;
    bool m_bRight = false;
    bool m_bBlank = true;
};

}  // namespace

std::size_t RowsIn(const LayoutTable& front, const LayoutTable& row, std::string_view buffer) {
    const std::size_t rows = buffer.size() < front.Size ? 0 : (buffer.size() - front.Size) / row.Size;
    if (buffer.size() != front.Size + rows * row.Size) {
        throw Failure("a buffer of " + Counted(buffer.size(), "byte") + " where the layout has " +
                      std::to_string(front.Size) + " and " + std::to_string(row.Size) + " for each row");
    }
    return rows;
}

std::string RowTable(const LayoutTable& row, std::string_view rows) {
    std::vector<Column> columns;
    for (const Field& field : row.Fields) {
        columns.emplace_back(field.Name);
        for (std::size_t at = 0; at < rows.size(); at += row.Size) {
            columns.back().Add(rows.substr(at + field.Offset - row.Offset, field.Width));
        }
        if (field.IsReserved() && columns.back().IsBlank()) {
            columns.pop_back();
        }
    }
    std::string text;
    for (std::size_t line = 0; line <= rows.size() / row.Size; ++line) {
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
