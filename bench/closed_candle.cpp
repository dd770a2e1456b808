// A trade into a candle decoder whose throttle is closed: the clock is held, and nothing is sent.

#include "bench/support/market.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    tickhost_set_tick_count(1, 1000);
    bench::Market market(1);
    bench::Script script;
    script.Screens = {{"RSCAND11_R", "C1" + bench::Left("1ASII", 11) + "20261120   20261120E " +
                                         std::string(84, ' ') + bench::Head(0, 95)}};
    for (int i = 0; i < 4096; ++i) {
        TradePacket trade = market.Trade("1ASII");
        bench::PutLeft(trade.Time, "1001" + std::to_string(10 + i / 100));
        trade.Price = static_cast<int32_t>(1000 + market.Below(100) * 5);
        script.Feed.Add(trade);
    }
    script.nBatch = 8;
    return bench::Ask(argc, argv,
                      {bench::Compare("a trade into a candle decoder, throttle closed", 15, script)});
}
