// A trade into the tick list, from the packet call to the freed view item.

#include "bench/support/session.h"
#include "tests/support/market.h"

int main(int argc, char** argv) {
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSTICK11_R", TickInquiry("1ASII").Dates({})}};
    for (int i = 0; i < 4096; ++i) {
        script.Feed.push_back(market.NextTrade("1ASII").Bytes());
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("a trade into the tick list, batch of 1", {4.5, 1.3}, script)});
}
