// A long order list, and the notices that fill its rows.
#ifndef TICKMUX_BENCH_SUPPORT_ORDERS_H
#define TICKMUX_BENCH_SUPPORT_ORDERS_H

#include <string>

#include "tests/support/market.h"

namespace bench {

inline std::string OrderNumber(int64_t order) {
    return "0" + std::to_string(100'000 + order);
}

// Open orders that so many fills do not complete.
inline Rows OpenOrders(int64_t orders) {
    Rows rows;
    for (int64_t order = 0; order < orders; ++order) {
        rows.push_back(ExpectedRow(OrderNumber(order)).Ordered("90000000000").Open("90000000000"));
    }
    return rows;
}

// A fill of one of so many orders.
inline std::string Fill(Market& market, int64_t orders) {
    const std::string order = OrderNumber(market.Below(orders));
    Notice fill = Filled(order, 0, std::to_string(market.Price()));
    return fill.Time(market.Digits(100000, 100059)).Hundredths(market.Between(1, 900)).Bytes();
}

}  // namespace bench

#endif
