// A recording host: opens screens, feeds packets, and writes down what reaches windows and the communication
// manager, in order.
#ifndef TICKMUX_TESTS_SUPPORT_TERMINAL_H
#define TICKMUX_TESTS_SUPPORT_TERMINAL_H

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "framework/tickmux.h"
#include "host/tickhost.h"
#include "tests/support/packets.h"

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
    bool m_bFetching = true;
    std::function<void()> m_OnMessage;
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
    // "view" for each message 2244, "list" for each 2248.
    std::vector<std::string> Events();
    void Happened(const std::string& event) { m_Events.push_back(event); }

private:
    static intptr_t Procedure(void* context, HWND window, uint32_t message, uintptr_t wParam,
                              intptr_t lParam);

    HWND m_hManager;
    std::vector<std::string> m_Events;
};

// As Terminal::Events tells a request.
std::string Added(char chClass, const std::string& code, const std::string& flags);
std::string Deleted(char chClass, const std::string& code, const std::string& flags);

#endif
