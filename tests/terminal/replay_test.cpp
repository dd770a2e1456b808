// What a replay shows, from the capture to the text.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "terminal/screens/screen.h"
#include "tests/terminal/small_capture.h"

namespace {

using std::chrono::milliseconds;

class ReplayTest : public SmallCapture {
protected:
    void Nav(bool close, int64_t closing) { Write(tools::MakeNav({"FUND01", 999'9950, closing, -1}, close)); }
};

TEST_F(ReplayTest, LastImagesAndSummary) {
    Trade(1000, 3);
    Trade(995, 12);
    EndBatch();
    Now += milliseconds(1000);
    Nav(false, 0);
    Nav(true, 1000'5000);
    Write("~odd");
    Write("A" + std::string(99, ' '));
    Write("A" + std::string(101, ' '));
    EndBatch();
    Now -= milliseconds(500);
    Trade(12345, 1);
    EXPECT_EQ(Replay("--rows 2",
                     "# Two screens\n"
                     "RSTICK11_R 1ASII Date=20261119 Head.Reserved3=\"a \\b\x80\" Tag=zz\r\n"
                     "\tRSETFNAV_R  1FUND01 BaseValue=999.995\n"),
              "RSTICK11_R 1ASII: 2 messages, 3 rows\n"
              "  Tag:            zz\n  Head.Period:    A\n  Head.RowAction: 2\n  Head.Price:     12345\n"
              "  Head.Quantity:  16\n  Head.Reserved3: a \\\\b\\x80\n"
              "  Repeat.Count:   1\n  Repeat.Size:    38\n"
              "  Date      Time    Price  Volume\n  20261119  090000    995      12\n"
              "  20261119  090000  12345       1\n\n"
              "RSETFNAV_R 1FUND01: 1 message, 0 rows\n  Tag:          01\n"
              "  Field1.Color: 5\n  Field1.Value: 1000.00\n  Field2.Color: 1\n  Field2.Value: 1000.50\n"
              "  Field3.Color: 4\n  Field3.Value: 0.00\n\n");
    EXPECT_EQ(Summary,
              "Summary\n  packets:        11\n  batches:        3\n  messages:       3\n  rows:           3\n"
              "  subscriptions:  2 added, 2 deleted, 1 cancelled\n"
              "  2 A packets of wrong length (expected 100 payload bytes; first at record 9: 99)\n"
              "  1 record of unknown type 0x7e (first at record 8)\n"
              "  2 packets behind the last batch mark: a last batch was closed for them\n"
              "  the capture's time steps back 1 time\n");
}

// Buffers in the order in which they come, and the module's day on the exchange's clock: already tomorrow.
TEST_F(ReplayTest, FollowsOnTheExchangesClock) {
    Now += std::chrono::hours(11);
    Trade(1000, 3);
    Now += milliseconds(250);
    EndBatch();
    const auto buffer = [](const std::string& tag) {
        return "03:30:00.250 RSTICK11_R 1ASII\n  Tag:            " + tag +
               "\n  Head.Period:    A\n  Head.RowAction: 2\n  Head.Price:     1000\n  Head.Quantity:  3\n"
               "  Repeat.Count:   1\n  Repeat.Size:    38\n"
               "  Date      Time    Price  Volume\n  20261121  200000   1000       3\n";
    };
    const std::string text =
        Replay("--follow --utc-offset +07:30", "RSTICK11_R 1ASII \"Date=        \"\nRSTICK11_R 1ASII\n");
    EXPECT_TRUE(text.starts_with(buffer("00") + buffer("01") + "RSTICK11_R 1ASII: 1 message, 1 row\n"))
        << text;
}

// Never ahead of the capture's time; a step back in it does not hold the replay up.
TEST_F(ReplayTest, SpeedHoldsTheReplayBack) {
    for (const int step : {2000, -3000, 4000}) {
        Trade(1000, 3);
        Now += milliseconds(step);
    }
    EndBatch();
    const auto start = std::chrono::steady_clock::now();
    Replay("--speed 20", "RSTICK11_R 1ASII\n");
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(150));
}

// Reserved bytes of packets are named too.
TEST(Layouts, TellNoByteTwiceAndAreKeptAsAPage) {
    for (const tools::ScreenKind* kind : tools::ScreenKinds()) {
        std::vector<tools::LayoutTable> tables = kind->Display();
        tables.push_back(kind->MakeInit(kind->SampleKey, {}).Table());
        for (const tools::LayoutTable& table : tables) {
            std::size_t end = table.Offset;
            for (const tools::Field& field : table.Fields) {
                EXPECT_GE(field.Offset, end) << kind->Map << " " << field.Name;
                EXPECT_TRUE(field.Offset == end || !table.Title.ends_with("packet")) << field.Name;
                end = field.Offset + field.Width;
            }
            EXPECT_LE(end, table.Offset + table.Size) << kind->Map;
        }
    }
    EXPECT_EQ(RunTool("tickreplay", "--layouts").Text, ReadFile(SOURCE_DIR "/docs/layouts.md"))
        << "bring it up to date: tickreplay --layouts > docs/layouts.md";
}

}  // namespace
