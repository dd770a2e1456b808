#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

class StockTicks : public ScreenTest {
protected:
    StockTicks() : ScreenTest("RSTICK11_R") {}
    void Expect(const std::string& front, const Rows& rows) {
        EndBatch();
        EXPECT_TRUE((ShowsRows<HeadedRows, TickRow>(m_Screen->Next(), front + BlockOf(rows, "38"))));
    }
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
    Feed(Trade("1ASII").Price(7).Volume(0).TotalVolume(51));
    Expect("T1" + Head("A2", "1010", "-7"),
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

TEST_F(StockTicks, ARefusedInquiryKeepsStockAndRowsAndAnotherDropsThem) {
    Open(TickInquiry("1ASII"));
    Feed(Trade("1ASII").Price(1005).TotalVolume(9));
    Told();
    EXPECT_EQ(Init(TickInquiry("1OTHER").Tag("T2").Dates({"20261120", "20261121"})), 0);
    EXPECT_EQ(Told(), Events{});
    // The row still leaves, behind the tag and head that the refused text brought.
    Expect("T2" + Head(".."), {Row("090000", "1005", "1")});
    Feed(Trade("1ASII"));
    EXPECT_EQ(Init(TickInquiry("1BBCA")), 1);
    EXPECT_EQ(Told(), (Events{"view", Added('1', "1BBCA", "80000000"), Deleted('1', "1ASII", "80000000")}));
    EXPECT_EQ(After(Trade("1ASII")), "nothing");
    Feed(Trade("1BBCA"));
    m_Screen->Stop();
    EXPECT_TRUE(Silent());
    EXPECT_EQ(Init(TickInquiry("1BBCA")), 1);
    EXPECT_TRUE(Silent());
}

}  // namespace
