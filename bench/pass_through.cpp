// What a packet of no listed key costs a pass-through screen, against the number of its items.
//
// Through the exported functions, on a screen without a window.

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "framework/tickmux.h"
#include "layouts/SubscriptionItem.h"

namespace {

constexpr int kPackets = 4096;

// Four digits.
std::string CodeOf(unsigned stock) {
    std::string code = "1S" + std::to_string(1000 + stock);
    code.resize(sizeof(StockKey), ' ');
    return code;
}

void UnlistedTrade(benchmark::State& state) {
    const auto items = static_cast<unsigned>(state.range(0));
    const tickmux_handle map = RegistMap(nullptr, "RRPASS01_R");
    const std::string count = std::to_string(items);
    std::string inquiry = std::string(4 - count.size(), ' ') + count;
    for (unsigned stock = 0; stock < items; ++stock) {
        inquiry += "1" + CodeOf(stock) + "1       ";
    }
    if (InitMap(map, inquiry.data()) == 0) {
        state.SkipWithError("Init was refused");
        return;
    }
    std::mt19937 random(1);
    std::vector<std::string> packets;
    packets.reserve(kPackets);
    for (int i = 0; i < kPackets; ++i) {
        TradePacket trade;
        FillBlank(trade);
        const std::string key = CodeOf(1000 + static_cast<unsigned>(random()) % 1000);
        std::memcpy(&trade.Key, key.data(), sizeof(trade.Key));
        packets.push_back(TradePacket::kType +
                          std::string(reinterpret_cast<const char*>(&trade), sizeof(trade)));
    }
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& packet : packets) {
            PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
        }
    }
    state.SetItemsProcessed(state.iterations() * kPackets);
    UnregistMap(map);
}

BENCHMARK(UnlistedTrade)->ArgName("items")->Arg(1)->Arg(20)->Arg(200);

}  // namespace

BENCHMARK_MAIN();
