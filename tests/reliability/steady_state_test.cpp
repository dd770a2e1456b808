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

// A screen that runs, and counts its messages.
class CountedScreen : public BareScreen {
public:
    CountedScreen(BareHost& host, const Sample& sample, int64_t& messages)
        : BareScreen(host, sample), m_Host(host) {
        Keeps = false;
        EXPECT_NE(Regist(), 0);
        EXPECT_EQ(InitFirst(), 1);
        host.OnCall = [&messages] { ++messages; };
    }
    ~CountedScreen() {
        m_Host.OnCall = [] {};
        Unregist();
    }
    CountedScreen(const CountedScreen&) = delete;
    CountedScreen& operator=(const CountedScreen&) = delete;

private:
    BareHost& m_Host;
};

// A message takes the buffer and its queue item. What a packet leaves behind for good, an order's row or a
// notice that waits, takes its block once in many packets.
TEST(SteadyState, HandlersAllocateNothingAndASendTwoBlocks) {
    BareHost host;
    for (const Sample& sample : Samples()) {
        if (sample.Map == "RSNOCH21_R" || sample.Map == "RSORDE21_R" || sample.Map == "RSORDE22_R") {
            continue;  // each of the samples is a new order
        }
        int64_t messages = 0;
        CountedScreen screen(host, sample, messages);
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
    }
}

TEST(SteadyState, AQueueThatNeverEmptiesKeepsItsRoom) {
    BareHost host;
    const Sample& sample = SampleOf("RRNEWS01_R");
    int64_t messages = 0;
    CountedScreen screen(host, sample, messages);
    std::string headline = sample.Packets.front();
    const auto feed = [&headline](int headlines) {
        for (; headlines > 0; --headlines) {
            PutRTMPacketToDecoder(headline.data(), static_cast<int>(headline.size()));
        }
    };
    feed(4);
    const int64_t asked = AllocationsOf([&feed] {
        for (int batch = 0; batch < 1000; ++batch) {
            feed(1);
            BareScreen::EndBatch();  // sends one
        }
    });
    EXPECT_EQ(messages, 1000);
    EXPECT_LE(asked, 2 * messages + 1) << "a message's blocks, and the queue's nodes";
}

}  // namespace
