// A trade into the tick list, from the packet call to the freed view item.

#include "bench/support/market.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    bench::Market market(1);
    bench::Script script;
    script.Screens = {
        {"RSTICK11_R", "T1" + bench::Left("1ASII", 11) + std::string(86, ' ') + bench::Head(0, 38)}};
    for (int i = 0; i < 4096; ++i) {
        script.Feed.Add(market.Trade("1ASII"));
    }
    std::vector<bench::Question> questions = {
        bench::Compare("a trade into the tick list, batch of 1", 8, script)};
    script.nBatch = 8;
    questions.push_back(bench::Compare("a trade into the tick list, batch of 8", 11, script));
    return bench::Ask(argc, argv, questions);
}
