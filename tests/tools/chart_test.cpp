// Charts: how candles are drawn.
#include <chrono>
#include <string>
#include <vector>

#include "tests/tools/small_capture.h"
#include "tools/screens/candle_chart.h"

namespace {

using tools::ChartText;

TEST(CandleChart, DrawsBodiesRangesScaleAndTimes) {
    EXPECT_EQ(ChartText({{"090100", 1000, 1015, 995, 1010},
                         {"090200", 1010, 1012, 1000, 1000},
                         {"090300", 1000, 1003, 1000, 1000},
                         {"090317", 1000, 1020, 1000, 1020}},
                        0),
              "  1020 |   o\n"
              "  1015 ||  o\n"
              "  1010 |o# o\n"
              "  1005 |o#|o\n"
              "  1000 |o#-o\n"
              "   995 ||\n"
              "       +----\n"
              "        09:01:00\n");
    EXPECT_EQ(ChartText({}, 0), "");
    EXPECT_EQ(ChartText({{"090100", 7, 7, 7, 7}}, 0), "  7 |-\n    +-\n     09:01:00\n");
}

// An index closes where its latest update stands, which may lie outside of the bar's range.
TEST(CandleChart, DecimalsAndAColumnForEachTime) {
    std::vector<tools::Candle> candles(11, {"090100", 7000'000, 7000'000, 7000'000, 7000'000});
    candles[10] = {"091100", 7000'000, 7000'000, 7000'000, 6999'998};
    EXPECT_EQ(ChartText(candles, 3),
              "  7000.000 |----------#\n"
              "  6999.999 |          #\n"
              "  6999.998 |          #\n"
              "           +-----------\n"
              "            09:01:00  09:11:00\n");
}

// The chart goes on from the inquiry's candle. A row that updates takes the place of the newest.
TEST_F(SmallCapture, AChartBeginsWithTheInquirysRow) {
    Now += std::chrono::hours(11);
    Trade(1000, 3);
    Now += std::chrono::milliseconds(400);
    EndBatch();
    Trade(1004, 1);
    Now += std::chrono::milliseconds(400);
    EndBatch();
    const std::string text = Replay("",
                                    "RSCAND11_R 1ASII Period=J Row.Time=195930 Row.Open=1003 Row.High=1005 "
                                    "Row.Low=999 Row.Volume=7\n");
    EXPECT_EQ(text.substr(text.find("  Date")),
              "  Date      Time    Open  High  Low  Close  Volume  Value\n"
              "  20261120  200000  1003  1005  999   1004      11\n"
              "  1005 ||\n  1004 |o\n  1003 |o\n  1002 ||\n  1001 ||\n  1000 ||\n"
              "   999 ||\n       +-\n        20:00:00\n\n");
}

}  // namespace
