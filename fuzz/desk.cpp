#include "fuzz/desk.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <utility>

#include "fuzz/fold.h"
namespace fuzz {

namespace {

// Where a packet's code stands, and which class it is of.
struct CodePlace {
    std::string_view Types;
    char Class;
    std::size_t Offset;
};
constexpr CodePlace kCodePlaces[] = {
    {"ABCD", kStockClass, 1}, {"R", kStockClass, 1 + offsetof(CompactTradePacket, Key)},
    {"EF", kIndexClass, 1},   {"M", kMarketClass, 1},
    {"N", kFundClass, 1},     {"@", kSpecialClass, 1}};

}  // namespace

Desk& Desk::Get() {
    static Desk desk;
    return desk;
}

Desk::Desk() {
    tickhost_set_communication_manager(tickhost_create_window(&TakeRequest, this));
    tickhost_set_function_sink(&TakeFunction, this);
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
    m_Codes.clear();
    m_OnMessage = nullptr;
    g_Checksum = 0;
}

void Desk::PassTime(uint32_t milliseconds) {
    m_nTicks += milliseconds;
    tickhost_set_tick_count(1, m_nTicks);
}

void Desk::Feed(std::string_view packet) {
    const std::unique_ptr<char[]> block(new char[packet.size()]);
    packet.copy(block.get(), packet.size());
    PutRTMPacketToDecoder(block.get(), static_cast<int>(packet.size()));
}

void Desk::Batch(const std::vector<std::string>& packets) const {
    for (const std::string& packet : packets) {
        Feed(packet);
        if (const std::string addressed = Addressed(packet); addressed != packet) {
            Feed(addressed);
        }
    }
    EndRTMUnpackToDecoder();
    tickhost_pump_messages();
}

void Desk::Interrupt() {
    if (const auto action = std::exchange(m_OnMessage, nullptr)) {
        action();
    }
}

std::string Desk::Addressed(std::string packet) const {
    for (const CodePlace& place : kCodePlaces) {
        const auto code = m_Codes.find(place.Class);
        if (place.Types.find(packet.front()) != std::string_view::npos && code != m_Codes.end()) {
            packet.replace(place.Offset, code->second.size(), code->second);
        }
    }
    return packet;
}

intptr_t Desk::TakeRequest(void* context, HWND /*window*/, uint32_t /*message*/, uintptr_t /*wParam*/,
                           intptr_t lParam) {
    auto& desk = *static_cast<Desk*>(context);
    const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    Fold({static_cast<const char*>(data.lpData), data.cbData});
    tagRTMTRSTCDINFO record;
    std::memcpy(&record, data.lpData, sizeof(record));
    if (record.nOperation == kAddCode) {
        const auto length = static_cast<std::size_t>(static_cast<int32_t>(record.nCodeLen));
        desk.m_Codes[record.chClass] = std::string(record.szCode, length);
    }
    desk.Interrupt();
    return 0;
}

void Desk::TakeFunction(void* context, HWND /*window*/, const char* login, char /*type*/, const char* name,
                        const char* text, int length) {
    Fold(login);
    Fold(name);
    Fold({text, static_cast<std::size_t>(length)});
    static_cast<Desk*>(context)->Interrupt();
}

Screen::Screen(const std::string& map)
    : m_hWnd(tickhost_create_window(&TakeMessage, this)),
      m_Handle(RegistMap(m_hWnd, map.c_str())),
      m_nTagBytes(map == "RRPASS01_R" ? 0 : sizeof(RequestTag)) {
    if (m_Handle == 0) {
        std::abort();
    }
}

Screen::~Screen() {
    UnregistMap(m_Handle);
    CloseWindow();
}

int Screen::Init(std::string_view text) const {
    const std::unique_ptr<char[]> block(new char[text.size() + 1]);
    block[text.copy(block.get(), text.size())] = '\0';
    return InitMap(m_Handle, block.get());
}

intptr_t Screen::TakeMessage(void* context, HWND /*window*/, uint32_t message, uintptr_t wParam,
                             intptr_t /*lParam*/) {
    auto& screen = *static_cast<Screen*>(context);
    Desk::Get().Interrupt();
    if (message == WM_TICKMUX_VIEW && screen.m_bFetching) {
        screen.Fetch(reinterpret_cast<void*>(wParam));
    }
    return 0;
}

void Screen::Fetch(void* queue) const {
    char* data = nullptr;
    int length = 0;
    while (tickhost_take_view_item(queue, &data, &length) != 0) {
        const std::string_view buffer(data, m_nTagBytes + static_cast<std::size_t>(length));
        Fold(buffer);
        if (m_Take) {
            m_Take(buffer);
        }
        tickhost_free_view_data(data);
    }
}

}  // namespace fuzz

// A small quarantine, which stays in the caches.
extern "C" const char* __asan_default_options() {
    return "quarantine_size_mb=8:malloc_context_size=10";
}
