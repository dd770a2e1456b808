// A long order list, and the notices that fill its rows.
#ifndef TICKMUX_BENCH_SUPPORT_ORDERS_H
#define TICKMUX_BENCH_SUPPORT_ORDERS_H

#include <string>

#include "bench/support/market.h"
#include "layouts/Orders.h"

namespace bench {

inline std::string OrderNumber(unsigned order) {
    return "0" + std::to_string(100'000 + order);
}

// The Init text of an order list with so many open orders.
inline std::string OrderInquiry(unsigned orders) {
    std::string text = "O1      0" + Head(orders, sizeof(OrderRow));
    for (unsigned order = 0; order < orders; ++order) {
        OrderRow row;
        FillBlank(row);
        PutLeft(row.OrderQty, "    90000000000");
        PutLeft(row.UnfilledQty, "    90000000000");
        PutLeft(row.Status, "Open");
        PutLeft(row.OrderNo, OrderNumber(order));
        text.append(reinterpret_cast<const char*>(&row), sizeof(row));
    }
    return text;
}

// A fill of one of so many orders.
inline OrderPacket Fill(Market& market, unsigned orders) {
    OrderPacket notice;
    FillBlank(notice);
    PutLeft(notice.Time, std::to_string(100000 + market.Below(60)));
    PutLeft(notice.RecordKind, "01");
    notice.NoticeKind = '2';
    notice.OrderAction = '1';
    notice.OrderState = '1';
    notice.ResultFlag = '0';
    PutLeft(notice.OrderNo, OrderNumber(market.Below(orders)));
    PutLeft(notice.Quantity, std::to_string(1 + market.Below(900)));
    PutLeft(notice.Price, std::to_string(market.Price()));
    return notice;
}

}  // namespace bench

#endif
