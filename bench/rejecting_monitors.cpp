// A whole-market trade at 20 trade monitors that all reject it by their filters.

#include "bench/support/monitor_terminal.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    constexpr unsigned kStocks = 900;
    Market market(1);
    bench::Script script;
    script.World = std::make_shared<bench::MonitorTerminal>(kStocks, 2'000'000'000);  // no trade is as large
    script.Screens.assign(20, {"RSFLDN01_R", "M1unread.."});
    for (int i = 0; i < 1024; ++i) {
        script.Feed.push_back(market.NextCompactTrade(StockOf(market.Below(kStocks))).Bytes());
    }
    script.nBatch = 8;
    return bench::Ask(argc, argv,
                      {bench::Alone("a whole-market trade at 20 monitors that reject it", script)});
}
