// Rows behind a front, and how they read as an aligned table.
#ifndef TICKMUX_TERMINAL_SCREENS_ROW_TABLE_H
#define TICKMUX_TERMINAL_SCREENS_ROW_TABLE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "terminal/fields.h"

namespace tools {

// The front of a buffer of rows, and a row behind it.
template <class Front, class Row>
std::vector<LayoutTable> RowsTables() {
    return {
        TaggedTable<Front>("Front"),
        {"Each row, with the first one's offsets", sizeof(Front), sizeof(Row), FieldsOf<Row>(sizeof(Front))}};
}

// How many rows stand behind the front of a buffer. Failure for a buffer that ends within one.
std::size_t RowsIn(const LayoutTable& front, const LayoutTable& row, std::string_view buffer);

// The bytes of whole rows, one line each, under the fields' names. A column is as wide as its widest
// value; a reserved one shows if it holds something.
std::string RowTable(const LayoutTable& row, std::string_view rows);

}  // namespace tools

#endif
