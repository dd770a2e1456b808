// What a packet costs as things grow: screens, rows of a board, rows of an order list, prices of the volume
// table, watched codes, monitors, items of a pass-through. Names end in the size.

#include <benchmark/benchmark.h>

#include "bench/support/market.h"
#include "bench/support/monitor_terminal.h"
#include "bench/support/orders.h"
#include "bench/support/session.h"
#include "layouts/RSITST01.h"

namespace {

constexpr int kPackets = 1024;

bench::Script Screens(unsigned size) {
    bench::Market market(1);
    bench::Script script;
    for (unsigned stock = 0; stock < size; ++stock) {
        script.Screens.push_back({"RSTICK11_R", "T1" + bench::Left(bench::StockOf(stock), 11) +
                                                    std::string(86, ' ') + bench::Head(0, 38)});
    }
    for (int i = 0; i < 64; ++i) {
        script.Feed.Add(market.Trade("1OTHER"));
    }
    script.nBatch = 8;
    return script;
}

bench::Script BoardRows(unsigned size) {
    bench::Market market(1);
    bench::Script script;
    std::string init = "I1 01" + bench::Head(size, sizeof(InterestRow));
    for (unsigned stock = 0; stock < size; ++stock) {
        InterestRow row;
        FillBlank(row);
        bench::PutLeft(row.Code, bench::StockOf(stock).substr(1));
        init.append(reinterpret_cast<const char*>(&row), sizeof(row));
    }
    script.Screens = {{"RSITST01_R", init}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.Add(market.Trade(bench::StockOf(market.Below(size))));
    }
    return script;
}

bench::Script OrderRows(unsigned size) {
    bench::Market market(1);
    bench::Script script;
    script.Screens = {{"RSORDE21_R", bench::OrderInquiry(size)}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.Add(bench::Fill(market, size));
    }
    return script;
}

bench::Script Prices(unsigned size) {
    bench::Market market(1);
    bench::Script script;
    script.Screens = {
        {"RSTRBK01_R", "V1" + bench::Left("1ASII", 11) + std::string(8, ' ') + bench::Head(0, 62)}};
    const auto at = [&market](unsigned price) {
        TradePacket trade = market.Trade("1ASII");
        trade.Price = static_cast<int32_t>(price + 1) * 5;
        return trade;
    };
    for (unsigned price = 0; price < size; ++price) {
        script.Before.Add(at(price));
    }
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.Add(at(market.Below(size)));
    }
    script.nBatch = 0;
    return script;
}

// Half of the trades are of stocks that nobody watches.
bench::Script WatchedCodes(unsigned size) {
    bench::Market market(1);
    bench::Script script;
    script.World = std::make_shared<bench::MonitorTerminal>(size, 0);
    script.Screens = {{"RSFLDN01_R", "M1unread.."}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.Add(market.CompactTrade(bench::StockOf(market.Below(size * 2))));
    }
    script.nBatch = 64;
    return script;
}

// Filters let one trade in a hundred through: an eighth of all go up to nine million.
bench::Script Monitors(unsigned size) {
    constexpr unsigned kStocks = 900;
    bench::Market market(1);
    bench::Script script;
    script.World = std::make_shared<bench::MonitorTerminal>(kStocks, 8'280'000);
    script.Screens.assign(size, {"RSFLDN01_R", "M1unread.."});
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.Add(market.CompactTrade(bench::StockOf(market.Below(kStocks))));
    }
    script.nBatch = 64;
    return script;
}

// Packets of stocks that are not listed.
bench::Script PassItems(unsigned size) {
    bench::Market market(1);
    bench::Script script;
    std::string init = bench::Right(std::to_string(size), 4);
    for (unsigned stock = 0; stock < size; ++stock) {
        init += "1" + bench::Left(bench::StockOf(stock), 11) + bench::Left("1", 8);
    }
    script.Screens = {{"RRPASS01_R", init}};
    for (int i = 0; i < kPackets; ++i) {
        script.Feed.Add(market.Trade(bench::StockOf(1000 + market.Below(1000))));
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
            bench::Session<bench::ModuleForm> session(script);
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
    Register("screens of other keys", Screens, {1, 10, 100, 1000, 10000});
    Register("rows of a board", BoardRows, {1, 10, 50, 100, 200});
    Register("rows of an order list", OrderRows, {10, 100, 1000, 9999});
    Register("prices of the volume table", Prices, {10, 100, 1000, 5000});
    Register("watched codes", WatchedCodes, {10, 100, 1000, 10000});
    Register("monitors of the whole market", Monitors, {1, 5, 20});
    Register("items of a pass-through", PassItems, {1, 20, 200});
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
