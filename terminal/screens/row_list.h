// A screen of rows that are added at its end: each buffer is a front of single fields and some new rows.
#ifndef TICKMUX_TERMINAL_SCREENS_ROW_LIST_H
#define TICKMUX_TERMINAL_SCREENS_ROW_LIST_H

#include <algorithm>
#include <string>

#include "terminal/screens/row_table.h"
#include "terminal/screens/screen.h"

namespace tools {

class RowList : public Screen {
public:
    // `tables` as RowsTables gives them; the image shows the newest `limit` rows. So many are kept, or
    // `kept` if that is more.
    RowList(const std::vector<LayoutTable>& tables, std::size_t limit, std::size_t kept = 0)
        : m_Front(tables[0]), m_Row(tables[1]), m_nLimit(limit), m_nKept(std::max(limit, kept)) {}

    std::size_t Take(std::string_view buffer) override;
    std::string Show(std::string_view buffer) const override;
    std::string Image() const override;

    // The bytes of the newest rows, oldest first; fewer if so many are not there.
    std::string_view Newest(std::size_t rows) const;
    // The newest row gives way to the one that comes next.
    void DropNewest();

private:
    const LayoutTable m_Front;
    const LayoutTable m_Row;
    const std::size_t m_nLimit;
    const std::size_t m_nKept;
    std::string m_LatestFront;
    std::string m_Newest;  // rows, oldest first; now and then cut down to those that are kept
};

// How a kind opens one whose image shows as many rows as the user wants.
template <class Front, class Row>
std::unique_ptr<Screen> OpenRowList(const InitText& /*init*/, std::size_t rows) {
    return std::make_unique<RowList>(RowsTables<Front, Row>(), rows);
}

}  // namespace tools

#endif
