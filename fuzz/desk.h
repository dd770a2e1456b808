// The terminal around a target: the samples' world, screens, and a communication manager, all of which read
// whatever the module gives them.
#ifndef TICKMUX_FUZZ_DESK_H
#define TICKMUX_FUZZ_DESK_H

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "framework/tickmux.h"
#include "host/tickhost.h"
#include "tests/support/samples.h"

namespace fuzz {

class Desk {
public:
    static Desk& Get();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // Everything as it was before the first input.
    void Begin();
    void PassTime(uint32_t milliseconds);

    // From a block of the packet's exact size.
    static void Feed(std::string_view packet);
    // Each packet as it is, and once more for the code that the module last asked for; then the batch ends.
    void Batch(const std::vector<std::string>& packets) const;

    // Runs once, within the next message to a window or the manager.
    void OnNextMessage(std::function<void()> action) { m_OnMessage = std::move(action); }
    void Interrupt();

    SampleWorld& World() { return m_World; }

private:
    Desk();
    ~Desk() = default;

    std::string Addressed(std::string packet) const;

    static intptr_t TakeRequest(void* context, HWND window, uint32_t message, uintptr_t wParam,
                                intptr_t lParam);
    static void TakeFunction(void* context, HWND window, const char* login, char type, const char* name,
                             const char* text, int length);

    SampleWorld m_World;
    uint32_t m_nTicks = 0;
    std::map<char, std::string> m_Codes;  // by class, the last one that was asked for
    std::function<void()> m_OnMessage;
};

// A screen on a map. It goes as a terminal's does: first the map, then the window.
class Screen {
public:
    using TakeBuffer = std::function<void(std::string_view)>;

    explicit Screen(const std::string& map);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen();

    // From a block of the text's exact size, with its end mark.
    int Init(std::string_view text) const;
    void Stop() const { StopMap(m_Handle); }
    void Release() const { ReleaseMap(m_Handle); }
    void CloseWindow() const { tickhost_destroy_window(m_hWnd); }

    // Whether messages have their buffers fetched at once.
    void SetFetching(bool on) { m_bFetching = on; }
    // Gets each buffer, whole.
    void OnBuffer(TakeBuffer take) { m_Take = std::move(take); }

private:
    static intptr_t TakeMessage(void* context, HWND window, uint32_t message, uintptr_t wParam,
                                intptr_t lParam);
    void Fetch(void* queue) const;

    HWND m_hWnd;
    tickmux_handle m_Handle;
    std::size_t m_nTagBytes;  // none where packets pass through
    bool m_bFetching = true;
    TakeBuffer m_Take;
};

}  // namespace fuzz

#endif
