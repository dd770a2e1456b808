// One printed page for each kind of printer, of a small capture.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "feed/news_packets.h"
#include "terminal/screens/candle_chart.h"
#include "terminal/screens/screen.h"
#include "tests/terminal/small_capture.h"

namespace {

using std::chrono::milliseconds;
using tools::ChartText;

using ScreensTest = SmallCapture;

TEST_F(ScreensTest, PacketsAsTheyCome) {
    Trade(1005, 3);
    Trade(-7, 12);
    Write(tools::MakeNews({7, "20", nullptr, "시장은 조용하다"}, Now));
    EndBatch();
    EXPECT_EQ(
        Replay("", "RDUMMY01_R 1ASII:AC,COMP:F\nRRPASS01_R 1ASII:AC,:T\n"),
        "RDUMMY01_R 1ASII:AC,COMP:F: 0 messages, 0 rows\n"
        "  Class  Key    Want\n  1      1ASII  10100000\n  A      COMP   00010000\n\n"
        "RRPASS01_R 1ASII:AC,:T: 3 messages, 0 rows\n"
        "  2 A packets, the newest:\n"
        "  Type=A  Key.Board=1  Key.Code=ASII  Time=090000  Sign=5  Broker1=B01  Broker1Class=D  "
        "Broker2=B03\n"
        "  Broker2Class=F  TradeRef=00000001  Price=-7  Change=1007  Open=1000  High=1005  Low=995  "
        "Best1Price=0\n"
        "  Best2Price=-6  TradeCount=2  Volume=12  TotalVolume=15  Value=0  TotalValue=293100  LotSize=100\n"
        "  1 T packet:\n"
        "  Type=T  NewsKind=1  Date=20261120  Time=090000  NewsRef2=DESK20  Category=20  "
        "NewsRef1=0000000007  Code=\n"
        "  Title=시장은 조용하다\n\n");
}

TEST_F(ScreensTest, PanelAndTableWithBars) {
    Trade(1000, 30);
    Trade(1005, 11);
    Trade(995, 9);
    Trade(1010, 1);
    EndBatch();
    Trade(1000, 10);
    EndBatch();
    EXPECT_EQ(Replay("--rows 3",
                     "RSTRBK01_R 1ASII\n"
                     "RSTRDE01_R 1ASII FirstField=021 LastField=28 Field28=250 Field27=\"a \\b\"\n"),
              "RSTRBK01_R 1ASII: 2 messages, 8 rows\n"
              "  Color  Price  Trades  SumVolume  SumValue  Bar\n"
              "  1       1010       1          1       101  #\n"
              "  1       1005       1         11      1105  #####\n"
              "  5       1000       2         40      4000  ####################\n"
              "  1 row below\n\n"
              "RSTRDE01_R 1ASII: 2 messages, 0 rows\n  Tag: 01\n"
              "  21 1 book side 2, best price:         1005\n"
              "  22 4 book side 1, best price:         995\n"
              "  23   book side 2, best quantity:\n  24   book side 1, best quantity:\n"
              "  27   inquiry:                         a \\\\b\n"
              "  28   capital units, from the inquiry: 250\n\n");
}

// The user's files lie beside the workspace.
TEST_F(ScreensTest, LadderAlarmsAndGroups) {
    Trade(1005, 3);
    Write(tools::MakeBook({&Asii, {{{995, 40}, {985, 7}}, 50}, {{{1010, 8}}, 8}}));
    EndBatch();
    Trade(995, 20);
    EndBatch();
    File("w.master", "stock ASII \"ASII shares\" 1000\nbroker B01 One 0\nbroker B03 Three 2\n");
    File("InterestAlarm.ini", "[ALARM007-002]\ndecreased price=1006\nincreased price=995\n");
    File("Interest.ini", "[GROUP001]\nITEM001=1ASII      shares\n");
    File("TradeMonEnv.ini",
         "[TRADE_MONITOR]\nALL=0\nVOLUME=1\n[FAVOURITES]\nSELECTEDGROUP=001\n[VOLUME]\nFROM=10\n");
    const std::string images =
        Replay("",
               "RSODER01_R 1ASII Row1.Side1.Price=995 Row1.Side1.Qty=52 Row1.Side2.Qty=9\n"
               "RSITST01_R 1ELSE,1ASII,1ASII Group=007 Row1.Alarm= Row2.BasePrice=950\nRSFLDN01_R -\n");
    EXPECT_TRUE(
        images.starts_with("RSODER01_R 1ASII: 2 messages, 22 rows\n"
                           "  Side   Level  Price   Rate  Qty  Change  Mark\n"
                           "  Side2      1   1010   1.00    8      +8\n"
                           "  Side1      1    995  -0.50   40     -12  current\n"
                           "  Side1      2    985  -1.50    7      +7\n"
                           "  Side2  total                  8      +8\n"
                           "  Side1  total                 50     +50\n\nRSITST01_R "))
        << images;
    for (const char* part :
         {"\n          ELSE\n  silent  ASII  4             995  5  ", "\n  armed   ASII   ",
          "  Broker2\n  090000  00000001  ASII  4             995  5  "}) {
        EXPECT_NE(images.find(part), std::string::npos) << part << images;
    }
    EXPECT_NE(Summary.find("  request K11OI060, 52 bytes: \"   311ASII      "
                           "\\x80\\x00\\x00\\x0012ASII      \\x80\\x00\\x00\\x00\"...\n"),
              std::string::npos)
        << Summary;
}

// The module would not send the second buffer.
TEST(PlainTables, TellWhatContradictsThem) {
    const tools::ScreenKind& kind = tools::FindScreenKind("RITRDE02_R");
    const auto board = kind.Open(kind.MakeInit("COMP,MAIN", {}), 10);
    const auto row = [](char value, const std::string& code) { return std::string(130, value) + code; };
    const std::string blank(16, ' ');
    EXPECT_EQ(board->Take("00   1 134" + blank + row('7', "MAIN")), 1U);
    EXPECT_EQ(board->TakeFaults().size(), 0U);
    const std::string image = board->Image();
    EXPECT_LT(image.find("COMP\n"), image.find("777  MAIN\n")) << image;
    EXPECT_THROW(board->Take("00   2 134" + blank + "x"), std::runtime_error);
    EXPECT_EQ(board->Take("00   2 134" + blank + row(' ', "ELSE")), 1U);
    EXPECT_EQ(
        board->TakeFaults(),
        (std::vector<std::string>{"repeat head \"   2\" of \" 134\", but the buffer holds 1 row of 134 bytes",
                                  "a row of index \"ELSE\", which the board does not have"}));
}

// An index closes where its latest update stands, which may lie outside of the bar's range.
TEST(CandleChart, DrawsBodiesRangesScaleAndTimes) {
    EXPECT_EQ(ChartText({{"090100", 1000, 1015, 995, 1010},
                         {"090200", 1010, 1012, 1000, 1000},
                         {"090300", 1000, 1003, 1000, 1000},
                         {"090317", 1000, 1020, 1000, 1020}},
                        0),
              "  1020 |   o\n  1015 ||  o\n  1010 |o# o\n  1005 |o#|o\n  1000 |o#-o\n   995 ||\n"
              "       +----\n        09:01:00\n");
    EXPECT_EQ(ChartText({{"090100", 7, 7, 7, 7}}, 0), "  7 |-\n    +-\n     09:01:00\n");
    std::vector<tools::Candle> candles(11, {"090100", 7000'000, 7000'000, 7000'000, 7000'000});
    candles[10] = {"091100", 7000'000, 7000'000, 7000'000, 6999'998};
    EXPECT_EQ(ChartText(candles, 3),
              "  7000.000 |----------#\n  6999.999 |          #\n  6999.998 |          #\n"
              "           +-----------\n            09:01:00  09:11:00\n");
}

// The chart goes on from the inquiry's candle. A row that updates takes the place of the newest.
TEST_F(ScreensTest, AChartBeginsWithTheInquirysRow) {
    Now += std::chrono::hours(11);
    for (const int32_t price : {1000, 1004}) {
        Trade(price, 2);
        Now += milliseconds(400);
        EndBatch();
    }
    const std::string text = Replay("",
                                    "RSCAND11_R 1ASII Period=J Row.Time=195930 Row.Open=1003 Row.High=1005 "
                                    "Row.Low=999 Row.Volume=7\n");
    EXPECT_NE(text.find("\n  20261120  200000  1003  1005  999   1004      11\n"
                        "  1005 ||\n  1004 |o\n  1003 |o\n  1002 ||\n"),
              std::string::npos)
        << text;
}

}  // namespace
