// An order notice that fills a row among 1,000, and the changed row out.

#include "bench/support/market.h"
#include "bench/support/session.h"
#include "layouts/Orders.h"

namespace {

constexpr unsigned kOrders = 1000;

std::string NumberOf(unsigned order) {
    return "0" + std::to_string(100'000 + order);
}

std::string Inquiry() {
    std::string text = "O1      0" + bench::Head(kOrders, sizeof(OrderRow));
    for (unsigned order = 0; order < kOrders; ++order) {
        OrderRow row;
        FillBlank(row);
        bench::PutLeft(row.OrderQty, "    90000000000");
        bench::PutLeft(row.UnfilledQty, "    90000000000");
        bench::PutLeft(row.Status, "Open");
        bench::PutLeft(row.OrderNo, NumberOf(order));
        text.append(reinterpret_cast<const char*>(&row), sizeof(row));
    }
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    bench::Market market(1);
    bench::Script script;
    script.Screens = {{"RSORDE21_R", Inquiry()}};  // open orders write a log besides
    for (int i = 0; i < 1024; ++i) {
        OrderPacket notice;
        FillBlank(notice);
        bench::PutLeft(notice.Time, std::to_string(100000 + i % 60));
        bench::PutLeft(notice.RecordKind, "01");
        notice.NoticeKind = '2';
        notice.OrderAction = '1';
        notice.OrderState = '1';
        notice.ResultFlag = '0';
        bench::PutLeft(notice.OrderNo, NumberOf(market.Below(kOrders)));
        bench::PutLeft(notice.Quantity, std::to_string(1 + market.Below(900)));
        bench::PutLeft(notice.Price, std::to_string(market.Price()));
        script.Feed.Add(notice);
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("an order notice that fills a row among 1,000, row out", 20, script)});
}
