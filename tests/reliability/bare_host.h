// A host that does little itself, so that what is measured is the module: screens that fetch, and a
// communication manager that keeps accounts of what is asked for.
#ifndef TICKMUX_TESTS_RELIABILITY_BARE_HOST_H
#define TICKMUX_TESTS_RELIABILITY_BARE_HOST_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/tickhost.h"
#include "module/framework/tickmux.h"
#include "tests/support/samples.h"

using Buffers = std::vector<std::string>;

class BareHost {
public:
    BareHost();
    ~BareHost();
    BareHost(const BareHost&) = delete;
    BareHost& operator=(const BareHost&) = delete;

    // How often each code and packet type is asked for more than it is given up; entries of none are gone.
    std::map<std::string, int> Open;
    int nRequests = 0;
    SampleWorld World;
    // At each request and each message of a screen.
    std::function<void()> OnCall = [] {};

private:
    static intptr_t Procedure(void* context, HWND window, uint32_t message, uintptr_t wParam,
                              intptr_t lParam);
};

// One map and its window. It takes part in nothing else's life: nothing is unregistered at its end.
class BareScreen {
public:
    BareScreen(BareHost& host, const Sample& sample);
    ~BareScreen();
    BareScreen(const BareScreen&) = delete;
    BareScreen& operator=(const BareScreen&) = delete;

    int Regist();
    int Init(const std::string& text) const;
    int InitFirst() const { return Init(m_Sample.First); }
    int InitSecond() const { return Init(m_Sample.Second); }
    int Start() { return InitFirst(); }
    void Feed() const;
    static void EndBatch();
    int Unregist();
    void CloseWindow() const { tickhost_destroy_window(m_hWnd); }

    tickmux_handle Handle = 0;
    bool Fetches = true;
    bool Keeps = true;  // what it fetches
    Buffers Received;

private:
    static intptr_t Procedure(void* context, HWND window, uint32_t message, uintptr_t wParam,
                              intptr_t lParam);

    BareHost& m_Host;
    const Sample& m_Sample;
    HWND m_hWnd;
};

#endif
