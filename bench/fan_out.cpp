// A packet that none of 1,000 decoders wants: what each of them costs, their objects scattered over the heap.

#include "bench/support/market.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    constexpr unsigned kDecoders = 1000;
    bench::Market market(1);
    bench::Script script;
    for (unsigned stock = 0; stock < kDecoders; ++stock) {
        script.Screens.push_back({"RSTICK11_R", "T1" + bench::Left(bench::StockOf(stock), 11) +
                                                    std::string(86, ' ') + bench::Head(0, 38)});
    }
    for (int i = 0; i < 64; ++i) {
        script.Feed.Add(market.Trade("1OTHER" + std::to_string(i)));
    }
    script.nBatch = 0;
    bench::Question question =
        bench::Compare("fan-out to 1,000 decoders of other keys, per decoder", 5, script);
    question.Items *= kDecoders;
    return bench::Ask(argc, argv, {question});
}
