// A trade into an interest board of 200 stocks, one changed row out.

#include "bench/support/market.h"
#include "bench/support/session.h"
#include "layouts/RSITST01.h"

namespace {

constexpr unsigned kRows = 200;

std::string Inquiry() {
    std::string text = "I1 01" + bench::Head(kRows, sizeof(InterestRow));
    for (unsigned stock = 0; stock < kRows; ++stock) {
        InterestRow row;
        FillBlank(row);
        bench::PutLeft(row.Code, bench::StockOf(stock).substr(1));
        bench::PutLeft(row.BasePrice, "           5000");
        text.append(reinterpret_cast<const char*>(&row), sizeof(row));
    }
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    bench::Market market(1);
    bench::Script script;
    script.Screens = {{"RSITST01_R", Inquiry()}};
    for (int i = 0; i < 1024; ++i) {
        script.Feed.Add(market.Trade(bench::StockOf(market.Below(kRows))));
    }
    return bench::Ask(argc, argv,
                      {bench::Compare("a trade into a board of 200 stocks, one row out", 12, script)});
}
