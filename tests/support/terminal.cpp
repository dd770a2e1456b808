#include "tests/support/terminal.h"

#include <cstring>
#include <sstream>

namespace {

std::string TellRecord(const tagRTMTRSTCDINFO& record) {
    if (record.nOperation == kCancelAll) {
        CancelRecord cancel;
        std::memcpy(&cancel, &record, sizeof(cancel));
        return "cancel [" + Text(cancel.HashUserID) + "]";
    }
    std::ostringstream text;
    text << (record.nOperation == kAddCode ? "add " : "delete ") << record.chClass << " ["
         << Text(record.szCode) << "] " << record.nCodeLen << " " << std::hex << record.dwFlags;
    return text.str();
}

}  // namespace

std::string Asked(const std::string& operation, char chClass, const std::string& code,
                  const std::string& flags) {
    const std::string length = chClass == 'A' ? "4 " : chClass == 'M' ? "5 " : "11 ";
    return operation + " " + chClass + " [" + Left(code, 11) + "] " + length + flags;
}

Screen::Screen(Terminal& terminal, std::size_t tagBytes)
    : m_Terminal(terminal), m_hWnd(WindowOf(*this)), m_nTagBytes(tagBytes) {}

Screen::~Screen() {
    Unregister();
    CloseWindow();
}

bool Screen::Regist(const std::string& mapName) {
    m_Handle = RegistMap(m_hWnd, mapName.c_str());
    return m_Handle != 0;
}

void Screen::Unregister() {
    if (m_Handle != 0) {
        UnregistMap(m_Handle);
        m_Handle = 0;
    }
}

// The text lies in a block of its exact size, so that a read beyond its end shows.
int Screen::Init(const std::string& text) {
    const std::unique_ptr<char[]> block(new char[text.size() + 1]);
    std::memcpy(block.get(), text.c_str(), text.size() + 1);
    return InitMap(m_Handle, block.get());
}

std::string Screen::Next() {
    if (m_Buffers.empty()) {
        ADD_FAILURE() << "the screen has received nothing more";
        return {};
    }
    std::string buffer = m_Buffers.front();
    m_Buffers.pop_front();
    return buffer;
}

bool Screen::Fetch() {
    return ::Fetch(m_pQueue, m_nTagBytes, m_Take);
}

void Screen::OnMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) {
    EXPECT_EQ(lParam, 0);
    const bool list = message == WM_TICKMUX_LIST;
    EXPECT_EQ(message, static_cast<uint32_t>(list ? WM_TICKMUX_LIST : WM_TICKMUX_VIEW));
    EXPECT_TRUE(!list || wParam == 0);
    m_Terminal.Happened(list ? "list" : "view");
    m_Terminal.OnCall();
    m_pQueue = list ? m_pQueue : wParam;
    std::exchange(m_OnMessage, [] {})();
    if (!list && m_bFetching) {
        Fetch();
    }
}

Terminal::Terminal() : m_hManager(WindowOf(*this)) {
    tickhost_set_communication_manager(m_hManager);
    tickhost_set_function_sink(
        [](void* context, HWND, const char* /*loginText*/, char type, const char* name, const char* text,
           int length) {
            auto& terminal = *static_cast<Terminal*>(context);
            terminal.Happened(std::string("function ") + type + " " + name + " [" +
                              std::string(text, static_cast<std::size_t>(length)) + "]");
            terminal.OnCall();
        },
        this);
}

Terminal::~Terminal() {
    tickhost_reset();
}

std::unique_ptr<Screen> Terminal::Open(const std::string& mapName) {
    auto screen = std::make_unique<Screen>(*this, mapName);
    EXPECT_NE(screen->Handle(), 0U) << mapName;
    return screen;
}

std::unique_ptr<Screen> Terminal::Open(const std::string& mapName, const std::string& init) {
    auto screen = Open(mapName);
    EXPECT_EQ(screen->Init(init), 1) << mapName;
    return screen;
}

int Terminal::Feed(const std::string& packet) {
    const std::unique_ptr<char[]> block(new char[packet.size()]);
    std::memcpy(block.get(), packet.data(), packet.size());
    return PutRTMPacketToDecoder(block.get(), static_cast<int>(packet.size()));
}

Events Terminal::Events() {
    return std::exchange(m_Events, {});
}

void Terminal::OnMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) {
    EXPECT_EQ(message, static_cast<uint32_t>(WM_COPYDATA));
    EXPECT_EQ(wParam, 0U);
    const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    EXPECT_EQ(data.dwData, static_cast<uintptr_t>(TICKMUX_COPYDATA_SUBSCRIPTION));
    EXPECT_EQ(data.cbData, sizeof(tagRTMTRSTCDINFO));
    const auto& record = *static_cast<const tagRTMTRSTCDINFO*>(data.lpData);
    Happened(TellRecord(record));
    for (uint32_t flag = 1; record.nOperation != kCancelAll && flag != 0; flag <<= 1U) {
        if ((record.dwFlags & flag) != 0) {
            const std::string what = record.chClass + Text(record.szCode) + std::to_string(flag);
            if ((Subscribed[what] += record.nOperation == kAddCode ? 1 : -1) == 0) {
                Subscribed.erase(what);
            }
        }
    }
    OnCall();
    std::exchange(m_OnRequest, [] {})();
}
