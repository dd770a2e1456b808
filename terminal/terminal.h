// A terminal in small: opens screens in the module, feeds packets, and collects what reaches the screens'
// windows and the communication manager.
#ifndef TICKMUX_TERMINAL_TERMINAL_H
#define TICKMUX_TERMINAL_TERMINAL_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/tickhost.h"
#include "terminal/capture.h"
#include "terminal/master_data.h"
#include "terminal/module.h"
#include "terminal/screens/screen.h"

namespace tools {

struct ViewDataDeleter {
    void operator()(char* data) const { tickhost_free_view_data(data); }
};

// One screen with its window and its map.
struct OpenScreen {
    std::string Title;  // map and key
    std::unique_ptr<Screen> View;
    std::size_t TagSize = 0;  // in front of each buffer, beside the length that comes with it
    HWND Window = nullptr;
    tickmux_handle Handle = 0;
    uint64_t Messages = 0;
    uint64_t Rows = 0;
    uint64_t ListChanges = 0;  // of which the module told, without data
};

// A buffer that came for a screen.
struct Arrival {
    OpenScreen* Target;
    std::unique_ptr<char, ViewDataDeleter> Data;
    std::size_t Size;  // with the request tag, if there is one

    std::string_view Buffer() const { return {Data.get(), Size}; }
};

struct SubscriptionCounts {
    uint64_t Added = 0;
    uint64_t Deleted = 0;
    uint64_t Cancelled = 0;
};

// What the module asked of the server side, beside its subscriptions.
struct FunctionRequest {
    std::string Name;
    std::string Text;
};

// Of the service that tells the module who is logged in.
inline constexpr std::size_t kUserIdWidth = 19;

struct TerminalOptions {
    std::string ModulePath;
    std::string User;     // up to kUserIdWidth
    std::string DriveC;   // the folder that stands for drive C; empty: the host's own choice
    std::string UserDir;  // where the module looks for the user's settings
    std::string DataDir;  // and for those of all users
    MasterData Master;
};

class Terminal {
public:
    explicit Terminal(const TerminalOptions& options);
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() { Close(); }

    // BadInput if the module refuses the map or the text.
    void Open(const ScreenKind& kind, std::string title, InitText init, std::size_t rows);

    void Put(const CaptureRecord& packet) { m_Module->PutRTMPacketToDecoder(packet.Bytes, packet.Length); }
    void EndBatch() {
        m_Module->EndRTMUnpackToDecoder();
        tickhost_pump_messages();
    }

    // The buffers that came since they were last cleared, in order.
    std::vector<Arrival>& Arrivals() { return m_Arrivals; }

    const std::vector<std::unique_ptr<OpenScreen>>& Screens() const { return m_Screens; }
    const SubscriptionCounts& Subscriptions() const { return m_Subscriptions; }
    const std::vector<FunctionRequest>& Requests() const { return m_Requests; }

    // Leaves as a terminal does at its end: stops the view, unregisters the maps, unloads the module.
    void Close();

private:
    struct WindowContext {
        Terminal* Owner;
        OpenScreen* Target;
    };

    static intptr_t OnScreenMessage(void* context, HWND window, uint32_t message, uintptr_t wParam,
                                    intptr_t lParam) noexcept;
    static intptr_t OnManagerMessage(void* context, HWND window, uint32_t message, uintptr_t wParam,
                                     intptr_t lParam) noexcept;

    static void OnRequest(void* context, HWND window, const char* login, char type, const char* name,
                          const char* text, int length) noexcept;

    std::unique_ptr<Module> m_Module;
    HWND m_hManager = nullptr;
    std::vector<std::unique_ptr<OpenScreen>> m_Screens;
    std::vector<std::unique_ptr<WindowContext>> m_Contexts;
    std::vector<Arrival> m_Arrivals;
    SubscriptionCounts m_Subscriptions;
    std::vector<FunctionRequest> m_Requests;
};

}  // namespace tools

#endif
