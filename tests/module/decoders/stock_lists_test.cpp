// Lists and summaries of one stock: ticks, fills, volume by price, brokers, and the values of a fund.
#include "module/layouts/RSBRSM01.h"
#include "module/layouts/RSDONE01.h"
#include "module/layouts/RSTRBK01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

struct StockTicks : ScreenTest {
    StockTicks() : ScreenTest("RSTICK11_R") {}
    // Of the inquiry's date.
    static std::string Row(const std::string& time, const std::string& price, const std::string& volume) {
        return "20261120" + time + Right(price, 12) + Right(volume, 12);
    }
};

TEST_F(StockTicks, RowsOfABatchLeaveTogetherBehindTheLatestFigures) {
    Open(TickInquiry("1ASII"));
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "80000000")});
    for (const Trade& other : {Trade("1ASII").Price(7).Volume(0), Trade("2ASII"), Trade("1ASIIX")}) {
        EXPECT_EQ(After(other), "nothing");
    }
    Feed(Trade("1ASII").Time("090000").Price(1005).Volume(3).TotalVolume(103));
    Feed(Trade("1ASII").Time("090001").Price(1010).Volume(2147483647).TotalVolume(-7));
    Batch(Trade("1ASII").Price(7).Volume(0).TotalVolume(51));
    Expect<HeadedRows, TickRow>("T1" + Head("A2", "1010", "-7"),
                                {Row("090000", "1005", "3"), Row("090001", "1010", "2147483647")});
    EXPECT_TRUE(Silent());
}

TEST_F(StockTicks, TheDateIsTheInquirysOrElseTheMachines) {
    const tickhost_time newYear{2027, 1, 2, 23, 59, 59, 0};
    tickhost_set_local_time(&newYear);
    for (const auto& [dates, shown] :
         {std::pair(Rows{"20261120"}, "20261120"), {Rows{""}, "20270102"}, {Rows{}, "20270102"}}) {
        Open(TickInquiry("1ASII").Dates(dates));
        EXPECT_EQ(After(Trade("1ASII")).substr(sizeof(HeadedRows), 8), shown);
    }
}

TEST_F(StockTicks, NothingIsQueuedForAWindowThatIsGone) {
    Open(TickInquiry("1ASII"));
    m_Screen->StopFetching();
    for (const bool isThere : {true, false}) {
        Batch(Trade("1ASII"));
        EXPECT_EQ(m_Screen->Fetch(), isThere);
        m_Screen->CloseWindow();
    }
}

struct StockFills : ScreenTest {
    StockFills() : ScreenTest("RSDONE01_R") {}
    static std::string Row(const std::string& ref, char tag, const std::string& price, char sign,
                           const std::string& change, const std::string& rate, const std::string& volume,
                           const std::string& brokers) {
        const std::string color{tag, ' '};
        return "090000" + Left(ref, 8) + color + Right(price, 12) + sign + color + Right(change, 12) + color +
               Right(rate, 6) + "  " + Right(volume, 12) + brokers;
    }
};

TEST_F(StockFills, ATradeIsARowWithRateAndBrokers) {
    Open("F1" + Left("1ASII", 11) + Right("1000", 12) + Block("0", "79"));
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "80000000")});
    Feed(Trade("1ASII").Volume(0), Trade("2ASII"));
    Feed(Trade("1ASII").Price(1019).Change('2', 5).Volume(3).Ref("00000042").Brokers('F', 'D', "AB", "WXYZ"));
    Feed(Trade("1ASII").Price(1019).Change('7', 5).Volume(-3).Brokers('x', ' '));
    Batch(Trade("1ASII").Price(1019).Change(' ', 5));
    Expect<PlainRows, FillRow>("F1", {Row("00000042", '1', "1019", '2', "5", "1.90", "3", "4 FAB  1 DWXYZ"),
                                      Row("", '4', "1019", '7', "5", "1.90", "-3", "  x           "),
                                      Row("", '5', "1019", ' ', "5", "1.90", "1", "1 D    1 D    ")});
    EXPECT_TRUE(Silent());
}

struct VolumeByPrice : ScreenTest {
    VolumeByPrice() : ScreenTest("RSTRBK01_R") {}
    static std::string Inquiry(const std::string& block) { return "V1" + Left("1ASII", 19) + block; }
    static std::string Row(const std::string& color, const std::string& price, const std::string& trades,
                           const std::string& volume, const std::string& value) {
        return RowOf<PriceRow>({color + " ", price, trades, volume, value});
    }
    void Traded(int32_t price, int32_t volume, char sign = '2') {
        Feed(Trade("1ASII").Price(price).Volume(volume).Change(sign, 1).Lot(10));
    }
    void Expect(const Rows& rows) {
        EndBatch();
        ScreenTest::Expect<PlainRows, PriceRow>("V1", rows);
    }
};

TEST_F(VolumeByPrice, TradesAddToTheirPriceAndNewPricesFindTheirPlace) {
    Open(Inquiry(Block("0", "62")));
    EXPECT_EQ(m_Terminal.Events(), Events{Added('1', "1ASII", "80000000")});
    Traded(1000, 3);
    EXPECT_EQ(m_Terminal.Events(), Events{"list"}) << "at once, and once for a new price";
    Expect({Row("1", "1000", "1", "3", "30")});
    Traded(1000, 4, '5');
    Traded(1010, 0, '5');
    Traded(990, 1, '9');
    Traded(1005, 2);
    Feed(Trade("1BBCA").Price(1));
    EXPECT_EQ(m_Terminal.Events(), (Events{"view", "list", "list", "list"}));
    Expect({Row("4", "1010", "1", "0", "0"), Row("1", "1005", "1", "2", "20"),
            Row("1", "1000", "2", "7", "70"), Row("5", "990", "1", "1", "9")});
    EXPECT_TRUE(Silent());
}

TEST_F(VolumeByPrice, TheInquirysRowsKeepTheirOrderAndTheFirstOfAPriceCounts) {
    const std::string low = Row("x", "5", "1", "1", "1");
    const std::string high = Row("x", "9", "2147483647", "2147483647", "");
    Open(Inquiry(BlockOf({low, high, low}, "62")));
    EXPECT_TRUE(Silent()) << "Init sends nothing";
    Traded(5, 1);
    Traded(9, 1);
    Traded(7, 0, '0');
    Expect({Row("5", "7", "1", "0", "0"), Row("x", "5", "2", "2", "0"),
            Row("x", "9", "-2147483648", "-2147483648", "-193273528"), low});
}

TEST_F(VolumeByPrice, RowsOfAnInquiryLieWithinItsText) {
    const std::string row = Row("1", "1000", "1", "1", "1");
    const std::string half = row.substr(0, 32);
    Open(Inquiry(Block("1", "62", row)));
    for (const std::string& block : {Block("2", "62", row), Block("9999", "62", row), Block("-1", "62", row),
                                     Block("1", "62", row.substr(1)), Block("1", "62")}) {
        EXPECT_EQ(Init("V1" + Left("1OTHER", 19) + block), 0) << block;
    }
    EXPECT_EQ(Init(Inquiry(Block("2", "32", row + half))), 1);
    Traded(1000, 1);
    Expect({half.substr(0, 17) + Right("2", 15) + Right("1", 15) + Right("10", 15), Left(half, 62)});
    EXPECT_EQ(Init(Inquiry(Block("2", "9999", row + row))), 1) << "no more than a row's width is read";
    EXPECT_EQ(Init(Inquiry(Block("1", "-62", row))), 1);
}

struct BrokerSummary : ScreenTest {
    BrokerSummary() : ScreenTest("RSBRSM01_R") {}
};

TEST_F(BrokerSummary, ThePictureIsThatOfTheLatestPacket) {
    Open("S1" + Left("1ASII", 11));
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "40000000")});
    EXPECT_EQ(After(Brokers("2ASII", "090000")), "nothing");
    Feed(Brokers("1ASII", "090000"));
    const std::string row = "  " + Right("678       ", 15) + "WXYZAB    " + Right("0000012345", 15);
    EXPECT_TRUE((ShowsRows<BrokerFront, BrokerDisplayRow>(After(Brokers("1ASII", "090001")),
                                                          "S1090001  " + BlockOf(Rows(10, row), "42"))));
}

struct FundValues : ScreenTest {
    FundValues() : ScreenTest("RSETFNAV_R") {}
    // Tag and value of each field; "" is a blank one.
    void Expect(const std::string& tag, const std::vector<std::string>& values) {
        std::string display = tag + std::string(11, ' ');
        for (const std::string& value : values) {
            display += Left(value.substr(0, 2), 2) + Right(value.substr(value.empty() ? 0 : 2), 22);
        }
        EndBatch();
        EXPECT_TRUE(Shows<NavDisplay>(m_Screen->Next(), display));
    }
};

TEST_F(FundValues, ShowThreeValuesAgainstTheBase) {
    Open(NavInquiry("1FUND"));
    EXPECT_EQ(Told(), Events{Added('N', "1FUND", "80000000")});
    EXPECT_TRUE(Silent()) << "Init sends nothing";

    // Compared as it came, shown with two decimals; the inquiry's values until a packet brings others.
    Feed(Nav("1FUND").Kind("0").Value1("1000.005"));
    Expect("N1", {"1 1000.00", "1 1001.25", "4 998.50"});
    // One message for both packets; a negative value shows as zero.
    Feed(Nav("1FUND").Kind("1").Value1("  1000.00").Value2("-3"), Nav("1FUND").Kind("0").Value1("999"));
    Expect("N1", {"4 999.00", "5 1000.00", "4 0.00"});
    EXPECT_TRUE(m_Screen->Empty());

    Open(NavInquiry("1FUND").Base("").First("0.001").Second("-1"));
    Feed(Nav("1FUND").Value1("0"));
    Expect("N1", {"5 0.00", "1 0.00", "5 0.00"});
    Open(NavInquiry("1FUND").Base("-0.5").First("-1").Second(""));
    Feed(Nav("1FUND").Value1("-2"));
    Expect("N1", {"1 0.00", "1 0.00", "1 0.00"});
}

TEST_F(FundValues, OtherFundsAndLargerKindsChangeNothing) {
    Open(NavInquiry("1FUND"));
    for (const Nav& other : {Nav("2FUND"), Nav("1FUND2"), Nav("1FUND").Kind("2"),
                             Nav("1FUND").Kind("4294967297"), Nav("1FUND").Kind("3000000000")}) {
        EXPECT_EQ(After(other), "nothing");
    }
    // A kind below 1 is the first value; a blank value is zero.
    Feed(Nav("1FUND").Kind("-1").Value1("5"), Nav("1FUND").Kind("").Value1(""));
    Expect("N1", {"4 0.00", "1 1001.25", "4 998.50"});
}

}  // namespace
