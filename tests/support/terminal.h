// A recording host: opens screens, feeds packets, and writes down what reaches windows and the communication
// manager, in order.
#ifndef TICKMUX_TESTS_SUPPORT_TERMINAL_H
#define TICKMUX_TESTS_SUPPORT_TERMINAL_H

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/tickmux.h"
#include "host/tickhost.h"
#include "tests/support/packets.h"

using Events = std::vector<std::string>;

class Terminal;

// One screen: its window, its map, and the buffers that it has fetched. Destroying it unregisters the map.
class Screen {
public:
    Screen(Terminal& terminal, const std::string& mapName);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    tickmux_handle Handle() const { return m_Handle; }
    HWND Window() const { return m_hWnd; }

    int Init(const std::string& text);
    void RefusesEveryCutOf(const std::string& text);
    int Stop() const { return StopMap(m_Handle); }
    int Release() const { return ReleaseMap(m_Handle); }
    void Unregister();
    void CloseWindow() const { tickhost_destroy_window(m_hWnd); }

    // The oldest buffer not yet looked at, with its tag; an error and an empty text if there is none.
    std::string Next();
    bool Empty() const { return m_Buffers.empty(); }

    // Runs within the next message, once, before a buffer is fetched.
    void OnNextMessage(std::function<void()> action) { m_OnMessage = std::move(action); }
    // From now on messages leave their buffers in the queue.
    void StopFetching() { m_bFetching = false; }
    // Takes one item off the queue of the last message; false: it is empty.
    bool Fetch();

private:
    static intptr_t Procedure(void* context, HWND window, uint32_t message, uintptr_t wParam,
                              intptr_t lParam);

    void Act();

    Terminal& m_Terminal;
    HWND m_hWnd;
    tickmux_handle m_Handle;
    void* m_pQueue = nullptr;
    std::size_t m_nTagBytes;  // none where packets pass through
    bool m_bFetching = true;
    std::function<void()> m_OnMessage = [] {};
    std::deque<std::string> m_Buffers;
};

class Terminal {
public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // A screen that is registered, and with an Init text active.
    std::unique_ptr<Screen> Open(const std::string& mapName);
    std::unique_ptr<Screen> Open(const std::string& mapName, const std::string& init);

    // Gives what the packet call gives.
    int Feed(const std::string& packet);
    template <class Packet>
    int Feed(const PacketBuilder<Packet>& packet) {
        return Feed(packet.Bytes());
    }
    void EndBatch() { EndRTMUnpackToDecoder(); }

    // What has happened since the last call: "add 1 [1ASII      ] 11 80000000", "delete ...", "cancel [...]",
    // "function A K11OI060 [...]", "view" for each message 2244, "list" for each 2248.
    ::Events Events();
    void Happened(const std::string& event) { m_Events.push_back(event); }
    // Runs within the next subscription request, once.
    void OnNextRequest(std::function<void()> action) { m_OnRequest = std::move(action); }

private:
    static intptr_t Procedure(void* context, HWND window, uint32_t message, uintptr_t wParam,
                              intptr_t lParam);

    static void TakeFunction(void* context, HWND window, const char* loginText, char type, const char* name,
                             const char* text, int length);

    HWND m_hManager;
    std::function<void()> m_OnRequest = [] {};
    ::Events m_Events;
};

// Tests of one map, on one screen of it.
class ScreenTest : public testing::Test {
protected:
    explicit ScreenTest(std::string map) : m_Map(std::move(map)) {}

    void Open(const std::string& init) { m_Screen = m_Terminal.Open(m_Map, init); }
    int Init(const std::string& text) { return m_Screen->Init(text); }
    template <class... Packets>
    void Feed(const Packets&... packets) {
        (m_Terminal.Feed(packets), ...);
    }
    template <class... Packets>
    void Batch(const Packets&... packets) {
        Feed(packets...);
        EndBatch();
    }
    virtual void EndBatch() { m_Terminal.EndBatch(); }
    bool Silent() { return EndBatch(), m_Screen->Empty(); }
    // What the packet makes the batch end send.
    template <class Packet>
    std::string After(const Packet& packet) {
        Feed(packet);
        return Silent() ? "nothing" : m_Screen->Next();
    }
    // As Terminal::Events, with what the window was posted.
    Events Told() { return tickhost_pump_messages(), m_Terminal.Events(); }

    Terminal m_Terminal;
    std::unique_ptr<Screen> m_Screen;

private:
    std::string m_Map;
};

// As Terminal::Events tells a request.
std::string Asked(const std::string& operation, char chClass, const std::string& code,
                  const std::string& flags);
inline std::string Added(char chClass, const std::string& code, const std::string& flags) {
    return Asked("add", chClass, code, flags);
}
inline std::string Deleted(char chClass, const std::string& code, const std::string& flags) {
    return Asked("delete", chClass, code, flags);
}

#endif
