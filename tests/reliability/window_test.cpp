// Windows that go, and windows that call back, at every point where the module calls out.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "tests/reliability/bare_host.h"
#include "tests/reliability/host_calls.h"

namespace {

// A screen that is disturbed and another of the same map.
struct Pair {
    explicit Pair(BareHost& host, const Sample& sample)
        : Disturbed(host, sample), Other(host, sample), Third(host, sample) {
        Disturbed.Regist();
        Other.Regist();
    }
    void Inquire() const {
        Disturbed.InitFirst();
        Other.InitFirst();
        Disturbed.InitSecond();
        Disturbed.InitFirst();
    }
    void Batch() const {
        Disturbed.Feed();
        BareScreen::EndBatch();
    }
    // Two, and then ends until all that waits has gone.
    void Batches() const {
        Batch();
        Batch();
        for (int more = 0; more < 8; ++more) {
            BareScreen::EndBatch();
        }
    }
    void End() {
        Other.Release();
        for (BareScreen* screen : {&Disturbed, &Other, &Third}) {
            screen->Unregister();
        }
    }

    BareScreen Disturbed;
    BareScreen Other;
    BareScreen Third;  // comes later, if at all
};

Buffers Undisturbed(BareHost& host, const Sample& sample) {
    Pair pair(host, sample);
    pair.Inquire();
    pair.Batches();
    pair.End();
    EXPECT_EQ(pair.Other.Received.empty(), sample.Packets.empty()) << sample.Map;
    return pair.Other.Received;
}

// Both get a fresh inquiry and show the same of it, whatever was before.
void ExpectBothRecovered(Pair& pair, const std::string& what) {
    Buffers shown[2];
    for (BareScreen* screen : {&pair.Disturbed, &pair.Other}) {
        // Order lists keep over an inquiry their rows, if it has none, and the notice that came last.
        screen->InitFirst();
        pair.Batch();
        screen->Stop();
        screen->InitFirst();
        screen->Received.clear();
        pair.Batch();
        shown[screen == &pair.Other ? 1 : 0] = screen->Received;
    }
    EXPECT_EQ(shown[0], shown[1]) << what;
}

TEST(Windows, AScreenMayGoAtEachCallOfABatchAndTheOthersGoOn) {
    BareHost host;
    for (const Sample& sample : Samples()) {
        const Buffers expected = Undisturbed(host, sample);
        for (int n = 1, calls = n; n <= calls; ++n) {
            const int64_t before = heap::InUse().Blocks;
            {
                Pair pair(host, sample);
                pair.Inquire();
                AtHostCall(n, [&pair] { pair.Disturbed.CloseWindow(); });
                pair.Batches();
                calls = HostCallsEnd();
                pair.End();
                EXPECT_EQ(pair.Other.Received, expected) << sample.Map << " call " << n;
            }
            tickhost_pump_messages();
            EXPECT_EQ(heap::InUse().Blocks, before) << sample.Map << " call " << n;
            EXPECT_TRUE(host.Subscribed.empty());
        }
    }
}

struct Action {
    const char* Name;
    void (*Run)(Pair& pair);
};
constexpr Action kActions[] = {
    {"stop", [](Pair& pair) { pair.Disturbed.Stop(); }},
    {"release", [](Pair& pair) { pair.Disturbed.Release(); }},
    {"first Init", [](Pair& pair) { pair.Disturbed.InitFirst(); }},
    {"second Init", [](Pair& pair) { pair.Disturbed.InitSecond(); }},
    {"refused Init", [](Pair& pair) { pair.Disturbed.Init("x"); }},
    {"stop of the other", [](Pair& pair) { pair.Other.Stop(); }},
    {"release of the other", [](Pair& pair) { pair.Other.Release(); }},
    {"Init of the other", [](Pair& pair) { pair.Other.InitSecond(); }},
    {"packets", [](Pair& pair) { pair.Disturbed.Feed(); }},
    {"a batch", [](Pair& pair) { pair.Batch(); }},
    {"a new screen", [](Pair& pair) { pair.Third.Start(); }},
};

TEST(Windows, AScreenAndTheCommunicationManagerMayCallBackFromEachMessage) {
    BareHost host;
    for (const Sample& sample : Samples()) {
        {
            Pair first(host, sample);  // makes room that the manager and the host keep
            first.Inquire();
            first.Batch();
            first.End();
        }
        for (const Action& action : kActions) {
            for (int n = 1, messages = n; n <= messages; ++n) {
                const std::string what = sample.Map + ", " + action.Name + " in message " + std::to_string(n);
                const int64_t before = heap::InUse().Blocks;
                {
                    Pair pair(host, sample);
                    messages = 0;
                    const auto counting = [&] {
                        if (++messages == n && pair.Disturbed.Handle() != 0) {
                            const int outer = messages;
                            action.Run(pair);
                            messages = outer;
                        }
                    };
                    host.OnCall = counting;
                    pair.Inquire();
                    pair.Batch();
                    pair.Batch();
                    host.OnCall = [] {};
                    ExpectBothRecovered(pair, what);
                    host.OnCall = counting;
                    pair.End();
                    host.OnCall = [] {};
                }
                tickhost_pump_messages();
                EXPECT_EQ(heap::InUse().Blocks, before) << what;
                EXPECT_TRUE(host.Subscribed.empty()) << what << host.Subscribed.begin()->first;
                host.Subscribed.clear();
            }
        }
    }
}

// Each message in turn cannot be sent: its item is told with the next one or at the next batch end.
TEST(Windows, AsManyMessagesComeAsItems) {
    BareHost host;
    for (const Sample& sample : Samples()) {
        const Buffers expected = Undisturbed(host, sample);
        for (std::size_t n = 1; n <= 2 * expected.size(); ++n) {
            Pair pair(host, sample);
            pair.Inquire();
            RefuseViewMessage(static_cast<int>(n));
            pair.Batches();
            RefuseViewMessage(0);
            EXPECT_EQ(pair.Other.Received, expected) << sample.Map << " message " << n;
            pair.End();
        }
    }
}

TEST(Windows, AProcessThatEndsWithScreensOpenWithdrawsAll) {
    EXPECT_EXIT(
        {
            auto* const host = new BareHost;
            for (const Sample& sample : Samples()) {
                auto* const screen = new BareScreen(*host, sample);
                screen->Start();
            }
            host->OnCall = [host] {
                if (host->Subscribed.empty()) {
                    std::fputs("nothing is asked for\n", stderr);
                }
            };
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^nothing is asked for\n$");
}

}  // namespace
