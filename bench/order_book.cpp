// A book packet into the order book and out.

#include "bench/support/market.h"
#include "bench/support/session.h"

int main(int argc, char** argv) {
    bench::Market market(1);
    bench::Script script;
    script.Screens = {{"RSODER01_R", "O1" + bench::Left("1ASII", 19) + bench::Head(0, 108)}};
    for (int i = 0; i < 512; ++i) {
        script.Feed.Add(market.NextBook("1ASII"));
    }
    return bench::Ask(argc, argv, {bench::Compare("a book packet into the order book and out", 20, script)});
}
