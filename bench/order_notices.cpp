// What an order notice costs against the length of the list, sends of rows aside; and what a million notices
// cost that wait for orders which never come.
//
// Through the exported functions, on a screen whose window has gone, so that nothing is sent.

#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "framework/tickmux.h"
#include "host/tickhost.h"
#include "tests/support/orders.h"

namespace {

constexpr int kNotices = 1024;

std::string Number(int number) {
    const std::string digits = std::to_string(number);
    return std::string(7 - digits.size(), '0') + digits;
}

// A fill of one unit.
std::string FillNotice(int number, int serial) {
    Notice fill = Filled(Number(number), 1, std::to_string(1000 + serial % 50));
    return fill.Time(std::to_string(100000 + serial % 60)).Bytes();
}

std::string Inquiry(const std::string& map, int orders) {
    Rows rows;
    FilteredInquiry filtered;
    for (int order = 1; order <= orders; ++order) {
        rows.push_back(ExpectedRow(Number(order)).Ordered("1000000000").Open("1000000000"));
        filtered.With(rows.back());
    }
    return map == "RSORDE22_R" ? std::string(filtered) : OrdersInquiry(rows);
}

tickmux_handle Open(const std::string& map, int rows) {
    tickhost_set_text("UserID", kUser);
    const tickmux_handle handle = RegistMap(nullptr, map.c_str());
    std::string inquiry = Inquiry(map, rows);
    return InitMap(handle, inquiry.data()) == 0 ? 0 : handle;
}

void Put(std::string& packet) {
    PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
}

void Notice(benchmark::State& state, const char* map) {
    const int rows = static_cast<int>(state.range(0));
    const tickmux_handle handle = Open(map, rows);
    if (handle == 0) {
        state.SkipWithError("Init was refused");
        return;
    }
    std::mt19937 random(1);
    std::vector<std::string> packets;
    packets.reserve(kNotices);
    for (int i = 0; i < kNotices; ++i) {
        packets.push_back(FillNotice(1 + static_cast<int>(random() % static_cast<unsigned>(rows)), i));
    }
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& packet : packets) {
            Put(packet);
        }
    }
    state.SetItemsProcessed(state.iterations() * kNotices);
    UnregistMap(handle);
}

int64_t ResidentBytes() {
    std::ifstream status("/proc/self/statm");
    int64_t pages = 0;
    status >> pages >> pages;
    return pages * 4096;
}

// A million fills of orders that are not in the list.
void ParkAMillion(benchmark::State& state) {
    constexpr int kParked = 1000000;
    std::string packet = FillNotice(1, 0);
    for ([[maybe_unused]] auto _ : state) {
        const tickmux_handle handle = Open("RSNOCH21_R", 1);
        const int64_t before = ResidentBytes();
        for (int i = 0; i < kParked; ++i) {
            const std::string number = Number(i % 900000 + 2);
            std::memcpy(packet.data() + 1 + offsetof(OrderPacket, OrderNo), number.data(), number.size());
            Put(packet);
        }
        state.counters["bytes_each"] = static_cast<double>(ResidentBytes() - before) / kParked;
        UnregistMap(handle);
    }
    state.SetItemsProcessed(state.iterations() * kParked);
}

BENCHMARK_CAPTURE(Notice, open_orders, "RSNOCH21_R")->Arg(100)->Arg(1000)->Arg(9999);
BENCHMARK_CAPTURE(Notice, order_list, "RSORDE21_R")->Arg(100)->Arg(1000)->Arg(9999);
BENCHMARK_CAPTURE(Notice, filtered_orders, "RSORDE22_R")->Arg(100)->Arg(1000)->Arg(9999);
BENCHMARK(ParkAMillion)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
