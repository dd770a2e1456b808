// Windows that go, and windows that call back, at every point where the module calls out.
#include <gtest/gtest.h>

#include "tests/reliability/allocations.h"
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
    void End() {
        ReleaseMap(Disturbed.Handle);
        Disturbed.Unregist();
        Other.Unregist();
        Third.Unregist();
    }

    BareScreen Disturbed;
    BareScreen Other;
    BareScreen Third;  // comes later, if at all
};

Buffers Undisturbed(BareHost& host, const Sample& sample) {
    Pair pair(host, sample);
    pair.Inquire();
    pair.Batch();
    pair.Batch();
    pair.End();
    return pair.Other.Received;
}

// Both get a fresh inquiry and show the same of it, whatever was before.
void ExpectBothRecovered(Pair& pair, const std::string& what) {
    Buffers shown[2];
    for (BareScreen* screen : {&pair.Disturbed, &pair.Other}) {
        // Order lists keep over an inquiry their rows, if it has none, and the notice that came last.
        screen->InitFirst();
        pair.Batch();
        StopMap(screen->Handle);
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
                pair.Batch();
                pair.Batch();
                calls = HostCallsEnd();
                pair.End();
                EXPECT_EQ(pair.Other.Received, expected) << sample.Map << " call " << n;
            }
            tickhost_pump_messages();
            EXPECT_EQ(heap::InUse().Blocks, before) << sample.Map << " call " << n;
            EXPECT_TRUE(host.Open.empty());
        }
    }
}

struct Action {
    const char* Name;
    void (*Run)(Pair& pair);
};
constexpr Action kActions[] = {
    {"stop", [](Pair& pair) { StopMap(pair.Disturbed.Handle); }},
    {"release", [](Pair& pair) { ReleaseMap(pair.Disturbed.Handle); }},
    {"first Init", [](Pair& pair) { pair.Disturbed.InitFirst(); }},
    {"second Init", [](Pair& pair) { pair.Disturbed.InitSecond(); }},
    {"refused Init", [](Pair& pair) { pair.Disturbed.Init("x"); }},
    {"stop of the other", [](Pair& pair) { StopMap(pair.Other.Handle); }},
    {"release of the other", [](Pair& pair) { ReleaseMap(pair.Other.Handle); }},
    {"Init of the other", [](Pair& pair) { pair.Other.InitSecond(); }},
    {"packets", [](Pair& pair) { pair.Disturbed.Feed(); }},
    {"a batch", [](Pair& pair) { pair.Batch(); }},
    {"a new screen", [](Pair& pair) { pair.Third.Regist() != 0 ? pair.Third.InitFirst() : 0; }},
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
                    host.OnCall = [&] {
                        if (++messages == n) {
                            const int outer = messages;
                            action.Run(pair);
                            messages = outer;
                        }
                    };
                    pair.Inquire();
                    pair.Batch();
                    pair.Batch();
                    host.OnCall = [] {};
                    ExpectBothRecovered(pair, what);
                    pair.End();
                }
                tickhost_pump_messages();
                EXPECT_EQ(heap::InUse().Blocks, before) << what;
                EXPECT_TRUE(host.Open.empty()) << what << host.Open.begin()->first;
                host.Open.clear();
            }
        }
    }
}

}  // namespace
