// A recording host: opens screens, feeds packets, and writes down what reaches windows and the communication
// manager, in order.
#ifndef TICKMUX_TESTS_SUPPORT_TERMINAL_H
#define TICKMUX_TESTS_SUPPORT_TERMINAL_H

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "module/wire/subscription_record.h"
#include "tests/support/fields.h"
#include "tests/support/host_parts.h"
#include "tests/support/inquiries.h"
#include "tests/support/packets.h"

using Events = std::vector<std::string>;

class Terminal;

// One screen: its window, its map, and the buffers that it has fetched. Destroying it unregisters the map.
class Screen {
public:
    Screen(Terminal& terminal, const std::string& mapName) : Screen(terminal, TagBytesOf(mapName)) {
        Regist(mapName);
    }
    virtual ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    tickmux_handle Handle() const { return m_Handle; }
    HWND Window() const { return m_hWnd; }

    int Init(const std::string& text);
    int Stop() const { return StopMap(m_Handle); }
    int Release() const { return ReleaseMap(m_Handle); }
    bool Regist(const std::string& mapName);
    void Unregister();
    void CloseWindow() const { tickhost_destroy_window(m_hWnd); }

    // The oldest buffer not yet looked at, with its tag; an error and an empty text if there is none.
    std::string Next();
    bool Empty() const { return m_Buffers.empty(); }

    // Runs within the next message, once, before a buffer is fetched.
    void OnNextMessage(std::function<void()> action) { m_OnMessage = std::move(action); }
    // Whether messages have a buffer fetched at once; else they leave it in the queue.
    void SetFetching(bool on) { m_bFetching = on; }
    void StopFetching() { SetFetching(false); }
    // Takes one item off the queue of the last message; false: it is empty.
    bool Fetch();
    // Gets each buffer that is fetched from now on, which is then not kept for Next.
    void OnBuffer(std::function<void(std::string_view)> take) { m_Take = std::move(take); }

    // What the window gets.
    virtual void OnMessage(uint32_t message, uintptr_t wParam, intptr_t lParam);

protected:
    // A window whose map is registered later.
    Screen(Terminal& terminal, std::size_t tagBytes);

private:
    Terminal& m_Terminal;
    HWND m_hWnd;
    tickmux_handle m_Handle = 0;
    uintptr_t m_pQueue = 0;
    std::size_t m_nTagBytes;
    bool m_bFetching = true;
    std::function<void()> m_OnMessage = [] {};
    std::deque<std::string> m_Buffers;
    std::function<void(std::string_view)> m_Take = [this](std::string_view buffer) {
        m_Buffers.emplace_back(buffer);
    };
};

class Terminal {
public:
    Terminal();
    virtual ~Terminal();
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
    virtual void Happened(const std::string& event) { m_Events.push_back(event); }
    // Runs within the next subscription request, once.
    void OnNextRequest(std::function<void()> action) { m_OnRequest = std::move(action); }

    // At each request, function call and message, when it has been written down.
    std::function<void()> OnCall = [] {};
    // What the communication manager's window gets.
    virtual void OnMessage(uint32_t message, uintptr_t wParam, intptr_t lParam);

    // By class, code and flag: how often each is asked for more than it is given up. None is no entry.
    std::map<std::string, int> Subscribed;

private:
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
    // The next buffer is the front, up to its repeat head, and these rows.
    template <class Front, class Row>
    void Expect(const std::string& front, const Rows& rows) {
        const std::string expected = front + BlockOf(rows, std::to_string(sizeof(Row)));
        EXPECT_TRUE((ShowsRows<Front, Row>(m_Screen->Next(), expected)));
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
