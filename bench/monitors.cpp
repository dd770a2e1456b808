// Packets a second of a whole-market feed against 1, 5 and 20 trade monitors whose filters pass 1 trade in
// 100.
//
// Through the exported functions, on screens without windows; a batch ends with each pass over the feed.

#include <benchmark/benchmark.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "framework/tickmux.h"
#include "host/tickhost.h"

namespace {

constexpr int kTrades = 4096;
constexpr unsigned kStocks = 900;

std::string CodeOf(unsigned stock) {
    return "S" + std::to_string(1000 + stock);
}

// The whole market, and trades of 100 units at least.
void SetUpTerminal(const std::filesystem::path& folder) {
    std::filesystem::create_directory(folder);
    std::ofstream(folder / "TradeMonEnv.ini") << "[TRADE_MONITOR]\nVOLUME=1\n[VOLUME]\nFROM=100\n";
    tickhost_set_text("UserDir", folder.c_str());
    std::vector<std::string> codes;
    codes.reserve(kStocks);
    for (unsigned stock = 0; stock < kStocks; ++stock) {
        codes.push_back(CodeOf(stock));
    }
    std::vector<const char*> texts;
    texts.reserve(kStocks);
    for (const std::string& code : codes) {
        texts.push_back(code.c_str());
    }
    tickhost_set_master(0, kStocks, texts.data(), texts.data(), texts.data());
    tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
}

std::vector<std::string> MakeFeed() {
    std::mt19937 random(1);
    std::vector<std::string> packets;
    packets.reserve(kTrades);
    for (int i = 0; i < kTrades; ++i) {
        CompactTradePacket trade;
        FillBlank(trade);
        const std::string key = "1" + CodeOf(static_cast<unsigned>(random()) % kStocks);
        std::memcpy(&trade.Key, key.data(), key.size());
        trade.Sign = static_cast<char>('0' + random() % 9);
        trade.Price = static_cast<int32_t>(900 + random() % 200);
        trade.Change = static_cast<int32_t>(random() % 50);
        trade.Volume = static_cast<int32_t>(1 + random() % 100);
        packets.push_back(CompactTradePacket::kType +
                          std::string(reinterpret_cast<const char*>(&trade), sizeof(trade)));
    }
    return packets;
}

void WholeMarket(benchmark::State& state) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "bench-monitors";
    SetUpTerminal(folder);
    std::vector<tickmux_handle> monitors;
    for (int64_t i = 0; i < state.range(0); ++i) {
        monitors.push_back(RegistMap(nullptr, "RSFLDN01_R"));
        char inquiry[] = "M1unread..";
        if (InitMap(monitors.back(), inquiry) == 0) {
            state.SkipWithError("Init was refused");
        }
    }
    std::vector<std::string> packets = MakeFeed();
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& packet : packets) {
            PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
        }
        EndRTMUnpackToDecoder();
    }
    state.SetItemsProcessed(state.iterations() * kTrades);
    for (const tickmux_handle monitor : monitors) {
        UnregistMap(monitor);
    }
    std::filesystem::remove_all(folder);
}

BENCHMARK(WholeMarket)->ArgName("monitors")->Arg(1)->Arg(5)->Arg(20);

}  // namespace

BENCHMARK_MAIN();
