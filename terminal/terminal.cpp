#include "terminal/terminal.h"

#include <unistd.h>

#include <cstring>

#include "module/wire/subscription_record.h"
#include "terminal/errors.h"

namespace tools {

namespace {

constexpr int kStockMaster = 0;
constexpr int kBrokerMaster = 3;

void SetMaster(int kind, const std::vector<MasterEntry>& entries) {
    std::vector<const char*> codes;
    std::vector<const char*> names;
    std::vector<const char*> marks;
    for (const MasterEntry& entry : entries) {
        codes.push_back(entry.Code.c_str());
        names.push_back(entry.Name.c_str());
        marks.push_back(entry.Mark.c_str());
    }
    tickhost_set_master(kind, static_cast<int>(entries.size()), codes.data(), names.data(), marks.data());
}

// Who the terminal's user is, as far as the module asks.
void SetServices(const TerminalOptions& options) {
    tickhost_set_text("UserGrade", "100");
    tickhost_set_text("MenuGrade", "100");
    tickhost_set_text("HashUserID", "replay");
    tickhost_set_text("UserID", options.User.c_str());
    tickhost_set_text("BaseUserID", "replay");
    tickhost_set_text("UserDir", options.UserDir.c_str());
    tickhost_set_text("DataDir", options.DataDir.c_str());
    if (!options.DriveC.empty()) {
        tickhost_set_text("DriveC", options.DriveC.c_str());
    }
    SetMaster(kStockMaster, options.Master.Stocks);
    SetMaster(kBrokerMaster, options.Master.Brokers);
}

}  // namespace

Terminal::Terminal(const TerminalOptions& options) {
    SetServices(options);
    m_Module = std::make_unique<Module>(options.ModulePath);
    std::string mutexName = "replay" + std::to_string(getpid());
    m_Module->SetMutexNameToDecoder(mutexName.data());
    m_hManager = tickhost_create_window(OnManagerMessage, this);
    tickhost_set_communication_manager(m_hManager);
    tickhost_set_function_sink(OnRequest, this);
}

void Terminal::Open(const ScreenKind& kind, std::string title, InitText init, std::size_t rows) {
    m_Screens.push_back(std::make_unique<OpenScreen>());
    OpenScreen& screen = *m_Screens.back();
    m_Contexts.push_back(std::make_unique<WindowContext>(WindowContext{this, &screen}));
    screen.Title = std::move(title);
    screen.TagSize = init.HasTag() ? sizeof(RequestTag) : 0;
    screen.View = kind.Open(init, rows);
    screen.Window = tickhost_create_window(OnScreenMessage, m_Contexts.back().get());
    const tickmux_handle handle = m_Module->RegistMap(screen.Window, kind.Map);
    if (handle == 0 || handle == static_cast<tickmux_handle>(-1)) {
        throw BadInput(std::string("the module does not open ") + kind.Map +
                       "; name a newer one with --module");
    }
    screen.Handle = handle;
    if (m_Module->InitMap(handle, init.Data()) == 0) {
        throw BadInput("the module refuses the Init text of " + screen.Title + "; check the fields' values");
    }
}

void Terminal::Close() {
    if (m_Module == nullptr) {
        return;
    }
    m_Module->StopView();
    for (const auto& screen : m_Screens) {
        if (screen->Handle != 0) {
            m_Module->UnregistMap(screen->Handle);
        }
        tickhost_destroy_window(screen->Window);
    }
    m_Module.reset();
    tickhost_set_function_sink(nullptr, nullptr);
    tickhost_set_communication_manager(nullptr);
    tickhost_destroy_window(m_hManager);
}

// Runs within the module's call, so that it only takes the buffer over.
intptr_t Terminal::OnScreenMessage(void* context, HWND /*window*/, uint32_t message, uintptr_t wParam,
                                   intptr_t /*lParam*/) noexcept {
    const auto& [owner, target] = *static_cast<WindowContext*>(context);
    char* data = nullptr;
    int length = 0;
    if (message == WM_TICKMUX_LIST) {
        ++target->ListChanges;
    } else if (message == WM_TICKMUX_VIEW &&
               tickhost_take_view_item(reinterpret_cast<void*>(wParam), &data, &length) != 0) {
        ++target->Messages;
        owner->m_Arrivals.push_back({target, std::unique_ptr<char, ViewDataDeleter>(data),
                                     target->TagSize + static_cast<std::size_t>(length)});
    }
    return 0;
}

intptr_t Terminal::OnManagerMessage(void* context, HWND /*window*/, uint32_t message, uintptr_t /*wParam*/,
                                    intptr_t lParam) noexcept {
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    if (message != WM_COPYDATA || data->dwData != TICKMUX_COPYDATA_SUBSCRIPTION ||
        data->cbData != sizeof(tagRTMTRSTCDINFO)) {
        return 0;
    }
    tagRTMTRSTCDINFO record;
    std::memcpy(&record, data->lpData, sizeof(record));
    SubscriptionCounts& counts = static_cast<Terminal*>(context)->m_Subscriptions;
    const int32_t operation = record.nOperation;
    ++(operation == kAddCode ? counts.Added : operation == kDeleteCode ? counts.Deleted : counts.Cancelled);
    return 1;
}

void Terminal::OnRequest(void* context, HWND /*window*/, const char* /*login*/, char /*type*/,
                         const char* name, const char* text, int length) noexcept {
    static_cast<Terminal*>(context)->m_Requests.push_back(
        {name, std::string(text, static_cast<std::size_t>(length))});
}

}  // namespace tools
