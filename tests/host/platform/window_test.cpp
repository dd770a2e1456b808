#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>

#include "host/platform/platform.h"
#include "host/tickhost.h"

namespace {

using namespace std::chrono_literals;

#ifdef _WIN32
constexpr bool kIsSystem = true;
#else
constexpr bool kIsSystem = false;
#endif
constexpr uint32_t kFirst = 0x500;  // smaller numbers may be the system's own

// A window of the thread that makes it; notes what it gets, and answers with twice the message number.
class Screen {
public:
    Screen() : m_Window(tickhost_create_window(&Screen::Procedure, this)) {}
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() { tickhost_destroy_window(m_Window); }

    HWND Window() const { return m_Window; }
    std::string Taken() { return std::exchange(m_Taken, ""); }

    std::function<void(uint32_t)> OnMessage = [](uint32_t) {};

private:
    static intptr_t Procedure(void* context, HWND window, uint32_t message, uintptr_t first,
                              intptr_t second) {
        auto& self = *static_cast<Screen*>(context);
        message -= kFirst;
        EXPECT_EQ(window, self.m_Window);
        EXPECT_EQ(std::this_thread::get_id(), self.m_Owner);
        self.m_Taken +=
            std::to_string(message) + ":" + std::to_string(first) + ":" + std::to_string(second) + " ";
        self.OnMessage(message);
        return 2 * static_cast<intptr_t>(message);
    }

    std::thread::id m_Owner = std::this_thread::get_id();
    std::string m_Taken;
    HWND m_Window;
};

void PumpUntil(const std::function<bool()>& done) {
    while (!done()) {
        tickhost_pump_messages();
        std::this_thread::yield();
    }
}

template <class Result>
bool IsReady(const std::future<Result>& future) {
    return future.wait_for(0s) == std::future_status::ready;
}

// Until the other thread hangs in a call, as far as one can tell from outside.
void LetItHang() {
    std::this_thread::sleep_for(20ms);
}

}  // namespace

TEST(Window, RunsAtOnceWhatIsSentAndLaterWhatIsPosted) {
    Screen first;
    Screen second;
    PostMessageA(first.Window(), kFirst + 1, 10, -1);
    EXPECT_TRUE(PostMessageA(second.Window(), kFirst + 2, 20, 0));
    EXPECT_EQ(SendMessageA(first.Window(), kFirst + 3, 30, 0), 6);
    EXPECT_TRUE(SendNotifyMessageA(first.Window(), kFirst + 4, 40, 0));
    EXPECT_EQ(first.Taken(), "3:30:0 4:40:0 ");
    first.OnMessage = [&](uint32_t message) {
        if (message < 100) {
            EXPECT_EQ(second.Taken(), "") << "oldest first";
            PostMessageA(first.Window(), kFirst + message + 100, 0, 0);
        }
    };
    EXPECT_EQ(tickhost_pump_messages(), 2) << "what is posted meanwhile waits for the next pump";
    EXPECT_EQ(first.Taken() + second.Taken(), "1:10:-1 2:20:0 ");
    EXPECT_EQ(tickhost_pump_messages(), 1);
    EXPECT_EQ(first.Taken(), "101:0:0 ");
    EXPECT_EQ(tickhost_pump_messages(), 0);
}

TEST(Window, IsGoneOnceDestroyed) {
    HWND previous = nullptr;
    const std::function<void(Screen&)> ways[] = {
        [](Screen& screen) { tickhost_destroy_window(screen.Window()); },
        [](Screen&) { tickhost_reset(); },
        [](Screen& screen) {  // from within; the record is gone when the procedure ends
            screen.OnMessage = [&](uint32_t) { tickhost_destroy_window(screen.Window()); };
            EXPECT_EQ(SendMessageA(screen.Window(), kFirst + 5, 0, 0), 10);
        },
    };
    for (const auto& destroy : ways) {
        Screen screen;
        auto* const window = screen.Window();
        EXPECT_GT(reinterpret_cast<uintptr_t>(window),
                  reinterpret_cast<uintptr_t>(std::exchange(previous, window)))
            << "a new handle";
        EXPECT_TRUE(IsWindow(window));
        PostMessageA(window, kFirst + 1, 0, 0);
        destroy(screen);
        screen.Taken();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(tickhost_pump_messages(), 0);
        EXPECT_EQ(SendMessageA(window, kFirst + 1, 0, 0), 0);
        EXPECT_FALSE(SendNotifyMessageA(window, kFirst + 1, 0, 0));
        EXPECT_FALSE(PostMessageA(window, kFirst + 1, 0, 0));
        EXPECT_EQ(screen.Taken(), "");
    }
    HWND ofThread = nullptr;
    std::thread([&] { ofThread = tickhost_create_window(nullptr, nullptr); }).join();
    EXPECT_TRUE(ofThread != nullptr && !IsWindow(ofThread)) << "its thread ended";
}

TEST(Window, TakesFromOtherThreadsWhatItsOwnThreadPumps) {
    Screen screen;
    auto sender = std::async(std::launch::async, [&] {
        SendNotifyMessageA(screen.Window(), kFirst + 1, 0, 0);
        return SendMessageA(screen.Window(), kFirst + 2, 0, 0);
    });
    LetItHang();
    EXPECT_EQ(screen.Taken(), "");
    PumpUntil([&] { return IsReady(sender); });
    EXPECT_EQ(screen.Taken(), "1:0:0 2:0:0 ");
    EXPECT_EQ(sender.get(), 4);
}

TEST(Window, TwoThreadsThatSendToEachOtherBothGoOn) {
    constexpr int kTurns = 2000;
    std::promise<HWND> windows[2];
    std::atomic<int> done = 0;
    const auto work = [&](int own) {
        Screen screen;
        int nested = 0;
        windows[own].set_value(screen.Window());
        auto* const other = windows[1 - own].get_future().get();
        screen.OnMessage = [&](uint32_t message) {
            nested += message == 2 ? 1 : 0;
            if (message == 1) {
                EXPECT_EQ(SendMessageA(other, kFirst + 2, 0, 0), 4) << "a call back from within the call";
            }
        };
        for (int turn = 0; turn < kTurns; ++turn) {
            EXPECT_EQ(SendMessageA(other, kFirst + 1, 0, 0), 2);
        }
        ++done;
        PumpUntil([&] { return done == 2; });
        EXPECT_EQ(nested, kTurns);
    };
    std::thread other(work, 1);
    work(0);
    other.join();
}

TEST(Window, DestroyedFromAnotherThreadLetsItsProcedureEndAndItsSendersGo) {
    if (kIsSystem) {
        GTEST_SKIP() << "the system's windows are destroyed by their own thread";
    }
    Screen screen;
    std::promise<HWND> helper;
    std::promise<void> running;
    std::atomic<bool> ended = false;
    auto destroyer = std::async(std::launch::async, [&] {
        Screen own;
        helper.set_value(own.Window());
        running.get_future().wait();
        auto sender =
            std::async(std::launch::async, [&] { return SendMessageA(screen.Window(), kFirst + 7, 0, 0); });
        LetItHang();
        tickhost_destroy_window(screen.Window());
        EXPECT_TRUE(ended);
        EXPECT_EQ(sender.get(), 0);
        return own.Taken();
    });
    auto* const other = helper.get_future().get();
    screen.OnMessage = [&](uint32_t) {
        running.set_value();
        LetItHang();
        LetItHang();
        EXPECT_EQ(SendMessageA(other, kFirst + 8, 0, 0), 16)
            << "who waits for the end serves what is sent to him";
        ended = true;
    };
    EXPECT_EQ(SendMessageA(screen.Window(), kFirst + 6, 0, 0), 12);
    EXPECT_EQ(destroyer.get(), "8:0:0 ");
    EXPECT_EQ(screen.Taken(), "6:0:0 ");
}

TEST(Window, RunsNoProcedureOnceItsDestroyerIsBack) {
    if (kIsSystem) {
        GTEST_SKIP() << "the system's windows are destroyed by their own thread";
    }
    constexpr int kWindows = 3000;
    std::atomic<HWND> open = nullptr;
    std::atomic<bool> over = false;
    std::atomic<bool> destroyed = false;
    std::thread destroyer([&] {
        while (!over) {
            if (auto* const window = open.exchange(nullptr)) {
                tickhost_destroy_window(window);
                destroyed = true;
            }
        }
    });
    for (int i = 0; i < kWindows; ++i) {
        Screen screen;
        screen.OnMessage = [&](uint32_t) { EXPECT_FALSE(destroyed); };
        destroyed = false;
        open = screen.Window();
        while (SendNotifyMessageA(screen.Window(), kFirst + 1, 0, 0)) {
        }
        while (!destroyed) {
            EXPECT_EQ(SendMessageA(screen.Window(), kFirst + 2, 0, 0), 0);
        }
    }
    over = true;
    destroyer.join();
}
