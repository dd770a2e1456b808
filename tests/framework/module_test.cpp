// The framework as a host uses it: through the exported functions.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "host/services.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

extern "C" int CHostRound(HWND window);

namespace {

using Events = std::vector<std::string>;

TEST(Module, KnowsItsMapsByTheirExactNames) {
    const Terminal terminal;
    for (const char* name : {"", "RSTICK11", "rstick11_r", "RSTICK11_R ", "RNOTHING_R"}) {
        EXPECT_EQ(RegistMap(nullptr, name), 0U) << name;
    }
    EXPECT_EQ(RegistMap(nullptr, nullptr), 0U);
    for (const char* name : {"RSTICK11_R", "RSETFNAV_R"}) {
        const tickmux_handle handle = RegistMap(nullptr, name);
        EXPECT_NE(handle, 0U);
        EXPECT_NE(GetPacketDecoderInst(handle), nullptr);
        EXPECT_EQ(UnregistMap(handle), 1);
    }
}

TEST(Module, HandleZeroIsNone) {
    EXPECT_THROW(InitMap(0, nullptr), CInvalidArgException*);
    EXPECT_THROW(GetPacketDecoderInst(0), CInvalidArgException*);
    EXPECT_EQ(StopMap(0), 0);
    EXPECT_EQ(ReleaseMap(0), 0);
    EXPECT_EQ(UnregistMap(0), -1);
}

TEST(Module, PublicHeaderServesAHostInC) {
    Terminal terminal;
    EXPECT_EQ(CHostRound(tickhost_create_window(nullptr, nullptr)), 1);
}

TEST(Module, DropsPacketsOfOtherLengthsAndTypes) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    const std::string packet = Trade("1ASII").Bytes();
    for (const std::string& wrong :
         {packet + " ", packet.substr(0, packet.size() - 1), std::string("A"), ' ' + packet.substr(1),
          '{' + packet.substr(1), 'B' + packet.substr(1), '\xC1' + packet.substr(1), std::string("\0", 1)}) {
        EXPECT_EQ(terminal.Feed(wrong), 1);
    }
    EXPECT_EQ(PutRTMPacketToDecoder(nullptr, 0), 1);
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty());
    terminal.Feed(packet);
    terminal.EndBatch();
    EXPECT_FALSE(screen->Next().empty());
}

TEST(Module, OnlyActiveDecodersGetPackets) {
    Terminal terminal;
    EXPECT_EQ(terminal.Feed(Trade("1ASII")), 1) << "nobody takes the type";
    terminal.EndBatch();
    auto screen = terminal.Open("RSTICK11_R");
    const auto oneBatch = [&] {
        terminal.Feed(Trade("1ASII"));
        terminal.EndBatch();
        const bool received = !screen->Empty();
        return received && !screen->Next().empty();
    };
    EXPECT_FALSE(oneBatch()) << "before Init";
    EXPECT_EQ(screen->Init(TickInquiry("1ASII")), 1);
    EXPECT_TRUE(oneBatch());
    EXPECT_EQ(screen->Stop(), 1);
    EXPECT_FALSE(oneBatch()) << "stopped";
    EXPECT_EQ(screen->Init("T1"), 0);
    EXPECT_FALSE(oneBatch()) << "a refused Init";
    EXPECT_EQ(screen->Init(TickInquiry("1ASII")), 1);
    EXPECT_TRUE(oneBatch()) << "taken up again";
    EXPECT_EQ(screen->Release(), 1);
    EXPECT_FALSE(oneBatch()) << "released";
    EXPECT_EQ(InitMap(screen->Handle(), nullptr), 0);
}

TEST(Module, ServesMapsInOrderOfRegistrationAlsoAfterOneHasGone) {
    Terminal terminal;
    std::vector<std::unique_ptr<Screen>> screens;
    std::string order;
    screens.reserve(5);
    while (screens.size() < 4) {
        screens.push_back(terminal.Open("RSTICK11_R", TickInquiry("1ASII")));
    }
    const auto batch = [&] {
        order.clear();
        for (std::size_t i = 0; i < screens.size(); ++i) {
            screens[i]->OnNextMessage([&order, i] { order += static_cast<char>('0' + i); });
        }
        terminal.Feed(Trade("1ASII"));
        terminal.EndBatch();
        return order;
    };
    EXPECT_EQ(batch(), "0123");
    screens[1]->Unregister();
    EXPECT_EQ(batch(), "023");
    screens[0]->Unregister();
    screens[3]->Unregister();
    EXPECT_EQ(batch(), "2");
    screens.push_back(terminal.Open("RSTICK11_R", TickInquiry("1ASII")));
    EXPECT_EQ(batch(), "24");
}

TEST(Module, UnregisteringWithdrawsAndFreesWhatWaits) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    screen->StopFetching();
    terminal.Feed(Trade("1ASII"));
    terminal.EndBatch();
    screen->Unregister();
    EXPECT_EQ(terminal.Events(),
              (Events{Added('1', "1ASII", "80000000"), "view", Deleted('1', "1ASII", "80000000")}));
    EXPECT_FALSE(screen->Fetch()) << "a late fetch finds no queue";
}

TEST(Module, LifecycleCallsEmptyTheQueue) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    screen->StopFetching();
    for (const auto& call :
         std::vector<std::function<void()>>{[&] { screen->Stop(); }, [&] { screen->Release(); },
                                            [&] { screen->Init(TickInquiry("1ASII")); }}) {
        screen->Init(TickInquiry("1ASII"));
        terminal.Feed(Trade("1ASII"));
        terminal.EndBatch();
        call();
        EXPECT_FALSE(screen->Fetch());
    }
}

TEST(Module, AWindowThatHasGoneReceivesNothing) {
    Terminal terminal;
    auto list = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    auto fund = terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    terminal.Events();
    for (Screen* screen : {list.get(), fund.get()}) {
        screen->CloseWindow();
    }
    terminal.Feed(Trade("1ASII"));
    terminal.Feed(Nav("1FUND").Value1("1"));
    terminal.EndBatch();
    EXPECT_EQ(terminal.Events(), Events{});
}

TEST(Module, AWindowMayFeedAndCloseBatchesWithinItsMessage) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    auto fund = terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    terminal.Events();
    screen->OnNextMessage([&] {
        terminal.Feed(Trade("1ASII").Price(1010));
        terminal.Feed(Nav("1FUND").Value1("1"));
        terminal.EndBatch();
        terminal.Feed(Trade("1ASII").Price(1015));
    });
    terminal.Feed(Trade("1ASII").Price(1005));
    terminal.EndBatch();
    EXPECT_EQ(terminal.Events(), (Events{"view", "view", "view"}));
    terminal.EndBatch();
    EXPECT_EQ(terminal.Events(), Events{"view"}) << "the last trade waited, and nothing was sent twice";
    for (const char* price : {"1005", "1010", "1015"}) {
        EXPECT_NE(screen->Next().find(Right(price, 12)), std::string::npos) << price;
    }
}

TEST(Module, CancelNamesTheUser) {
    Terminal terminal;
    tickhost_set_text("HashUserID", "5f4dcc3b");
    EXPECT_EQ(StopView(), 1);
    EXPECT_EQ(terminal.Events(), Events{"cancel [5f4dcc3b           ]"});
    tickhost_set_communication_manager(nullptr);
    EXPECT_EQ(StopView(), 0);
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    terminal.Feed(Trade("1ASII"));
    terminal.EndBatch();
    EXPECT_EQ(terminal.Events(), Events{"view"}) << "decoders go on as if the request had been sent";
}

TEST(Module, MapGuardIsTheMutexThatTheHostNames) {
    Terminal terminal;
    char name[] = "tickmux-test-guard-longer-than-19";
    SetMutexNameToDecoder(name);
    HANDLE mutex = CreateMutexA(nullptr, TRUE, "tickmux-test-guard-");
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));  // held by this thread: nests
    std::atomic<bool> stopped = false;
    std::thread other([&] {
        screen->Stop();
        stopped = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(stopped);
    ReleaseMutex(mutex);
    other.join();
    EXPECT_TRUE(stopped);
    CloseHandle(mutex);
    char none[] = "";
    SetMutexNameToDecoder(none);
}

}  // namespace
