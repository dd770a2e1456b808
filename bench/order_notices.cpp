// What an order notice costs against the length of the list: one that changes a row, one that brings or takes
// a row, one that withdraws a shown row; and what a million notices cost that wait for orders which never
// come.
//
// Through the exported functions. Only a withdrawal needs a window; the other screens have none, so that
// messages are made, and freed instead of sent.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "host/platform/platform.h"
#include "host/tickhost.h"
#include "module/framework/tickmux.h"
#include "tests/support/orders.h"

namespace {

constexpr int kNotices = 1024;

std::string Number(int number) {
    const std::string digits = std::to_string(number);
    return std::string(7 - digits.size(), '0') + digits;
}

// More than any notice fills, but one that fills all.
constexpr int64_t kOrdered = 999999999;  // in hundredths eleven digits

std::string FillNotice(int number, int serial, int64_t quantity = 1) {
    Notice fill = Filled(Number(number), quantity, std::to_string(1000 + serial % 50));
    return fill.Time(std::to_string(100000 + serial % 60)).Bytes();
}

std::string Inquiry(const std::string& map, int orders) {
    Rows rows;
    FilteredInquiry filtered = FilteredInquiry().Status('1');
    const std::string ordered = std::to_string(kOrdered);
    for (int order = 1; order <= orders; ++order) {
        rows.push_back(ExpectedRow(Number(order)).Ordered(ordered).Open(ordered));
        filtered.With(rows.back());
    }
    return map == "RSORDE22_R" ? std::string(filtered) : OrdersInquiry(rows);
}

tickmux_handle Open(const std::string& map, int rows, HWND window = nullptr) {
    tickhost_set_text("UserID", kUser);
    const tickmux_handle handle = RegistMap(window, map.c_str());
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

// The numbers of the list's orders, in random order.
std::vector<int> Shuffled(int rows) {
    std::vector<int> numbers(static_cast<std::size_t>(rows));
    std::iota(numbers.begin(), numbers.end(), 1);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
    return numbers;
}

// The same notices on a fresh list each time, each a batch.
void OnFreshList(benchmark::State& state, const char* map, HWND window, std::vector<std::string> packets) {
    const int rows = static_cast<int>(state.range(0));
    const tickmux_handle handle = Open(map, rows, window);
    std::string inquiry = Inquiry(map, rows);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        InitMap(handle, inquiry.data());
        state.ResumeTiming();
        for (std::string& packet : packets) {
            Put(packet);
            EndRTMUnpackToDecoder();
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(packets.size()));
    UnregistMap(handle);
}

// Rows come in at the top.
void Insertion(benchmark::State& state) {
    std::vector<std::string> packets;
    packets.reserve(kNotices);
    for (int i = 0; i < kNotices; ++i) {
        packets.push_back(Accepted(Number(100000 + i), 1).Bytes());
    }
    OnFreshList(state, "RSORDE21_R", nullptr, std::move(packets));
}

std::vector<std::string> WholeFills(int rows) {
    std::vector<std::string> packets;
    for (const int number : Shuffled(rows)) {
        packets.push_back(FillNotice(number, number, kOrdered));
    }
    packets.resize(std::min<std::size_t>(packets.size(), kNotices));
    return packets;
}

// Filled orders leave, from anywhere in the list.
void Removal(benchmark::State& state) {
    OnFreshList(state, "RSNOCH21_R", nullptr, WholeFills(static_cast<int>(state.range(0))));
}

intptr_t Fetch(void* /*context*/, HWND /*window*/, uint32_t message, uintptr_t wParam, intptr_t /*lParam*/) {
    char* data = nullptr;
    int length = 0;
    if (message == WM_TICKMUX_VIEW &&
        tickhost_take_view_item(reinterpret_cast<void*>(wParam), &data, &length) != 0) {
        tickhost_free_view_data(data);
    }
    return 0;
}

// Of filled orders the view is told their place among the others that it shows.
void Withdrawal(benchmark::State& state) {
    HWND window = tickhost_create_window(&Fetch, nullptr);
    OnFreshList(state, "RSORDE22_R", window, WholeFills(static_cast<int>(state.range(0))));
    tickhost_destroy_window(window);
}

// All rows change in one batch, in random order, and leave in list order.
void WholeListInABatch(benchmark::State& state) {
    const int rows = static_cast<int>(state.range(0));
    const tickmux_handle handle = Open("RSORDE21_R", rows);
    std::vector<std::string> packets;
    for (const int number : Shuffled(rows)) {
        packets.push_back(FillNotice(number, number));
    }
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& packet : packets) {
            Put(packet);
        }
        EndRTMUnpackToDecoder();
    }
    state.SetItemsProcessed(state.iterations() * rows);
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
BENCHMARK(Insertion)->Arg(100)->Arg(9999);
BENCHMARK(Removal)->Arg(100)->Arg(9999);
BENCHMARK(Withdrawal)->Arg(100)->Arg(9999);
BENCHMARK(WholeListInABatch)->Arg(100)->Arg(9999);
BENCHMARK(ParkAMillion)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
