// What a trade of the market costs an interest board, against the number of its rows.
//
// With `listed` 1 each trade is one of a listed stock, with 0 of another. Through the exported functions, on
// a screen without a window; batch ends are not part of it.

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "framework/tickmux.h"
#include "layouts/RSITST01.h"

namespace {

constexpr int kTrades = 4096;

std::string CodeOf(unsigned stock) {
    std::string code = "S" + std::to_string(1000 + stock);
    code.resize(sizeof(StockKey::Code), ' ');
    return code;
}

std::string Inquiry(unsigned rows) {
    InterestInit init;
    FillBlank(init);
    std::string count = std::to_string(rows);
    std::memcpy(init.Repeat.Count + sizeof(init.Repeat.Count) - count.size(), count.data(), count.size());
    std::memcpy(init.Repeat.Size, " 178", sizeof(init.Repeat.Size));
    std::string text = "B1" + std::string(reinterpret_cast<const char*>(&init), sizeof(init));
    for (unsigned stock = 0; stock < rows; ++stock) {
        InterestRow row;
        FillBlank(row);
        std::memcpy(row.Code, CodeOf(stock).data(), sizeof(row.Code));
        std::memcpy(row.BasePrice, "           1000", sizeof(row.BasePrice));
        text.append(reinterpret_cast<const char*>(&row), sizeof(row));
    }
    return text;
}

void MarketTrade(benchmark::State& state) {
    const auto rows = static_cast<unsigned>(state.range(0));
    const bool listed = state.range(1) != 0;
    const tickmux_handle map = RegistMap(nullptr, "RSITST01_R");
    std::string inquiry = Inquiry(rows);
    if (InitMap(map, inquiry.data()) == 0) {
        state.SkipWithError("Init was refused");
        return;
    }
    std::mt19937 random(1);
    std::vector<std::string> packets;
    packets.reserve(kTrades);
    for (int i = 0; i < kTrades; ++i) {
        TradePacket trade;
        FillBlank(trade);
        const auto pick = static_cast<unsigned>(random());
        const std::string key = "1" + CodeOf(listed ? pick % rows : 1000 + pick % 200);
        std::memcpy(&trade.Key, key.data(), sizeof(trade.Key));
        trade.Price = static_cast<int32_t>(900 + random() % 200);
        packets.push_back(TradePacket::kType +
                          std::string(reinterpret_cast<const char*>(&trade), sizeof(trade)));
    }
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& next : packets) {
            PutRTMPacketToDecoder(next.data(), static_cast<int>(next.size()));
        }
    }
    state.SetItemsProcessed(state.iterations() * kTrades);
    UnregistMap(map);
}

BENCHMARK(MarketTrade)
    ->ArgNames({"rows", "listed"})
    ->ArgsProduct({{1, 50, 200}, {0, 1}})
    ->Repetitions(5)
    ->ReportAggregatesOnly();

}  // namespace

BENCHMARK_MAIN();
