// What is lost when memory fails: of packets the row alone, of a batch end nothing or the buffer alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "module/layouts/RSCAND11.h"
#include "tests/reliability/bare_host.h"
#include "tests/support/inquiries.h"

namespace {

// Packets enough that every array has to grow.
constexpr int kRounds = 6;

// Maps whose next batch end tries again with all rows. The others send a picture or at once; order lists keep
// their marks until the next change.
constexpr std::string_view kRetry[] = {"RINTIK01_R", "RITRDE02_R", "RRNEWS01_R", "RRPASS01_R", "RSDONE01_R",
                                       "RSFLDN01_R", "RSITST01_R", "RSTICK11_R", "RSTRBK01_R"};

// Maps whose buffers are rows that stand for themselves: where the first one begins, and the step.
struct RowList {
    std::string_view Map;
    std::size_t Front;
    std::size_t Step;
};
constexpr RowList kRowLists[] = {{"RINTIK01_R", 26, 67}, {"RINTIK11_R", 0, 156}, {"RRNEWS01_R", 0, 158},
                                 {"RSDONE01_R", 26, 79}, {"RSFLDN01_R", 26, 98}, {"RSTICK11_R", 112, 38}};

Buffers RowsOf(const Buffers& received, const RowList& list) {
    Buffers rows;
    for (const std::string& buffer : received) {
        for (std::size_t at = list.Front; at < buffer.size(); at += list.Step) {
            rows.push_back(buffer.substr(at, list.Step));
        }
    }
    return rows;
}

bool IsWithoutOne(const Buffers& some, const Buffers& all) {
    const auto split = std::mismatch(some.begin(), some.end(), all.begin(), all.end());
    return some.size() + 1 == all.size() && std::equal(split.first, some.end(), split.second + 1, all.end());
}

void FeedRounds(const BareScreen& screen) {
    for (int round = 0; round < kRounds; ++round) {
        screen.Feed();
    }
}

// Until nothing more comes, which is at once but for headlines.
void EndBatches(const BareScreen& screen) {
    for (std::size_t before = screen.Received.size() + 1; before != screen.Received.size();) {
        before = screen.Received.size();
        BareScreen::EndBatch();
    }
}

// What the screen has received when the n-th allocation fails, of those in packets or in the batch end.
enum class During { Packets, BatchEnd };
Buffers Received(BareHost& host, const Sample& sample, During phase, int64_t n, bool& hit) {
    BareScreen screen(host, sample);
    screen.Start();
    {
        const heap::Failing failing(phase == During::Packets ? n : 0);
        FeedRounds(screen);
        hit = heap::Failing::Hit();
    }
    {
        const heap::Failing failing(phase == During::BatchEnd ? n : 0);
        BareScreen::EndBatch();
        hit = hit || heap::Failing::Hit();
    }
    EndBatches(screen);
    return screen.Received;
}

TEST(LostRows, APacketWithoutMemoryLosesItsRowAlone) {
    BareHost host;
    for (const RowList& list : kRowLists) {
        const Sample& sample = SampleOf(std::string(list.Map));
        bool hit = false;
        const Buffers all = RowsOf(Received(host, sample, During::Packets, 0, hit), list);
        int64_t n = 1;
        for (hit = true; hit; ++n) {
            const Buffers some = RowsOf(Received(host, sample, During::Packets, n, hit), list);
            EXPECT_TRUE(hit ? IsWithoutOne(some, all) : some == all) << list.Map << " allocation " << n;
        }
        EXPECT_GT(n, 2);
    }
}

TEST(LostRows, ABatchEndWithoutMemoryTriesAgainAndFreesWhatCannotBeQueued) {
    BareHost host;
    for (const Sample& sample : Samples()) {
        bool hit = false;
        const Buffers all = Received(host, sample, During::BatchEnd, 0, hit);
        const bool retries = std::find(std::begin(kRetry), std::end(kRetry), sample.Map) != std::end(kRetry);
        int64_t n = 1;
        for (hit = true; hit; ++n) {
            const int64_t before = heap::InUse().Blocks;
            {
                const Buffers some = Received(host, sample, During::BatchEnd, n, hit);
                const bool nothingLost = !hit || (n == 1 && retries);
                EXPECT_TRUE(nothingLost ? some == all : some == all || IsWithoutOne(some, all))
                    << sample.Map << " allocation " << n;
            }
            EXPECT_EQ(heap::InUse().Blocks, before) << sample.Map << " allocation " << n;
        }
    }
}

TEST(LostRows, ABarWithoutMemoryIsMergedAndLeavesItsBucketOpen) {
    BareHost host;
    const std::string row =
        RowOf<StockCandleRow>({"20261120", "090130", "1000", "1010", "990", "1005", "40"});
    const Rows bars = {Bar("1ASII", "090300").Volume(7).Bytes(), Bar("1ASII", "090400").Volume(9).Bytes()};
    const Sample chart = {"RSCAND11_R", "D", CandleInquiry("1ASII", 'E').Row(row), "", bars};
    BareScreen screen(host, chart);
    screen.Start();
    {
        const heap::Failing failing(1);
        screen.Feed();
    }
    ASSERT_EQ(screen.Received.size(), 1U) << "the first is lost";
    EXPECT_EQ(screen.Received[0].substr(3, 1) + screen.Received[0].substr(158, 10), "1        56");
}

}  // namespace
