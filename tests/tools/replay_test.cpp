// What a replay shows, from the capture to the text.
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

#include "tests/tools/tool_runs.h"
#include "tools/capture.h"
#include "tools/emitters.h"
#include "tools/screens/screen.h"

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

const tools::Timestamp kEvening = tools::ParseDate("20261120") + hours(20);

class ReplayTest : public testing::Test {
protected:
    void Packet(milliseconds after, const std::string& bytes) {
        m_Writer.Packet(kEvening + after, bytes.data(), bytes.size());
    }
    void Trade(milliseconds after, const std::string& code, int32_t price, int32_t volume) {
        tools::Stock stock{code, price, {}, price};
        stock.TotalVolume = 1000 + volume;
        const auto whole = tools::MakeTrade({&stock, volume, 0, {}, {}, 1}, kEvening + after);
        m_Writer.Packet(kEvening + after, &whole, sizeof(whole));
    }
    void Nav(milliseconds after, bool close, int64_t closing) {
        const auto whole = tools::MakeNav({"FUND01", 999'9950, closing, -1}, close);
        m_Writer.Packet(kEvening + after, &whole, sizeof(whole));
    }
    void EndBatch(milliseconds after) { m_Writer.BatchEnd(kEvening + after); }

    // The replay's text, without what depends on the machine.
    std::string Replay(const std::string& options, const std::string& workspace) {
        m_Writer.Close();
        const std::string file = m_Folder.Write("test.workspace", workspace);
        const Outcome outcome =
            RunTool("tickreplay", options + " " + file + " " + m_Folder.Path("test.pcap"));
        EXPECT_EQ(outcome.Status, 0);
        std::istringstream lines(outcome.Text);
        std::string text;
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with("  seconds:") && !line.starts_with("  packets/s:")) {
                text += line + "\n";
            }
        }
        return text;
    }

private:
    ScratchFolder m_Folder;
    tools::CaptureWriter m_Writer{m_Folder.Path("test.pcap")};
};

TEST_F(ReplayTest, LastImagesAndSummary) {
    Trade(milliseconds(0), "ASII", 1000, 3);
    Trade(milliseconds(1), "OTHER", 77, 1);
    Trade(milliseconds(2), "ASII", 995, 12);
    EndBatch(milliseconds(3));
    Nav(milliseconds(1000), false, 0);
    Nav(milliseconds(1000), true, 1000'5000);
    Packet(milliseconds(1000), "~odd");
    Packet(milliseconds(1000), "A" + std::string(99, ' '));
    Packet(milliseconds(1000), "A" + std::string(101, ' '));
    EndBatch(milliseconds(1001));
    Trade(milliseconds(500), "ASII", 12345, 1);
    EXPECT_EQ(Replay("--rows 2",
                     "# Two screens\n"
                     "RSTICK11_R 1ASII Date=20261119 Head.Reserved3=\"a \\b\x80\" Tag=zz\r\n"
                     "\tRSETFNAV_R  1FUND01 BaseValue=999.995\n"),
              "RSTICK11_R 1ASII: 2 messages, 3 rows\n"
              "  Tag:            zz\n"
              "  Head.Period:    A\n"
              "  Head.RowAction: 2\n"
              "  Head.Price:     12345\n"
              "  Head.Quantity:  1001\n"
              "  Head.Reserved3: a \\\\b\\x80\n"
              "  Repeat.Count:   1\n"
              "  Repeat.Size:    38\n"
              "  Date      Time    Price  Volume\n"
              "  20261119  200000    995      12\n"
              "  20261119  200000  12345       1\n"
              "\n"
              "RSETFNAV_R 1FUND01: 1 message, 0 rows\n"
              "  Tag:          01\n"
              "  Field1.Color: 5\n"
              "  Field1.Value: 1000.00\n"
              "  Field2.Color: 1\n"
              "  Field2.Value: 1000.50\n"
              "  Field3.Color: 4\n"
              "  Field3.Value: 0.00\n"
              "\n"
              "Summary\n"
              "  packets:        9\n"
              "  batches:        3\n"
              "  messages:       3\n"
              "  rows:           3\n"
              "  subscriptions:  2 added, 2 deleted, 1 cancelled\n"
              "  2 A packets of wrong length (expected 100 payload bytes; first at record 8: 99)\n"
              "  1 record of unknown type 0x7e (first at record 7)\n"
              "  1 packet behind the last batch mark: a last batch was closed for them\n"
              "  the capture's time steps back 1 time\n");
}

// Buffers in the order in which they come, and the module's day on the exchange's clock: already tomorrow.
TEST_F(ReplayTest, FollowsOnTheExchangesClock) {
    Trade(milliseconds(0), "ASII", 1000, 3);
    EndBatch(milliseconds(250));
    const std::string text =
        Replay("--follow --utc-offset +07:30",
               "RSTICK11_R 1ASII \"Date=        \"\nRSTICK11_R 1ASII\nRSTICK11_R 2ASII\n");
    const auto buffer = [](const std::string& tag) {
        return "03:30:00.250 RSTICK11_R 1ASII\n  Tag:            " + tag +
               "\n  Head.Period:    A\n  Head.RowAction: 2\n  Head.Price:     1000\n  Head.Quantity:  1003\n"
               "  Repeat.Count:   1\n  Repeat.Size:    38\n"
               "  Date      Time    Price  Volume\n  20261121  200000   1000       3\n";
    };
    const std::string begin = buffer("00") + buffer("01") + "RSTICK11_R 1ASII: 1 message, 1 row\n";
    EXPECT_EQ(text.substr(0, begin.size()), begin);
    EXPECT_NE(text.find("RSTICK11_R 2ASII: 0 messages, 0 rows\n\nSummary\n"), std::string::npos);
}

// The chart goes on from the inquiry's candle. A row that updates takes the place of the newest.
TEST_F(ReplayTest, AChartBeginsWithTheInquirysRow) {
    Trade(milliseconds(0), "ASII", 1000, 3);
    EndBatch(milliseconds(400));
    Trade(milliseconds(500), "ASII", 1004, 1);
    EndBatch(milliseconds(800));
    const std::string text = Replay("",
                                    "RSCAND11_R 1ASII Period=J Row.Time=195930 Row.Open=1003 Row.High=1005 "
                                    "Row.Low=999 Row.Volume=7\n");
    EXPECT_EQ(text.substr(text.find("  Date"), text.find("\n\n") - text.find("  Date")),
              "  Date      Time    Open  High  Low  Close  Volume  Value\n"
              "  20261120  200000  1003  1005  999   1004      11\n"
              "  1005 ||\n  1004 |o\n  1003 |o\n  1002 ||\n  1001 ||\n  1000 ||\n"
              "   999 ||\n       +-\n        20:00:00");
}

// Never ahead of the capture's time; a step back in it does not hold the replay up.
TEST_F(ReplayTest, SpeedHoldsTheReplayBack) {
    Trade(milliseconds(0), "ASII", 1000, 3);
    Trade(milliseconds(2000), "ASII", 1000, 3);
    Trade(milliseconds(-1000), "ASII", 1000, 3);
    EndBatch(milliseconds(3000));
    const auto start = std::chrono::steady_clock::now();
    Replay("--speed 20", "RSTICK11_R 1ASII\n");
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(150));
}

// From one program into the other, over a pipe.
TEST(Replay, TakesWhatFeedgenWrites) {
    const ScratchFolder folder;
    const std::string screens = folder.Write("s", "RSTICK11_R 1ASII\nRSETFNAV_R 1FUND01\n");
    const Outcome outcome = RunTool("feedgen", std::string("--packets 5000 --output - | ") + TOOL_DIR +
                                                   "/tickreplay --strict " + screens + " -");
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Text.find("of wrong length"), std::string::npos) << outcome.Text;
    EXPECT_NE(outcome.Text.find("\n  subscriptions:  2 added, "), std::string::npos) << outcome.Text;
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
