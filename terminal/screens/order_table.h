// A table of orders that follows the messages of an order list, and tells where one contradicts it.
#ifndef TICKMUX_TERMINAL_SCREENS_ORDER_TABLE_H
#define TICKMUX_TERMINAL_SCREENS_ORDER_TABLE_H

#include <deque>
#include <string>
#include <vector>

#include "module/layouts/Orders.h"
#include "terminal/screens/screen.h"

namespace tools {

// The front of an order message, and a row behind it.
std::vector<LayoutTable> OrderTables();

// May a message be longer than its rows take, blank behind them?
enum class BlankTail { No, Allowed };

class OrderTable : public Screen {
public:
    // The image shows the top `limit` rows.
    OrderTable(std::size_t limit, BlankTail tail);

    std::size_t Take(std::string_view buffer) override;
    std::string Show(std::string_view buffer) const override;
    std::string Image() const override;

    const std::deque<OrderRow>& Rows() const { return m_Rows; }

private:
    // The rows that the repeat head counts, as far as the buffer holds them.
    std::vector<OrderRow> RowsOf(std::string_view buffer);
    void TakeUpdate(int64_t index, char action, const std::vector<OrderRow>& rows);
    void TakeDelete(int64_t index, char action, const std::vector<OrderRow>& rows);
    void Change(const std::vector<OrderRow>& rows);
    void UnknownAction(char operation, char action);

    const LayoutTable m_Front;
    const LayoutTable m_Row;
    const std::size_t m_nLimit;
    const BlankTail m_Tail;
    std::deque<OrderRow> m_Rows;  // top first
};

}  // namespace tools

#endif
