// One thread feeds, one fetches, one opens and closes screens, kept apart as tickmux.h asks.
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <future>
#include <string>
#include <thread>

#include "module/framework/guard.h"
#include "module/layouts/RSTICK11.h"
#include "tests/reliability/bare_host.h"
#include "tests/support/inquiries.h"

namespace {

class Threads : public testing::Test {
protected:
    void SetUp() override {
        SetMutexNameToDecoder(m_Name.data());
        m_Mutex.SetName(m_Name.c_str());
    }
    void TearDown() override { SetMutexNameToDecoder(nullptr); }
    // As a host holds it around its batches and its screens' lives.
    MutexGuard Guard() const { return MutexGuard(m_Mutex); }

    std::string m_Name = "tickmux-" + std::to_string(getpid());
    NamedMutex m_Mutex;
    BareHost m_Host;  // requests come to the thread that opens screens, which is this one
};

// A tick list whose window belongs to the thread that fetches: each trade is one row, its price the number.
struct Fetcher {
    void OnMessage(uint32_t /*message*/, uintptr_t queue, intptr_t /*lParam*/) {
        Fetch(queue, sizeof(RequestTag), [this](std::string_view buffer) {
            const auto& row = *reinterpret_cast<const TickRow*>(buffer.data() + sizeof(HeadedRows));
            InOrder = InOrder && buffer.size() == sizeof(HeadedRows) + sizeof(TickRow) &&
                      std::stoi(Text(row.Price)) == Fetched++;
        });
    }

    HWND Window = WindowOf(*this);
    int Fetched = 0;
    bool InOrder = true;
};

TEST_F(Threads, EveryItemIsFetchedOnceAndInOrderWhileScreensComeAndGo) {
    const int items = ShortOrLong(20000, 1000000);
    HANDLE kept = CreateMutexA(nullptr, FALSE, m_Name.c_str());
    std::promise<HWND> window;
    std::atomic<bool> fed = false;
    auto fetching = std::async(std::launch::async, [&] {
        Fetcher fetcher;
        window.set_value(fetcher.Window);
        while (fetcher.Fetched < items && fetcher.InOrder && !(fed && tickhost_pump_messages() == 0)) {
            if (tickhost_pump_messages() == 0) {
                std::this_thread::yield();
            }
        }
        return fetcher.InOrder && fetcher.Fetched == items;
    });
    const tickmux_handle handle = RegistMap(window.get_future().get(), "RSTICK11_R");
    ModuleForm::Init(handle, TickInquiry("1ASII"));
    std::thread feeding([&] {
        for (int number = 0; number < items; ++number) {
            const std::string packet = Trade("1ASII").Price(number).Bytes();
            const MutexGuard guard = Guard();
            ModuleForm::Put(packet);
            ModuleForm::EndBatch();
        }
        fed = true;
    });
    for (std::size_t turn = 0; !fed; ++turn) {
        BareScreen screen(m_Host, Samples()[turn % Samples().size()]);
        {
            const MutexGuard guard = Guard();
            screen.Start();
        }
        {
            const MutexGuard guard = Guard();
            screen.Unregister();
        }
        tickhost_pump_messages();
    }
    feeding.join();
    EXPECT_TRUE(fetching.get());
    UnregistMap(handle);
    CloseHandle(kept);
    EXPECT_TRUE(m_Host.Subscribed.empty());
}

// Where no packets run, the module's own holds are enough. The screens ask nobody for anything.
TEST_F(Threads, TwoMayOpenAndCloseScreensAtOnce) {
    const auto work = [&] {
        for (int turn = 0; turn < 1000; ++turn) {
            BareScreen screen(m_Host, SampleOf("RSNOCH21_R"));
            EXPECT_TRUE(screen.Start());
        }
    };
    std::thread other(work);
    work();
    other.join();
}

// Only run by name, under the thread sanitizer, which has to report it.
TEST_F(Threads, DISABLED_WithoutTheGuardTheyRace) {
    BareScreen screen(m_Host, SampleOf("RSTICK11_R"));
    screen.Start();
    std::thread feeding([&] {
        for (int round = 0; round < 100; ++round) {
            screen.Feed();
        }
    });
    for (int round = 0; round < 100; ++round) {
        screen.InitFirst();
    }
    feeding.join();
}

}  // namespace
