// What a trade costs in a candle decoder that sends nothing, against a trade into the tick list.
//
// Through the exported functions. The batch ends are not timed; the clock is held, so that the chart's
// throttle stays closed.

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>
#include <vector>

#include "host/tickhost.h"
#include "module/framework/tickmux.h"
#include "tests/support/inquiries.h"

namespace {

constexpr int kBatch = 256;

// A batch of trades that walk up and down, second by second.
std::vector<std::string> Trades() {
    std::vector<std::string> trades;
    for (int second = 0; second < kBatch; ++second) {
        Trade trade("1ASII");
        trade.Time("0" + std::to_string(90000 + second / 60 * 100 + second % 60));
        trade.Price(1000 + second * 7919 % 97 * 5).Volume(1 + second * 104729 % 5000);
        trades.push_back(trade.TotalVolume(100000 + second * 2500).Value(1005000).Bytes());
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
    std::vector<std::string> packets = Trades();
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

BENCHMARK_CAPTURE(OneTrade, tick_list, "RSTICK11_R", TickInquiry("1ASII").Dates({}))->UseManualTime();
BENCHMARK_CAPTURE(OneTrade, candle, "RSCAND11_R", CandleInquiry("1ASII", 'E'))->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
