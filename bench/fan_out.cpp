// A packet that none of 1,000 decoders wants: what each of them costs, their objects scattered over the heap.

#include "bench/support/session.h"
#include "tests/support/market.h"

int main(int argc, char** argv) {
    constexpr unsigned kDecoders = 1000;
    Market market(1);
    bench::Script script;
    for (unsigned stock = 0; stock < kDecoders; ++stock) {
        script.Screens.push_back({"RSTICK11_R", TickInquiry(StockOf(stock)).Dates({})});
    }
    for (int i = 0; i < 64; ++i) {
        script.Feed.push_back(market.NextTrade("1OTHER" + std::to_string(i)).Bytes());
    }
    script.nBatch = 0;
    bench::Question question =
        bench::Compare("fan-out to 1,000 decoders of other keys, per decoder", {5}, script);
    question.Items *= kDecoders;
    return bench::Ask(argc, argv, {question});
}
