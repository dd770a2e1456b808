// A trade into a candle decoder whose throttle is closed: the clock is held, and nothing is sent.

#include "bench/support/session.h"
#include "tests/support/market.h"

int main(int argc, char** argv) {
    tickhost_set_tick_count(1, 1000);
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSCAND11_R", CandleInquiry("1ASII", 'E')}};
    for (int i = 0; i < 4096; ++i) {
        Trade trade = market.NextTrade("1ASII");
        trade.Time("1001" + std::to_string(10 + i / 100)).Price(1000 + market.Number(100) * 5);
        script.Feed.push_back(trade.Bytes());
    }
    script.nBatch = 8;
    return bench::Ask(argc, argv, {bench::Alone("a trade into a candle decoder, throttle closed", script)});
}
