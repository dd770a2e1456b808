// A screen of rows that are added at its end: each buffer is a front of single fields and some new rows.
#ifndef TICKMUX_TOOLS_SCREENS_ROW_LIST_H
#define TICKMUX_TOOLS_SCREENS_ROW_LIST_H

#include <string>

#include "tools/screens/screen.h"

namespace tools {

// The front of a headed list, and a row behind it.
template <class Row>
std::vector<LayoutTable> HeadedRowsTables() {
    return {TaggedTable<HeadedRows>("Front"),
            {"Each row, with the first one's offsets", sizeof(HeadedRows), sizeof(Row),
             FieldsOf<Row>(sizeof(HeadedRows))}};
}

class RowList : public Screen {
public:
    // `tables` as HeadedRowsTables gives them; the image shows the newest `limit` rows.
    RowList(const std::vector<LayoutTable>& tables, std::size_t limit)
        : m_Front(tables[0]), m_Row(tables[1]), m_nLimit(limit) {}

    std::size_t Take(std::string_view buffer) override;
    std::string Show(std::string_view buffer) const override;
    std::string Image() const override;

private:
    // The bytes of whole rows as an aligned table under the fields' names.
    std::string RowTable(std::string_view rows) const;

    const LayoutTable m_Front;
    const LayoutTable m_Row;
    const std::size_t m_nLimit;
    std::string m_LatestFront;
    std::string m_Newest;  // rows, oldest first; now and then cut down to the limit
};

}  // namespace tools

#endif
