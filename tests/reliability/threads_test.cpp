// One thread feeds, one fetches, one opens and closes screens, kept apart as tickmux.h asks.
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

#include "module/layouts/RSTICK11.h"
#include "tests/reliability/bare_host.h"
#include "tests/reliability/long_form.h"
#include "tests/support/inquiries.h"

namespace {

// The map guard, as a host holds it around its batches and its screens' lives.
class HostsGuard {
public:
    explicit HostsGuard(const std::string& name) : m_hMutex(CreateMutexA(nullptr, FALSE, name.c_str())) {
        WaitForSingleObject(m_hMutex, INFINITE);
    }
    ~HostsGuard() {
        ReleaseMutex(m_hMutex);
        CloseHandle(m_hMutex);
    }
    HostsGuard(const HostsGuard&) = delete;
    HostsGuard& operator=(const HostsGuard&) = delete;

private:
    HANDLE m_hMutex;
};

class Threads : public testing::Test {
protected:
    void SetUp() override { SetMutexNameToDecoder(m_Name.data()); }
    void TearDown() override {
        m_Name.clear();
        SetMutexNameToDecoder(m_Name.data());
    }
    HostsGuard Guard() const { return HostsGuard(m_Name); }

    std::string m_Name = "tickmux-" + std::to_string(getpid());
    BareHost m_Host;  // requests come to the thread that opens screens, which is this one
};

// A tick list whose window belongs to the thread that fetches.
class Fetcher {
public:
    Fetcher() : m_hWnd(tickhost_create_window(&Procedure, this)) {}

    HWND Window() const { return m_hWnd; }
    int Fetched() const { return m_nNext; }
    bool InOrder() const { return m_bInOrder; }

private:
    static intptr_t Procedure(void* context, HWND /*window*/, uint32_t /*message*/, uintptr_t wParam,
                              intptr_t /*lParam*/) {
        auto& fetcher = *static_cast<Fetcher*>(context);
        char* data = nullptr;
        int length = 0;
        if (tickhost_take_view_item(reinterpret_cast<void*>(wParam), &data, &length) != 0) {
            const auto& row = *reinterpret_cast<const TickRow*>(data + sizeof(HeadedRows));
            const std::string price(row.Price, sizeof(row.Price));
            fetcher.m_bInOrder = fetcher.m_bInOrder && std::stoi(price) == fetcher.m_nNext++ &&
                                 length + 2 == sizeof(HeadedRows) + sizeof(TickRow);
            tickhost_free_view_data(data);
        }
        return 0;
    }

    HWND m_hWnd;
    int m_nNext = 0;
    bool m_bInOrder = true;
};

TEST_F(Threads, EveryItemIsFetchedOnceAndInOrderWhileScreensComeAndGo) {
    const int items = ShortOrLong(20000, 1000000);
    HANDLE kept = CreateMutexA(nullptr, FALSE, m_Name.c_str());
    std::atomic<HWND> window = nullptr;
    std::atomic<bool> wholeOrder = false;
    std::atomic<bool> fed = false;
    std::thread fetching([&] {
        Fetcher fetcher;
        window = fetcher.Window();
        while (fetcher.Fetched() < items && fetcher.InOrder() && !(fed && tickhost_pump_messages() == 0)) {
            if (tickhost_pump_messages() == 0) {
                std::this_thread::yield();
            }
        }
        wholeOrder = fetcher.InOrder() && fetcher.Fetched() == items;
    });
    while (window == nullptr) {
        std::this_thread::yield();
    }
    const tickmux_handle handle = RegistMap(window, "RSTICK11_R");
    std::string inquiry = TickInquiry("1ASII");
    InitMap(handle, inquiry.data());
    std::thread feeding([&] {
        for (int number = 0; number < items; ++number) {
            std::string packet = Trade("1ASII").Price(number).Bytes();
            const HostsGuard guard = Guard();
            PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
            EndRTMUnpackToDecoder();
        }
        fed = true;
    });
    for (std::size_t turn = 0; !fed; ++turn) {
        BareScreen screen(m_Host, Samples()[turn % Samples().size()]);
        for (const auto call : {&BareScreen::Regist, &BareScreen::Start, &BareScreen::Unregist}) {
            const HostsGuard guard = Guard();
            (screen.*call)();
        }
        tickhost_pump_messages();
    }
    feeding.join();
    fetching.join();
    UnregistMap(handle);
    CloseHandle(kept);
    EXPECT_TRUE(wholeOrder);
    EXPECT_TRUE(m_Host.Open.empty());
}

// Where no packets run, the module's own holds are enough. The screens ask nobody for anything.
TEST_F(Threads, TwoMayOpenAndCloseScreensAtOnce) {
    const auto work = [&] {
        for (int turn = 0; turn < 1000; ++turn) {
            BareScreen screen(m_Host, SampleOf("RSNOCH21_R"));
            screen.Regist();
            EXPECT_EQ(screen.InitFirst(), 1);
            screen.Unregist();
        }
    };
    std::thread other(work);
    work();
    other.join();
}

// Only run by name, under the thread sanitizer, which has to report it.
TEST_F(Threads, DISABLED_WithoutTheGuardTheyRace) {
    BareScreen screen(m_Host, SampleOf("RSTICK11_R"));
    screen.Regist();
    screen.InitFirst();
    std::thread feeding([&] {
        for (int round = 0; round < 100; ++round) {
            screen.Feed();
        }
    });
    for (int round = 0; round < 100; ++round) {
        screen.InitFirst();
    }
    feeding.join();
    screen.Unregist();
}

}  // namespace
