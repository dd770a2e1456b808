// What an order notice costs against the length of the list, sends of rows aside; and what a million notices
// cost that wait for orders which never come.
//
// Through the exported functions, on a screen whose window has gone, so that nothing is sent.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "framework/tickmux.h"
#include "host/tickhost.h"
#include "layouts/Orders.h"

namespace {

constexpr int kNotices = 1024;

template <std::size_t N>
void Fill(char (&field)[N], const std::string& text) {
    FillBlank(field);
    std::memcpy(field, text.data(), std::min(text.size(), N));
}

std::string Number(int number) {
    const std::string digits = std::to_string(number);
    return std::string(7 - digits.size(), '0') + digits;
}

// A fill of one unit.
std::string FillNotice(int number, int serial) {
    OrderPacket notice;
    FillBlank(notice);
    Fill(notice.Time, std::to_string(100000 + serial % 60));
    Fill(notice.RecordKind, "01");
    notice.NoticeKind = '2';
    notice.OrderAction = '1';
    notice.OrderState = '1';
    notice.ResultFlag = '0';
    Fill(notice.OrderNo, Number(number));
    Fill(notice.Quantity, "100");
    Fill(notice.Price, std::to_string(1000 + serial % 50));
    return OrderPacket::kType + std::string(reinterpret_cast<const char*>(&notice), sizeof(notice));
}

std::string Rows(int rows) {
    std::string text;
    for (int i = 0; i < rows; ++i) {
        OrderRow row;
        FillBlank(row);
        Fill(row.OrderQty, "     1000000000");
        Fill(row.UnfilledQty, "     1000000000");
        Fill(row.Status, "Open");
        Fill(row.OrderNo, Number(i + 1));
        text.append(reinterpret_cast<const char*>(&row), sizeof(row));
    }
    return text;
}

std::string Head(int rows) {
    char head[9];
    std::snprintf(head, sizeof(head), "%4d 171", rows);
    return head + std::string(16, ' ');
}

// The field before the rows that each map's Init text has; all keys and filters are blank.
std::string Inquiry(const std::string& map, int rows) {
    const std::size_t fields = map == "RSORDE22_R" ? 65 : 7;
    std::string text = "O1" + std::string(fields, ' ');
    if (map == "RSNOCH21_R") {
        text[2 + 6] = '0';
    }
    return text + Head(rows) + Rows(rows);
}

tickmux_handle Open(const std::string& map, int rows) {
    tickhost_set_text("UserID", "");
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
