// What the lists of fills, brokers and headlines, the pass-through and the holder show of a small
// capture.
#include <string>

#include "tests/tools/small_capture.h"
#include "tools/news_packets.h"

namespace {

class ListsTest : public SmallCapture {
protected:
    void Brokers() { Write(tools::MakeBrokers({&Asii, {{"B01", 1200}, {"B02", 7}}, {{"B03", 1207}}}, Now)); }
    void News(const char* category, const tools::Stock* stock, const std::string& title) {
        Write(tools::MakeNews({7, category, stock, title}, Now));
    }
};

TEST_F(ListsTest, Fills) {
    Trade(1005, 3);
    Trade(995, 12);
    EndBatch();
    EXPECT_EQ(Replay("", "RSDONE01_R 1ASII Row.Price=510 Row.Sign=2 Row.Change=10\n"),
              "RSDONE01_R 1ASII: 1 message, 2 rows\n"
              "  Tag:          00\n"
              "  Repeat.Count: 2\n"
              "  Repeat.Size:  79\n"
              "  Time    TradeRef  PriceTag  Price  Sign  ChangeTag  Change  RateTag    Rate  Volume  "
              "Broker1ClassTag  Broker1Class  Broker1  Broker2ClassTag  Broker2Class  Broker2\n"
              "  090000  00000001  1          1005  2     1               5  1        101.00       3  "
              "1                D             B01      4                F             B03\n"
              "  090000  00000001  4           995  5     4               5  4         99.00      12  "
              "1                D             B01      4                F             B03\n"
              "\n");
}

// A burst of headlines comes one by one, at the ends of batches.
TEST_F(ListsTest, BrokersAndHeadlines) {
    Brokers();
    News("20", nullptr, "  시장은 조용하다");
    News("91", &Asii, "Beyond");
    News("21", &Asii, "공장이 문을 연다");
    EndBatch();
    EndBatch();
    EndBatch();
    EXPECT_EQ(Replay("", "RSBRSM01_R 1ASII\nRRNEWS01_R 0\n"),
              "RSBRSM01_R 1ASII: 1 message, 10 rows\n"
              "  Tag:          00\n"
              "  Time:         090000\n"
              "  Repeat.Count: 10\n"
              "  Repeat.Size:  42\n"
              "        Qty2  Broker2  Broker1        Qty1\n"
              "  0000001207  B03      B01      0000001200\n"
              "                       B02      0000000007\n" +
                  std::string(8, '\n') +
                  "\n"
                  "RRNEWS01_R 0: 3 messages, 3 rows\n"
                  "  Tag:          01\n"
                  "  NewsKind:     2\n"
                  "  Repeat.Count: 1\n"
                  "  Repeat.Size:  131\n"
                  "  Date      Time    Label     Title             NewsRef1    NewsRef2  Category  HasCode  "
                  "Code\n"
                  "  20261120  090000  Orvel Tr  시장은 조용하다   0000000007  DESK20    20\n"
                  "  20261120  090000  Research  Beyond            0000000007  DESK91    91        1        "
                  "ASII\n"
                  "  20261120  090000  Stock     공장이 문을 연다  0000000007  DESK21    21        1        "
                  "ASII\n\n");
}

TEST_F(ListsTest, PacketsAsTheyCome) {
    Trade(1005, 3);
    Trade(-7, 12);
    News("20", nullptr, "시장은 조용하다");
    Write(tools::MakeMarketNotice(1));
    EndBatch();
    EXPECT_EQ(
        Replay("", "RDUMMY01_R 1ASII:AC,COMP:F\nRRPASS01_R 1ASII:AC,BOARD:M,:T\n"),
        "RDUMMY01_R 1ASII:AC,COMP:F: 0 messages, 0 rows\n"
        "  Class  Key    Want\n"
        "  1      1ASII  10100000\n"
        "  A      COMP   00010000\n"
        "\n"
        "RRPASS01_R 1ASII:AC,BOARD:M,:T: 4 messages, 0 rows\n"
        "  2 A packets, the newest:\n"
        "  Type=A  Key.Board=1  Key.Code=ASII  Time=090000  Sign=5  Broker1=B01  Broker1Class=D  "
        "Broker2=B03\n"
        "  Broker2Class=F  TradeRef=00000001  Price=-7  Change=1007  Open=1000  High=1005  Low=995  "
        "Best1Price=0\n"
        "  Best2Price=-6  TradeCount=2  Volume=12  TotalVolume=15  Value=0  TotalValue=293100  LotSize=100\n"
        "  1 M packet:\n"
        "  Type=M  Code=BOARD  Reserved1=notice 1 of the session\n"
        "  1 T packet:\n"
        "  Type=T  NewsKind=1  Date=20261120  Time=090000  NewsRef2=DESK20  Category=20  "
        "NewsRef1=0000000007  Code=\n"
        "  Title=시장은 조용하다\n"
        "\n");
}

}  // namespace
