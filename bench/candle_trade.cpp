// What a trade costs in a candle decoder that sends nothing, against a trade into the tick list.
//
// Through the exported functions. The batch ends are not timed; the clock is held, so that the chart's
// throttle stays closed.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "framework/tickmux.h"
#include "host/tickhost.h"

namespace {

constexpr int kBatch = 256;

std::string TickInquiry() {
    return "T11ASII      " + std::string(86, ' ') + "   0  38" + std::string(16, ' ');
}

std::string CandleInquiry() {
    return "C11ASII      20261120   20261120E " + std::string(84, ' ') + "   0  66" + std::string(16, ' ');
}

// A batch of trades that walk up and down, second by second.
std::vector<TradePacket> Trades() {
    std::vector<TradePacket> trades(kBatch);
    int second = 0;
    for (TradePacket& trade : trades) {
        FillBlank(trade);
        std::memcpy(&trade.Key, "1ASII      ", sizeof(trade.Key));
        const std::string time = std::to_string(90000 + second / 60 * 100 + second % 60);
        std::memcpy(trade.Time, ("0" + time).c_str(), sizeof(trade.Time));
        trade.Price = 1000 + second * 7919 % 97 * 5;
        trade.Volume = 1 + second * 104729 % 5000;
        trade.TotalVolume = 100000 + second * 2500;
        trade.Value = 1005000;
        ++second;
    }
    return trades;
}

void OneTrade(benchmark::State& state, const char* mapName, std::string inquiry) {
    tickhost_set_tick_count(1, 0);
    HWND window = tickhost_create_window(nullptr, nullptr);
    const tickmux_handle map = RegistMap(window, mapName);
    if (InitMap(map, inquiry.data()) == 0) {
        state.SkipWithError("Init was refused");
    }
    std::vector<std::string> packets;
    for (const TradePacket& trade : Trades()) {
        packets.push_back(TradePacket::kType +
                          std::string(reinterpret_cast<const char*>(&trade), sizeof(trade)));
    }
    for ([[maybe_unused]] auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        for (std::string& packet : packets) {
            PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
        }
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        EndRTMUnpackToDecoder();
        StopMap(map);  // empties the queue
        InitMap(map, inquiry.data());
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
    UnregistMap(map);
    tickhost_reset();
}

BENCHMARK_CAPTURE(OneTrade, tick_list, "RSTICK11_R", TickInquiry())->UseManualTime();
BENCHMARK_CAPTURE(OneTrade, candle, "RSCAND11_R", CandleInquiry())->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
