// What the panels of fields, the board of indices and the volume by price show of a small capture.
#include <gtest/gtest.h>

#include <string>

#include "layouts/RITRDE02.h"
#include "layouts/RSTRBK01.h"
#include "tests/tools/small_capture.h"
#include "tools/screens/screen.h"

namespace {

class PanelTest : public SmallCapture {
protected:
    void Book() { Write(tools::MakeBook({&Asii, {{{995, 40}, {985, 7}}, 50}, {{{1010, 8}}, 8}})); }
    void Index(const std::string& code, int32_t value, int32_t rising) {
        tools::Index index{code, 1000'0000, 3};
        index.Value = index.High = value;
        index.Open = index.Low = 1000'0000;
        index.TotalVolume = 77;
        index.TotalValue = 123'000;
        index.TradeCount = 12;
        index.Rising = rising;
        Write(tools::MakeIndex(index, Now));
    }
};

TEST_F(PanelTest, StockFieldsOfARange) {
    Trade(1005, 3);
    Book();
    EndBatch();
    EXPECT_EQ(Replay("",
                     "RSTRDE01_R 1ASII FirstField=3 LastField=10 Field4=900 Field6.Tag=1\n"
                     "RSTRDE01_R 1ASII FirstField=021 LastField=28 Field28=250 Field27=\"a \\b\"\n"),
              "RSTRDE01_R 1ASII: 1 message, 0 rows\n"
              "  Tag: 00\n"
              "   3 1 Price:                        1005\n"
              "   4   base price, from the inquiry: 900\n"
              "   8   Sign:                         2\n"
              "   9 1 Change:                       5\n"
              "  10 1 rate, per cent:               11.66\n"
              "\n"
              "RSTRDE01_R 1ASII: 1 message, 0 rows\n"
              "  Tag: 01\n"
              "  21 1 book side 2, best price:         1010\n"
              "  22 4 book side 1, best price:         995\n"
              "  23   book side 2, best quantity:      8\n"
              "  24   book side 1, best quantity:      40\n"
              "  27   inquiry:                         a \\\\b\n"
              "  28   capital units, from the inquiry: 250\n\n");
}

TEST_F(PanelTest, BoardOfIndices) {
    Index("COMP", 1012'5000, 3);
    EndBatch();
    Index("MAIN", 990'0000, 0);
    Index("ELSE", 990'0000, 0);
    EndBatch();
    const std::string board =
        "  Name  IndexColor      Index  Sign  ChangeColor   Change  RateColor  Rate  Count1  Count2  Count3  "
        "Count4  Count5  TotalVolume  TotalValue  Note  Time    Key.IndexCode\n";
    EXPECT_EQ(Replay("", "RITRDE02_R NONE,MAIN,COMP Row2.Name=Top\n"),
              "RITRDE02_R NONE,MAIN,COMP: 2 messages, 2 rows\n" + board + std::string(155, ' ') +
                  "NONE\n"
                  "  Top   4            990.0000  5     4            10.0000  4          1.00       0       "
                  "0       0       0      12           77      123000        090000  MAIN\n"
                  "        1           1012.5000  2     1            12.5000  1          1.25       3       "
                  "0       0       0      12           77      123000        090000  COMP\n\n");
}

TEST_F(PanelTest, VolumeByPriceWithBars) {
    Trade(1000, 30);
    Trade(1005, 11);
    Trade(995, 9);
    Trade(1010, 1);
    EndBatch();
    Trade(1000, 10);
    EndBatch();
    EXPECT_EQ(Replay("--rows 3", "RSTRBK01_R 1ASII\n"),
              "RSTRBK01_R 1ASII: 2 messages, 8 rows\n"
              "  ColorTag  Price  Trades  SumVolume  SumValue  Bar\n"
              "  1          1010       1          1       101  #\n"
              "  1          1005       1         11      1105  #####\n"
              "  5          1000       2         40      4000  ####################\n"
              "  1 row below\n\n");
}

// The user's files lie beside the workspace.
TEST_F(PanelTest, BookAsALadderAndBoardWithAlarms) {
    Trade(1005, 3);
    Book();
    EndBatch();
    Trade(995, 2);
    EndBatch();
    File("InterestAlarm.ini", "[ALARM007-002]\ndecreased price=1006\nincreased price=995\n");
    const std::string book = "RSODER01_R 1ASII Row1.Side1.Price=995 Row1.Side1.Qty=52 Row1.Side2.Qty=9\n";
    const std::string images =
        Replay("", book + "RSITST01_R 1ELSE,1ASII,1ASII Group=007 Row1.Alarm= Row2.BasePrice=950\n");
    EXPECT_EQ(images.substr(0, images.find("RSITST")),
              "RSODER01_R 1ASII: 2 messages, 22 rows\n"
              "  Side   Level  Price   Rate  Qty  Change  Mark\n"
              "  Side2      1   1010   1.00    8      +8\n"
              "  Side1      1    995  -0.50   40     -12  current\n"
              "  Side1      2    985  -1.50    7      +7\n"
              "  Side2  total                  8      +8\n"
              "  Side1  total                 50     +50\n\n");
    const std::string board = images.substr(images.find("\n  Alarm "));
    EXPECT_NE(board.find("\n          ELSE\n  silent  ASII  4           995  5  "), std::string::npos)
        << board;
    EXPECT_NE(board.find("\n  armed   ASII   "), std::string::npos) << board;
}

TEST_F(PanelTest, MonitorOfGroups) {
    Trade(1005, 3);
    Trade(995, 20);
    EndBatch();
    File("Interest.ini", "[GROUP001]\nITEM001=1ASII      shares\n");
    File("TradeMonEnv.ini",
         "[TRADE_MONITOR]\nALL=0\nVOLUME=1\n[FAVOURITES]\nSELECTEDGROUP=001\n[VOLUME]\nFROM=10\n");
    const std::string ofGroups = Replay("", "RSFLDN01_R -\n");
    EXPECT_NE(ofGroups.find("  Broker2\n  090000  00000001  ASII  4           995  5  "), std::string::npos)
        << ofGroups;
    EXPECT_EQ(Summary.substr(Summary.find("  request")),
              "  request K11OI060, 52 bytes: \"   311ASII      \\x80\\x00\\x00\\x0012ASII      "
              "\\x80\\x00\\x00\\x00\"...\n");
}

// The module would not send these.
TEST(PlainTables, TellWhatContradictsThem) {
    const tools::ScreenKind& kind = tools::FindScreenKind("RITRDE02_R");
    const auto board = kind.Open(kind.MakeInit("COMP", {}), 10);
    std::string buffer = "00   2 134" + std::string(16, ' ');
    EXPECT_THROW(board->Take(buffer + "x"), std::runtime_error);
    EXPECT_EQ(board->Take(buffer + std::string(130, ' ') + "MAIN"), 1U);
    EXPECT_EQ(
        board->TakeFaults(),
        (std::vector<std::string>{"repeat head \"   2\" of \" 134\", but the buffer holds 1 row of 134 bytes",
                                  "a row of index \"MAIN\", which the board does not have"}));
}

}  // namespace
