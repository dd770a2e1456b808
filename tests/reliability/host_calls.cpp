#include "tests/reliability/host_calls.h"

#include <utility>

#include "host/platform/platform.h"
#include "module/framework/tickmux.h"
#include "tests/reliability/allocations.h"

namespace {

struct Calls {
    bool Counting = false;
    int Count = 0;
    int At = 0;
    std::function<void()> Action;
};
thread_local Calls t_Calls;
thread_local int t_nToRefused = 0;

// The platform's function, called next; in front of the call in question runs the action.
template <class Function>
Function* Behind(const char* name, Function* own) {
    if (t_Calls.Counting && ++t_Calls.Count == t_Calls.At) {
        const heap::Spared spared;
        t_Calls.Counting = false;  // what the action itself brings does not count
        t_Calls.Action();
        t_Calls.Counting = true;
    }
    return NextBehind(name, own);
}

}  // namespace

void AtHostCall(int n, const std::function<void()>& action) {
    t_Calls = {true, 0, n, action};
}

int HostCallsEnd() {
    return std::exchange(t_Calls, {}).Count;
}

void RefuseViewMessage(int n) {
    t_nToRefused = n;
}

BOOL IsWindow(HWND window) {
    return Behind("IsWindow", &IsWindow)(window);
}
LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return Behind("SendMessageA", &SendMessageA)(window, message, wParam, lParam);
}
BOOL SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TICKMUX_VIEW && t_nToRefused > 0 && --t_nToRefused == 0) {
        return FALSE;
    }
    return Behind("SendNotifyMessageA", &SendNotifyMessageA)(window, message, wParam, lParam);
}
BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return Behind("PostMessageA", &PostMessageA)(window, message, wParam, lParam);
}
DWORD GetTickCount() {
    return Behind("GetTickCount", &GetTickCount)();
}
