// What the packet path may allocate once its containers have their room.
#include <gtest/gtest.h>

#include "tests/reliability/allocations.h"
#include "tests/reliability/bare_host.h"

namespace {

int64_t AllocationsOf(const std::function<void()>& work) {
    const heap::Failing counted(0);
    work();
    return heap::Failing::Asked();
}

// A message takes the buffer and its queue item. What a packet leaves behind for good, an order's row or a
// notice that waits, takes its block once in many packets.
TEST(SteadyState, HandlersAllocateNothingAndASendTwoBlocks) {
    BareHost host;
    for (const Sample& sample : Samples()) {
        if (sample.Map == "RSNOCH21_R" || sample.Map == "RSORDE21_R" || sample.Map == "RSORDE22_R") {
            continue;  // each of the samples is a new order
        }
        BareScreen screen(host, sample);
        screen.Keeps = false;
        ASSERT_NE(screen.Regist(), 0);
        ASSERT_EQ(screen.InitFirst(), 1);
        int64_t messages = 0;
        host.OnCall = [&messages] { ++messages; };
        for (int round = 0; round < 40; ++round) {
            screen.Feed();
            BareScreen::EndBatch();
        }
        messages = 0;
        const int64_t fed = AllocationsOf([&screen] { screen.Feed(); });
        EXPECT_LE(fed, 2 * messages) << sample.Map << " in the handlers";
        messages = 0;
        const int64_t ended = AllocationsOf([] { BareScreen::EndBatch(); });
        EXPECT_LE(ended, 2 * messages) << sample.Map << " at the batch end";
        host.OnCall = [] {};
        screen.Unregist();
    }
}

}  // namespace
