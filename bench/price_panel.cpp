// A trade into the current-price panel, with all its fields, and out.

#include "bench/support/market.h"
#include "bench/support/session.h"
#include "layouts/RSTRDE01.h"

int main(int argc, char** argv) {
    bench::Market market(1);
    bench::Script script;
    const std::string fields(static_cast<std::size_t>(WidthOf(kStockPanel)), ' ');
    script.Screens = {{"RSTRDE01_R", "P1" + bench::Left("1ASII", 11) + "000055" + fields}};
    for (int i = 0; i < 1024; ++i) {
        script.Feed.Add(market.Trade("1ASII"));
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("a trade into the current-price panel and out", 12, script)});
}
