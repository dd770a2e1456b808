// A long day: what the module keeps is bounded by what it shows.
#include <algorithm>
#include <memory>

#include "host/services/services.h"
#include "module/layouts/RSTICK11.h"
#include "module/layouts/RSTRBK01.h"
#include "tests/reliability/bare_host.h"
#include "tests/support/inquiries.h"
#include "tests/support/orders.h"

namespace {

using Screens = std::vector<std::unique_ptr<BareScreen>>;

constexpr std::size_t kCopies = 4;

Screens FourOfEachMap(BareHost& host) {
    Screens screens;
    for (const Sample& sample : Samples()) {
        for (std::size_t copy = 0; copy < kCopies; ++copy) {
            screens.push_back(std::make_unique<BareScreen>(host, sample));
            screens.back()->Keeps = false;
            screens.back()->Regist();
        }
    }
    return screens;
}

// Seven digits from 0000001 on; 0000000 would be the parent of every order.
std::string OrderNumber(int number) {
    return std::to_string(10000001 + number).substr(1);
}

// A batch of a few at a time.
void FeedAll(int packets) {
    constexpr int kBatch = 8;
    const Buffers& all = SamplePackets();
    for (int i = 0; i < packets; ++i) {
        ModuleForm::Put(all[static_cast<std::size_t>(i) % all.size()]);
        if (i % kBatch == 0) {
            BareScreen::EndBatch();
            tickhost_pump_messages();
        }
    }
}

// First each screen asks anew every ten minutes. Then none does, which would clear what a screen has not
// given back by itself.
TEST(LongDay, TheHeapIsAtTheLastHourAsAtTheSecond) {
    constexpr int kHours = 4;
    constexpr int kInquiries = 6;
    const int packets = ShortOrLong(100000, 20000000) / (2 * kHours * kInquiries);
    FourOfEachMap(*std::make_unique<BareHost>());
    const int64_t blocksBefore = heap::InUse().Blocks;
    {
        BareHost host;
        Screens screens = FourOfEachMap(host);
        for (const bool asking : {true, false}) {
            for (std::size_t i = 0; i < screens.size() && !asking; ++i) {
                // It has a row for each sending, and grows.
                Samples()[i / kCopies].Map == "RSORDE22_R" ? screens[i]->Stop() : 0;
            }
            heap::Use second{};
            for (int turn = 1; turn <= kHours * kInquiries; ++turn) {
                for (std::size_t i = 0; i < screens.size() && asking; ++i) {
                    turn % 2 != 0 ? screens[i]->InitSecond() : screens[i]->InitFirst();
                }
                FeedAll(packets);
                if (turn == 2 * kInquiries) {
                    second = heap::InUse();
                }
            }
            EXPECT_EQ(heap::InUse().Blocks, second.Blocks) << "asking " << asking;
            EXPECT_EQ(heap::InUse().Bytes, second.Bytes) << "asking " << asking;
        }
        screens.clear();
        tickhost_pump_messages();
        EXPECT_TRUE(host.Subscribed.empty());
    }
    EXPECT_LE(heap::InUse().Blocks - blocksBefore, 40) << "what the host itself keeps";
}

// Lists grow with their rows, by what a row takes and no more than twice that.
TEST(LongDay, ListsThatGrowTakeWhatTheirRowsTake) {
    struct Growing {
        const char* Map;
        std::size_t RowBytes;
        std::string (*Packet)(int number);
    };
    const auto order = [](int number) { return Accepted(OrderNumber(number), 100).Bytes(); };
    const auto early = [](int number) { return Filled(OrderNumber(number), 1, "1000").Bytes(); };
    const auto price = [](int number) { return Trade("1ASII").Price(number + 1).Bytes(); };
    const Growing lists[] = {{"RSNOCH21_R", 280, order},
                             {"RSNOCH21_R", 240, early},
                             {"RSORDE21_R", 280, order},
                             {"RSORDE22_R", 280, order},
                             {"RSTRBK01_R", sizeof(PriceRow) + 40, price}};
    constexpr int kRows = 20000;
    BareHost host;
    for (const Growing& list : lists) {
        BareScreen screen(host, SampleOf(list.Map));
        screen.Keeps = false;
        screen.Start();
        const int64_t before = heap::InUse().Bytes;
        for (int number = 0; number < kRows; ++number) {
            ModuleForm::Put(list.Packet(number));
        }
        tickhost_pump_messages();
        const auto grown = static_cast<std::size_t>(heap::InUse().Bytes - before) / kRows;
        EXPECT_GE(grown, list.RowBytes / 2) << list.Map;
        EXPECT_LE(grown, list.RowBytes * 2) << list.Map;
    }
}

// Its queue takes a buffer and an item for each message; screens beside it are as they were.
TEST(LongDay, AWindowThatNeverFetchesCostsMemoryAlone) {
    const int batches = ShortOrLong(5000, 1000000);
    BareHost host;
    const Sample& sample = SampleOf("RSTICK11_R");
    BareScreen silent(host, sample);
    BareScreen fetching(host, sample);
    silent.StopFetching();
    ASSERT_TRUE(silent.Start() && fetching.Start());
    const std::string packet = Trade("1ASII").Bytes();
    const auto batch = [&packet] {
        ModuleForm::Put(packet);
        BareScreen::EndBatch();
    };
    batch();
    const Buffers first = fetching.Received;
    const heap::Use before = heap::InUse();
    fetching.Keeps = false;
    for (int i = 0; i < batches; ++i) {
        batch();
    }
    const heap::Use after = heap::InUse();
    constexpr int64_t kItemAndBuffer = sizeof(ViewItem) + sizeof(HeadedRows) + sizeof(TickRow);
    EXPECT_GE(after.Bytes - before.Bytes, batches * kItemAndBuffer);
    EXPECT_LE(after.Bytes - before.Bytes, batches * kItemAndBuffer * 3 / 2);
    EXPECT_LE(after.Blocks - before.Blocks, batches * 21 / 10 + 2) << "nodes come ten at a time";
    fetching.Keeps = true;
    fetching.Received.clear();
    batch();
    EXPECT_EQ(fetching.Received, first);
    silent.Stop();
    EXPECT_LE(heap::InUse().Blocks - before.Blocks, batches / 10 + 10) << "only the queue's room stays";
    silent.Unregister();
    fetching.Unregister();
    EXPECT_LE(heap::InUse().Bytes, before.Bytes);
}

}  // namespace
