#include <gtest/gtest.h>

#include "layouts/RITRDE02.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

using Events = std::vector<std::string>;

std::string Row(const std::string& key) {
    return std::string(130, '.') + Left(key, 4);
}

std::string Inquiry(const std::vector<std::string>& keys, const std::string& size = "134") {
    std::string rows;
    for (const std::string& key : keys) {
        rows += Row(key);
    }
    return "B1" + Block(std::to_string(keys.size()), size, rows);
}

TEST(IndexBoard, ChangedRowsLeaveInBoardOrderOnceABatch) {
    Terminal terminal;
    auto screen = terminal.Open("RITRDE02_R", Inquiry({"AAAA", "BBBB", "CCCC", "BBBB"}));
    EXPECT_EQ(terminal.Events(), (Events{"add A [AAAA       ] 4 8000000", "add A [BBBB       ] 4 8000000",
                                         "add A [CCCC       ] 4 8000000", "add A [BBBB       ] 4 8000000"}));
    terminal.Feed(IndexUpdate("CCCC").Index(100000).Change('1', 100000));
    terminal.Feed(IndexUpdate("BBBB").Index(1));
    terminal.Feed(IndexUpdate("DDDD"));
    terminal.Feed(IndexUpdate("BBBB")
                      .Time("101112")
                      .Index(9900001)
                      .Change('5', 99999)
                      .TotalVolume(7)
                      .TotalValue(8)
                      .Counts(1, 2, 3, 4, 5));
    terminal.EndBatch();
    const std::string dots(10, '.');
    const std::string second = dots + "4        990.0001" + "5" + "4          9.9999" + "4    1.00" +
                               "    1    2    3    4        5" + Right("7", 15) + Right("8", 18) +
                               std::string(8, '.') + "101112BBBB";
    const std::string third = dots + "1         10.0000" + "1" + "1         10.0000" + "1    0.00" +
                              "    1    2    3    4        5" + Right("100", 15) + Right("0", 18) +
                              std::string(8, '.') + "090000CCCC";
    EXPECT_TRUE(
        (ShowsRows<PlainRows, IndexBoardRow>(screen->Next(), "B1" + Block("2", "134", second + third))));
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty());
}

TEST(IndexBoard, AnotherInquiryAddsBeforeItDeletes) {
    Terminal terminal;
    auto screen = terminal.Open("RITRDE02_R", Inquiry({"AAAA", "BBBB"}));
    terminal.Feed(IndexUpdate("AAAA"));
    terminal.Events();
    EXPECT_EQ(screen->Init(Inquiry({"BBBB"})), 1);
    EXPECT_EQ(terminal.Events(), (Events{"add A [BBBB       ] 4 8000000", "delete A [AAAA       ] 4 8000000",
                                         "delete A [BBBB       ] 4 8000000"}));
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty()) << "changes of the former board are gone";
    screen->Stop();
    EXPECT_EQ(screen->Init(Inquiry({"CCCC"})), 1);
    terminal.Events();
    screen->Release();
    screen->Unregister();
    EXPECT_EQ(terminal.Events(), Events{"delete A [CCCC       ] 4 8000000"});
}

TEST(IndexBoard, ARefusedInquiryKeepsTheSubscriptions) {
    Terminal terminal;
    auto screen = terminal.Open("RITRDE02_R", Inquiry({"AAAA"}));
    terminal.Events();
    const std::string whole = Inquiry({"BBBB", "CCCC"});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(screen->Init(whole.substr(0, length)), 0) << length;
    }
    EXPECT_EQ(screen->Init(whole + " "), 0);
    EXPECT_EQ(screen->Init(Inquiry({})), 0);
    EXPECT_EQ(screen->Init(Inquiry({"BBBB", "CCCC"}, "133")), 0);
    EXPECT_EQ(screen->Init("B1" + Block("-1", "134")), 0);
    EXPECT_EQ(terminal.Events(), Events{});
    EXPECT_EQ(screen->Init(Inquiry({"BBBB"})), 1);
    EXPECT_EQ(terminal.Events(),
              (Events{"add A [BBBB       ] 4 8000000", "delete A [AAAA       ] 4 8000000"}));
}

}  // namespace
