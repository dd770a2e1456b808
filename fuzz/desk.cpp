#include "fuzz/desk.h"

#include <cstddef>
#include <filesystem>

#include "fuzz/input.h"

namespace fuzz {

namespace {

// Where a packet's code stands, how long it is, and of which class.
struct CodePlace {
    std::string_view Types;
    char Class;
    std::size_t Offset;
    std::size_t Size;
};
constexpr CodePlace kCodePlaces[] = {
    {"ABCD", kStockClass, 1, 11}, {"R", kStockClass, 1 + offsetof(CompactTradePacket, Key), 11},
    {"EF", kIndexClass, 1, 4},    {"M", kMarketClass, 1, 5},
    {"N", kFundClass, 1, 11},     {"@", kSpecialClass, 1, 11}};

}  // namespace

Desk& Desk::Get() {
    static Desk desk;
    return desk;
}

Desk::Desk() {
    // A message that is not as it must be ends the run.
    GTEST_FLAG_SET(break_on_failure, true);
    OnCall = [this] {
        if (const auto action = std::exchange(m_OnMessage, nullptr)) {
            action();
        }
    };
    constexpr tickhost_time kNow{2026, 11, 20, 9, 0, 0, 0};
    tickhost_set_local_time(&kNow);
    tickhost_set_system_time(&kNow);
    // The order log is written, and goes nowhere.
    std::filesystem::create_directory(m_World.Folder().Path("logs"));
    std::filesystem::create_symlink("/dev/null", m_World.Folder().Path("logs/RSNOCH21.txt"));
}

void Desk::Begin() {
    m_nTicks = 0;
    PassTime(0);
    Events();
    Subscribed.clear();
    m_OnMessage = nullptr;
    g_Checksum = 0;
}

void Desk::PassTime(uint32_t milliseconds) {
    m_nTicks += milliseconds;
    tickhost_set_tick_count(1, m_nTicks);
}

void Desk::Batch(const std::vector<std::string>& packets) {
    for (const std::string& packet : packets) {
        Feed(packet);
        if (const std::string addressed = Addressed(packet); addressed != packet) {
            Feed(addressed);
        }
    }
    EndBatch();
    tickhost_pump_messages();
}

std::string Desk::Addressed(std::string packet) const {
    for (const CodePlace& place : kCodePlaces) {
        const auto asked = Subscribed.lower_bound(std::string(1, place.Class));
        if (place.Types.find(packet.front()) != std::string_view::npos && asked != Subscribed.end() &&
            asked->first.front() == place.Class) {
            packet.replace(place.Offset, place.Size, asked->first, 1, place.Size);
        }
    }
    return packet;
}

}  // namespace fuzz

// A small quarantine, which stays in the caches.
extern "C" const char* __asan_default_options() {
    return "quarantine_size_mb=8:malloc_context_size=10";
}
