#include "tests/reliability/bare_host.h"

#include "module/wire/subscription_record.h"
#include "tests/reliability/allocations.h"

namespace {

void ForEachFlag(uint32_t flags, const std::function<void(uint32_t)>& visit) {
    for (uint32_t flag = 1; flag != 0; flag <<= 1U) {
        if ((flags & flag) != 0) {
            visit(flag);
        }
    }
}

}  // namespace

BareHost::BareHost() {
    tickhost_set_communication_manager(tickhost_create_window(&Procedure, this));
    tickhost_set_tick_count(1, 0);
}

BareHost::~BareHost() {
    tickhost_reset();
}

intptr_t BareHost::Procedure(void* context, HWND /*window*/, uint32_t /*message*/, uintptr_t /*wParam*/,
                             intptr_t lParam) {
    const heap::Spared spared;
    auto& host = *static_cast<BareHost*>(context);
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    const auto& record = *static_cast<const tagRTMTRSTCDINFO*>(data->lpData);
    if (record.nOperation == kAddCode || record.nOperation == kDeleteCode) {
        ++host.nRequests;
        ForEachFlag(record.dwFlags, [&](uint32_t flag) {
            const std::string what =
                record.chClass + std::string(record.szCode, sizeof(record.szCode)) + std::to_string(flag);
            if ((host.Open[what] += record.nOperation == kAddCode ? 1 : -1) == 0) {
                host.Open.erase(what);
            }
        });
    }
    host.OnCall();
    return 0;
}

BareScreen::BareScreen(BareHost& host, const Sample& sample)
    : m_Host(host), m_Sample(sample), m_hWnd(tickhost_create_window(&Procedure, this)) {}

BareScreen::~BareScreen() {
    tickhost_destroy_window(m_hWnd);
}

int BareScreen::Regist() {
    Handle = RegistMap(m_hWnd, m_Sample.Map.c_str());
    return Handle == 0 ? 0 : 1;
}

// The module does not write into what it is given.
int BareScreen::Init(const std::string& text) const {
    return InitMap(Handle, const_cast<char*>(text.c_str()));
}

void BareScreen::Feed() const {
    for (const std::string& packet : m_Sample.Packets) {
        PutRTMPacketToDecoder(const_cast<char*>(packet.data()), static_cast<int>(packet.size()));
    }
}

// The clock goes on, so that no chart holds its row back.
void BareScreen::EndBatch() {
    static uint32_t s_nNow = 0;
    tickhost_set_tick_count(1, s_nNow += 1000);
    EndRTMUnpackToDecoder();
}

int BareScreen::Unregist() {
    const tickmux_handle handle = Handle;
    Handle = 0;
    return UnregistMap(handle);
}

intptr_t BareScreen::Procedure(void* context, HWND /*window*/, uint32_t message, uintptr_t wParam,
                               intptr_t /*lParam*/) {
    const heap::Spared spared;
    auto& screen = *static_cast<BareScreen*>(context);
    screen.m_Host.OnCall();
    char* data = nullptr;
    int length = 0;
    if (message == WM_TICKMUX_VIEW && screen.Fetches &&
        tickhost_take_view_item(reinterpret_cast<void*>(wParam), &data, &length) != 0) {
        const int tag = screen.m_Sample.Map == "RRPASS01_R" ? 0 : 2;
        if (screen.Keeps) {
            screen.Received.emplace_back(data, static_cast<std::size_t>(length + tag));
        }
        tickhost_free_view_data(data);
    }
    return 0;
}
