// What a packet costs as things grow: screens, rows of a board, rows of an order list, prices of the volume
// table, watched codes, monitors, items of a pass-through. Names end in the size.

#include <benchmark/benchmark.h>

#include "bench/support/monitor_terminal.h"
#include "bench/support/open_session.h"
#include "bench/support/orders.h"

namespace {

constexpr int kPackets = 1024;

// Nobody follows the packet's key.
bench::Script OtherKeys(unsigned size) {
    Market market(1);
    bench::Script script = bench::TickLists(size, size);
    for (int i = 0; i < 64; ++i) {
        script.Feed.push_back(market.NextTrade("1OTHER").Bytes());
    }
    script.nBatch = 8;
    return script;
}

// Packets come for a thousand keys in turn, and so do screens: of a hundred thousand each packet has a
// hundred.
bench::Script ThousandKeys(unsigned size) {
    constexpr unsigned kKeys = 1000;
    Market market(1);
    bench::Script script = bench::TickLists(size, kKeys);
    for (unsigned key = 0; key < kKeys; ++key) {
        script.Feed.push_back(market.NextTrade(StockOf(key)).Bytes());
    }
    script.nBatch = 8;
    return script;
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

void Register(bench::OpenSession& open, const std::string& what, bench::Script (*make)(unsigned size),
              const std::vector<unsigned>& sizes) {
    for (const unsigned size : sizes) {
        const std::string name = what + "/" + std::to_string(size);
        benchmark::RegisterBenchmark(name.c_str(), [&open, name, make, size](benchmark::State& state) {
            bench::Session<ModuleForm>& session = open.Of(name, [make, size] { return make(size); });
            session.Pass();
            for ([[maybe_unused]] auto _ : state) {
                session.Pass();
            }
            state.SetItemsProcessed(state.iterations() * session.Packets());
        });
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    bench::OpenSession open;
    Register(open, "screens of other keys", OtherKeys, {1, 10, 100, 1000, 10000, 100000});
    Register(open, "screens on a thousand keys", ThousandKeys, {1, 10, 100, 1000, 10000, 100000});
    Register(open, "rows of a board", BoardRows, {1, 10, 50, 100, 200});
    Register(open, "rows of an order list", OrderRows, {10, 100, 1000, 9999});
    Register(open, "prices of the volume table", Prices, {10, 100, 1000, 5000});
    Register(open, "watched codes", WatchedCodes, {10, 100, 1000, 10000});
    Register(open, "monitors of the whole market", Monitors, {1, 5, 20});
    Register(open, "items of a pass-through", PassItems, {1, 20, 200});
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
