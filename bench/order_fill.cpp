// An order notice that fills a row among 1,000, and the changed row out.

#include "bench/support/orders.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    constexpr unsigned kOrders = 1000;
    Market market(1);
    bench::Script script;
    tickhost_set_text("UserID", kUser);
    script.Screens = {
        {"RSORDE21_R", OrdersInquiry(bench::OpenOrders(kOrders))}};  // open orders write a log besides
    for (int i = 0; i < 1024; ++i) {
        script.Feed.push_back(bench::Fill(market, kOrders));
    }
    return bench::Ask(argc, argv,
                      {bench::Alone("an order notice that fills a row among 1,000, row out", script)});
}
