// What the packet path may allocate once its containers have their room.
#include <gtest/gtest.h>

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
        ASSERT_TRUE(screen.Start());
        for (int round = 0; round < 40; ++round) {
            screen.Feed();
            BareScreen::EndBatch();
        }
        host.nItems = 0;
        const int64_t fed = AllocationsOf([&screen] { screen.Feed(); });
        EXPECT_LE(fed, 2 * host.nItems) << sample.Map << " in the handlers";
        host.nItems = 0;
        const int64_t ended = AllocationsOf([] { BareScreen::EndBatch(); });
        EXPECT_LE(ended, 2 * host.nItems) << sample.Map << " at the batch end";
    }
}

TEST(SteadyState, AQueueThatNeverEmptiesKeepsItsRoom) {
    BareHost host;
    const Sample& sample = SampleOf("RRNEWS01_R");
    BareScreen screen(host, sample);
    ASSERT_TRUE(screen.Start());
    screen.Feed();  // some headlines, of which each batch end sends one
    const int64_t asked = AllocationsOf([&sample] {
        for (int batch = 0; batch < 1000; ++batch) {
            ModuleForm::Put(sample.Packets.front());
            BareScreen::EndBatch();
        }
    });
    EXPECT_EQ(host.nItems, 1000);
    EXPECT_LE(asked, 2 * host.nItems + 1) << "a message's blocks, and the queue's nodes";
}

}  // namespace
