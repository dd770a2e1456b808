// A trade into the current-price panel, with all its fields, and out.

#include "bench/support/session.h"
#include "module/layouts/RSTRDE01.h"
#include "tests/support/market.h"

int main(int argc, char** argv) {
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSTRDE01_R", PanelInquiry("1ASII", "000055", WidthOf(kStockPanel))}};
    for (int i = 0; i < 1024; ++i) {
        script.Feed.push_back(market.NextTrade("1ASII").Bytes());
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("a trade into the current-price panel and out", {6, 1.6}, script)});
}
