// Every allocation fails: in its turn alone, and from then on.
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/reliability/bare_host.h"

namespace {

using heap::Failing;
using heap::Failure;
using heap::Spared;

// Refused without memory, these two leave the former stock asked for: the monitor has dropped its set by
// then, and the table of volume by price has taken the new stock.
bool ForgetsTheFormer(const Sample& sample) {
    return sample.Map == "RSFLDN01_R" || sample.Map == "RSTRBK01_R";
}

// What a screen shows of one inquiry and its packets.
Buffers Shown(BareScreen& screen) {
    screen.Received.clear();
    EXPECT_EQ(screen.InitFirst(), 1);
    screen.Feed();
    BareScreen::EndBatch();
    return screen.Received;
}

Buffers ShownByANewOne(BareHost& host, const Sample& sample) {
    BareScreen screen(host, sample);
    EXPECT_TRUE(screen.Regist());
    return Shown(screen);
}

// An Init that is refused has asked for nothing.
template <class Init>
int Tried(const BareHost& host, Init init) {
    const int before = host.nRequests;
    const int result = init();
    const Spared spared;
    EXPECT_TRUE(result == 1 || host.nRequests == before);
    return result;
}

// A whole life, of which one allocation or all from one on fail. False: there are not so many.
bool Live(BareHost& host, const Sample& sample, int64_t n, Failure failure, const Buffers& expected) {
    host.World.WatchGroups();
    BareScreen screen(host, sample);
    const Failing failing(n, failure);
    int refused = 0;
    if (screen.Regist()) {
        refused |= 1 - Tried(host, [&] { return screen.InitFirst(); });
        screen.Feed();
        screen.Feed();
        BareScreen::EndBatch();
        {
            const Spared spared;
            sample.Map == "RSFLDN01_R" ? host.World.WatchMarket() : void();
        }
        refused |= 1 - Tried(host, [&] { return screen.InitSecond(); });
        if (sample.Map == "RSFLDN01_R") {
            tickhost_set_tobrin_account(1);
            refused |= 1 - Tried(host, [&] { return screen.InitFirst(); });
            tickhost_set_tobrin_account(0);
        }
        screen.Feed();
        BareScreen::EndBatch();
        BareScreen::EndBatch();
        StopView();
        screen.Stop();
        {
            const Spared spared;
            host.World.WatchGroups();
            EXPECT_EQ(Shown(screen), expected) << "a fresh inquiry";
        }
        screen.Release();
        screen.Unregister();
    }
    const Spared spared;
    if (refused == 0 || !ForgetsTheFormer(sample)) {
        EXPECT_TRUE(host.Subscribed.empty()) << host.Subscribed.begin()->first;
    }
    host.Subscribed.clear();
    return Failing::Hit();
}

TEST(Allocations, AlignedOnesFailAndCountAsOthersDo) {
    constexpr std::align_val_t kPage{4096};
    const int64_t before = heap::InUse().Blocks;
    const Failing failing(2, Failure::FromThenOn);
    void* const block = operator new(1, kPage);
    EXPECT_EQ(heap::InUse().Blocks, before + 1);
    EXPECT_THROW(operator delete(operator new(1, kPage), kPage), std::bad_alloc);
    EXPECT_EQ(operator new(1, kPage, std::nothrow), nullptr);
    operator delete(block, kPage);
    EXPECT_EQ(heap::InUse().Blocks, before);
}

TEST(Allocations, EachMayFailOnceOrForGood) {
    BareHost host;
    // Short: the host's table has a name as long as the type guard's.
    std::string name = "alloc" + std::to_string(getpid());
    SetMutexNameToDecoder(name.data());
    for (const Sample& sample : Samples()) {
        const Buffers expected = ShownByANewOne(host, sample);
        Live(host, sample, 0, Failure::Once, expected);
        for (const Failure failure : {Failure::Once, Failure::FromThenOn}) {
            for (int64_t n = 1;; ++n) {
                SCOPED_TRACE(sample.Map + " allocation " + std::to_string(n));
                const int64_t before = heap::InUse().Blocks;
                const bool more = Live(host, sample, n, failure, expected);
                EXPECT_EQ(heap::InUse().Blocks, before);
                if (!more || testing::Test::HasFailure()) {
                    break;
                }
            }
        }
    }
    SetMutexNameToDecoder(nullptr);
}

}  // namespace
