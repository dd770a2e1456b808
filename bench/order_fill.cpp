// An order notice that fills a row among 1,000, and the changed row out.

#include "bench/support/orders.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    constexpr unsigned kOrders = 1000;
    bench::Market market(1);
    bench::Script script;
    script.Screens = {{"RSORDE21_R", bench::OrderInquiry(kOrders)}};  // open orders write a log besides
    for (int i = 0; i < 1024; ++i) {
        script.Feed.Add(bench::Fill(market, kOrders));
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("an order notice that fills a row among 1,000, row out", 20, script)});
}
