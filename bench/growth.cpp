// What a packet costs as things grow: screens, rows of a board, rows of an order list, prices of the volume
// table, watched codes, monitors, items of a pass-through. Names end in the size.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>

#include "bench/support/monitor_terminal.h"
#include "bench/support/orders.h"
#include "bench/support/session.h"

namespace {

constexpr int kPackets = 1024;

// Tick lists of up to a thousand stocks, in batches of eight.
bench::Script TickLists(unsigned size, const std::function<std::string(Market&)>& traded) {
    constexpr unsigned kStocks = 1000;
    Market market(1);
    bench::Script script;
    for (unsigned screen = 0; screen < size; ++screen) {
        script.Screens.push_back({"RSTICK11_R", TickInquiry(StockOf(screen % kStocks)).Dates({})});
    }
    for (int i = 0; i < 64; ++i) {
        script.Feed.push_back(market.NextTrade(traded(market)).Bytes());
    }
    script.nBatch = 8;
    return script;
}

bench::Script Screens(unsigned size) {
    return TickLists(size, [](Market& /*market*/) { return "1OTHER"; });
}

bench::Script FollowedScreens(unsigned size) {
    return TickLists(size, [size](Market& market) { return StockOf(market.Below(std::min(size, 1000U))); });
}

bench::Script BoardRows(unsigned size) {
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSITST01_R", InterestInquiry(StockCodes(size), "")}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.push_back(market.NextTrade(StockOf(market.Below(size))).Bytes());
    }
    return script;
}

bench::Script OrderRows(unsigned size) {
    Market market(1);
    bench::Script script;
    tickhost_set_text("UserID", kUser);
    script.Screens = {{"RSORDE21_R", OrdersInquiry(bench::OpenOrders(size))}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.push_back(bench::Fill(market, size));
    }
    return script;
}

bench::Script Prices(unsigned size) {
    Market market(1);
    bench::Script script;
    script.Screens = {{"RSTRBK01_R", PriceTableInquiry("1ASII")}};
    const auto at = [&market](int32_t price) {
        return market.NextTrade("1ASII").Price((price + 1) * 5).Bytes();
    };
    for (int32_t price = 0; price < static_cast<int32_t>(size); ++price) {
        script.Before.push_back(at(price));
    }
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.push_back(at(market.Number(size)));
    }
    script.nBatch = 0;
    return script;
}

// Half of the trades are of stocks that nobody watches.
bench::Script WatchedCodes(unsigned size) {
    Market market(1);
    bench::Script script;
    script.World = std::make_shared<bench::MonitorTerminal>(size, 0);
    script.Screens = {{"RSFLDN01_R", "M1unread.."}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.push_back(market.NextCompactTrade(StockOf(market.Below(int64_t{size} * 2))).Bytes());
    }
    script.nBatch = 64;
    return script;
}

// Filters let one trade in a hundred through: an eighth of all go up to nine million.
bench::Script Monitors(unsigned size) {
    constexpr unsigned kStocks = 900;
    Market market(1);
    bench::Script script;
    script.World = std::make_shared<bench::MonitorTerminal>(kStocks, 8'280'000);
    script.Screens.assign(size, {"RSFLDN01_R", "M1unread.."});
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.push_back(market.NextCompactTrade(StockOf(market.Below(kStocks))).Bytes());
    }
    script.nBatch = 64;
    return script;
}

// Packets of stocks that are not listed.
bench::Script PassItems(unsigned size) {
    Market market(1);
    bench::Script script;
    Rows items;
    for (unsigned stock = 0; stock < size; ++stock) {
        items.push_back(Item('1', StockOf(stock), "1"));
    }
    script.Screens = {{"RRPASS01_R", PassThroughInquiry(items)}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.push_back(market.NextTrade(StockOf(1000 + market.Below(1000))).Bytes());
    }
    script.nBatch = 64;
    return script;
}

void Register(const std::string& what, bench::Script (*make)(unsigned size),
              const std::vector<unsigned>& sizes) {
    for (const unsigned size : sizes) {
        const std::string name = what + "/" + std::to_string(size);
        benchmark::RegisterBenchmark(name.c_str(), [make, size](benchmark::State& state) {
            const bench::Script script = make(size);
            bench::Session<ModuleForm> session(script);
            session.Pass();
            for ([[maybe_unused]] auto _ : state) {
                session.Pass();
            }
            state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(script.Feed.size()));
        });
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Register("screens of other keys", Screens, {1, 10, 100, 1000, 10000, 100000});
    Register("screens of the traded stocks", FollowedScreens, {1, 10, 100, 1000, 10000, 100000});
    Register("rows of a board", BoardRows, {1, 10, 50, 100, 200});
    Register("rows of an order list", OrderRows, {10, 100, 1000, 9999});
    Register("prices of the volume table", Prices, {10, 100, 1000, 5000});
    Register("watched codes", WatchedCodes, {10, 100, 1000, 10000});
    Register("monitors of the whole market", Monitors, {1, 5, 20});
    Register("items of a pass-through", PassItems, {1, 20, 200});
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
