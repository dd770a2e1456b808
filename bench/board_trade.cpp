// A trade into an interest board of 200 stocks, one changed row out.

#include "bench/support/session.h"
#include "tests/support/market.h"

int main(int argc, char** argv) {
    constexpr unsigned kRows = 200;
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSITST01_R", InterestInquiry(StockCodes(kRows), "5000")}};
    for (int i = 0; i < 1024; ++i) {
        script.Feed.push_back(market.NextTrade(StockOf(market.Below(kRows))).Bytes());
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("a trade into a board of 200 stocks, one row out", {7, 3.2}, script)});
}
