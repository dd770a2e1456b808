// A board: the inquiry's rows, each with a key. A buffer brings those that have changed.
#ifndef TICKMUX_TERMINAL_SCREENS_BOARD_TABLE_H
#define TICKMUX_TERMINAL_SCREENS_BOARD_TABLE_H

#include <string>
#include <vector>

#include "terminal/screens/plain_table.h"

namespace tools {

class BoardTable : public PlainTable {
public:
    std::string Image() const override { return Table(m_Rows); }

protected:
    // `rows` as the inquiry brought them. `what` tells in messages what the field `key` of a row names.
    BoardTable(const std::vector<LayoutTable>& tables, std::string_view rows, Field key, const char* what)
        : PlainTable(tables), m_Rows(rows), m_Key(std::move(key)), m_What(what) {}

private:
    void TakeRows(std::string_view rows) override;

    std::string m_Rows;
    const Field m_Key;
    const char* const m_What;
};

}  // namespace tools

#endif
