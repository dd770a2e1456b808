// A book packet into the order book and out.

#include "bench/support/session.h"
#include "tests/support/market.h"

int main(int argc, char** argv) {
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSODER01_R", BookInquiry("1ASII")}};
    for (int i = 0; i < 512; ++i) {
        script.Feed.push_back(market.NextBook("1ASII").Bytes());
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("a book packet into the order book and out", {14, 3.5}, script)});
}
