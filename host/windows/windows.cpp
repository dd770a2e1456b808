// Windows made through tickhost.h: message-only windows of the system.
//
// What the system sends on its own, at creation and at the end, does not reach a window's procedure.
#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "host/platform/windows.h"

namespace {

constexpr char kClassName[] = "tickhost";

// Messages that no host can send by chance: the window is to be destroyed by its owner, the pump has come to
// what was queued behind its beginning.
const UINT kEnd = RegisterWindowMessageA("tickhost.end");
const UINT kMarker = RegisterWindowMessageA("tickhost.marker");

struct Window {
    WindowProcedure Procedure;  // null: every message is answered with 0
    void* Context;
};

// All that are there, so that they can be ended.
struct World {
    std::mutex Lock;
    std::vector<HWND> Windows;
};

World& TheWorld() {
    static auto* const world = new World;  // outlives every static object that may still ask
    return *world;
}

// Calls of procedures on this thread: how deep they are nested, and how many began at the pump.
thread_local int t_nDepth = 0;
thread_local int t_nPumped = 0;

void End(HWND window) {
    const std::unique_ptr<Window> record(
        reinterpret_cast<Window*>(SetWindowLongPtrA(window, GWLP_USERDATA, 0)));
    {
        World& world = TheWorld();
        const std::lock_guard hold(world.Lock);
        std::erase(world.Windows, window);
    }
    DestroyWindow(window);
}

LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto* const record = reinterpret_cast<const Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (record == nullptr) {
        return DefWindowProcA(window, message, first, second);
    }
    if (message == kEnd) {
        End(window);
        return 0;
    }
    if (record->Procedure == nullptr) {
        return 0;
    }
    t_nPumped += t_nDepth == 0 ? 1 : 0;
    ++t_nDepth;
    const LRESULT result = record->Procedure(record->Context, window, message, first, second);
    --t_nDepth;
    return result;
}

bool HasClass() {
    static const ATOM known = [] {
        WNDCLASSEXA description{};
        description.cbSize = sizeof(description);
        description.lpfnWndProc = &Receive;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = kClassName;
        return RegisterClassExA(&description);
    }();
    return known != 0;
}

}  // namespace

HWND MakeWindow(WindowProcedure procedure, void* context) {
    if (!HasClass()) {
        return nullptr;
    }
    HWND window = CreateWindowExA(0, kClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  GetModuleHandleA(nullptr), nullptr);
    if (window == nullptr) {
        return nullptr;
    }
    try {
        auto record = std::make_unique<Window>(Window{procedure, context});
        World& world = TheWorld();
        const std::lock_guard hold(world.Lock);
        world.Windows.push_back(window);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(record.release()));
        return window;
    } catch (const std::exception&) {
        DestroyWindow(window);
        return nullptr;
    }
}

// A window is destroyed by its own thread, which has to serve its messages meanwhile.
void EndWindow(HWND window) {
    if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) {
        End(window);
    } else {
        SendMessageA(window, kEnd, 0, 0);
    }
}

void EndAllWindows() {
    const auto last = [] {
        World& world = TheWorld();
        const std::lock_guard hold(world.Lock);
        // Those of a thread that ended went with it.
        std::erase_if(world.Windows, [](HWND window) { return IsWindow(window) == FALSE; });
        return world.Windows.empty() ? nullptr : world.Windows.back();
    };
    while (HWND window = last()) {
        EndWindow(window);
    }
}

// Not what is queued from now on: a procedure that posts to itself would keep this from ever coming back.
int PumpMessages() {
    t_nPumped = 0;
    if (PostThreadMessageA(GetCurrentThreadId(), kMarker, 0, 0) == FALSE) {
        return 0;
    }
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.hwnd == nullptr && message.message == kMarker) {
            break;
        }
        DispatchMessageA(&message);
    }
    return t_nPumped;
}

// The system gives no way to it for another thread's windows. A host ends a closed screen's window before it
// opens the next screen.
void DropViewMessages(const void* /*queue*/) {}
