// A screen of rows behind a repeat head and nothing else; what the rows of a buffer do is its own.
#ifndef TICKMUX_TERMINAL_SCREENS_PLAIN_TABLE_H
#define TICKMUX_TERMINAL_SCREENS_PLAIN_TABLE_H

#include <string>
#include <vector>

#include "terminal/screens/screen.h"

namespace tools {

class PlainTable : public Screen {
public:
    std::size_t Take(std::string_view buffer) override;
    std::string Show(std::string_view buffer) const override;

protected:
    // `tables` as RowsTables gives them, with PlainRows in front.
    explicit PlainTable(const std::vector<LayoutTable>& tables) : m_Front(tables[0]), m_Row(tables[1]) {}

    const LayoutTable& Row() const { return m_Row; }
    // How rows read.
    virtual std::string Table(std::string_view rows) const;
    virtual void TakeRows(std::string_view rows) = 0;

private:
    const LayoutTable m_Front;
    const LayoutTable m_Row;
};

}  // namespace tools

#endif
