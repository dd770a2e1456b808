// What a trade at a known price costs in the table of volume by price, against the number of its rows.
//
// Through the exported functions, on a screen without a window; batch ends are not part of it.

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "framework/tickmux.h"

namespace {

constexpr int kTrades = 1024;

void KnownPrice(benchmark::State& state) {
    const auto rows = static_cast<unsigned>(state.range(0));
    const tickmux_handle map = RegistMap(nullptr, "RSTRBK01_R");
    std::string inquiry = "V11ASII      " + std::string(8, ' ') + "   0  62" + std::string(16, ' ');
    if (InitMap(map, inquiry.data()) == 0) {
        state.SkipWithError("Init was refused");
        return;
    }
    TradePacket trade;
    FillBlank(trade);
    std::memcpy(&trade.Key, "1ASII      ", sizeof(trade.Key));
    trade.Volume = 1;
    trade.LotSize = 100;
    const auto packet = [&trade](unsigned price) {
        trade.Price = static_cast<int32_t>(price);
        return TradePacket::kType + std::string(reinterpret_cast<const char*>(&trade), sizeof(trade));
    };
    for (unsigned price = 1; price <= rows; ++price) {
        std::string first = packet(price * 5);
        PutRTMPacketToDecoder(first.data(), static_cast<int>(first.size()));
    }
    std::mt19937 random(1);
    std::vector<std::string> packets;
    packets.reserve(kTrades);
    for (int i = 0; i < kTrades; ++i) {
        packets.push_back(packet((1 + static_cast<unsigned>(random()) % rows) * 5));
    }
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& next : packets) {
            PutRTMPacketToDecoder(next.data(), static_cast<int>(next.size()));
        }
    }
    state.SetItemsProcessed(state.iterations() * kTrades);
    UnregistMap(map);
}

BENCHMARK(KnownPrice)->Arg(50)->Arg(500)->Arg(5000);

}  // namespace

BENCHMARK_MAIN();
