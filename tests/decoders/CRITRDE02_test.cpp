#include "layouts/RITRDE02.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

constexpr char kBoard[] = "8000000";

class IndexBoard : public ScreenTest {
protected:
    IndexBoard() : ScreenTest("RITRDE02_R") {}
};

TEST_F(IndexBoard, ChangedRowsLeaveInBoardOrderOnceABatch) {
    Open(IndexBoardInquiry({"AAAA", "BBBB", "CCCC", "BBBB"}));
    EXPECT_EQ(Told(), (Events{Added('A', "AAAA", kBoard), Added('A', "BBBB", kBoard),
                              Added('A', "CCCC", kBoard), Added('A', "BBBB", kBoard)}));
    Feed(IndexUpdate("CCCC").Index(100000).Change('1', 100000), IndexUpdate("BBBB").Index(1));
    Feed(IndexUpdate("DDDD"));
    IndexUpdate update = IndexUpdate("BBBB").Time("101112").Index(9900001).Change('5', 99999);
    Batch(update.TotalVolume(7).TotalValue(8).Counts(1, 2, 3, 4, 5));
    const std::string dots(10, '.');
    const std::string second = dots + "4        990.0001" + "5" + "4          9.9999" + "4    1.00" +
                               "    1    2    3    4        5" + Right("7", 15) + Right("8", 18) +
                               std::string(8, '.') + "101112BBBB";
    const std::string third = dots + "1         10.0000" + "1" + "1         10.0000" + "1    0.00" +
                              "    1    2    3    4        5" + Right("100", 15) + Right("0", 18) +
                              std::string(8, '.') + "090000CCCC";
    const std::string sent = "B1" + BlockOf({second, third}, "134");
    EXPECT_TRUE((ShowsRows<PlainRows, IndexBoardRow>(m_Screen->Next(), sent)));
    EXPECT_TRUE(Silent());
}

TEST_F(IndexBoard, RefusesNoRowsAndRowsOfAnotherSize) {
    Open(IndexBoardInquiry({"AAAA"}));
    EXPECT_EQ(Init(IndexBoardInquiry({})) + Init(IndexBoardInquiry({"BBBB"}, "133")) +
                  Init("B1" + Block("-1", "134")),
              0);
}

}  // namespace
