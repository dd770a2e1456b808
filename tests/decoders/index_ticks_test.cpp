// The two lists of index updates: rows at the batch end, and one at a time for a chart.
#include "layouts/RINTIK01.h"
#include "layouts/RINTIK11.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

constexpr char kUpdates[] = "8000000";

class IndexTicks : public ScreenTest {
protected:
    IndexTicks() : ScreenTest("RINTIK01_R") {}
    static std::string Inquiry(const std::string& base) {
        return "X1COMP......." + Right(base, 15) + "........";
    }
    static std::string Row(char tag, const std::string& index, char sign, const std::string& change,
                           const std::string& rate, const std::string& volume) {
        const std::string color{tag, ' '};
        return "090000  " + color + Right(index, 15) + sign + color + Right(change, 15) + color +
               Right(rate, 7) + Right(volume, 15);
    }
    void Expect(const Rows& rows) {
        EndBatch();
        EXPECT_TRUE((ShowsRows<PlainRows, IndexTickRow>(m_Screen->Next(), "X1" + BlockOf(rows, "67"))));
    }
};

TEST_F(IndexTicks, EveryUpdateIsARowWithTheRateOfItsChange) {
    Open(Inquiry("7000.00"));
    EXPECT_EQ(Told(), Events{Added('A', "COMP", kUpdates)});
    Feed(IndexUpdate("COMP").Index(70706999).Change('2', 706000).Volume(0), IndexUpdate("MAIN"));
    Feed(IndexUpdate("COMP").Index(69000000).Change('5', 706000).Volume(12));
    Expect({Row('1', "7070.6999", '2', "70.6000", "1.00", "0"),
            Row('4', "6900.0000", '5', "70.6000", "1.01", "12")});
    EXPECT_TRUE(Silent());
}

class IndexChartTicks : public ScreenTest {
protected:
    IndexChartTicks() : ScreenTest("RINTIK11_R") {}
    static std::string Inquiry(const std::string& code, char period, const std::string& block) {
        return "Y1" + code + "......" + period + Head("..") + block;
    }
};

TEST_F(IndexChartTicks, EveryUpdateLeavesAtOnceWithItsOwnQuantity) {
    Open(Inquiry("COMP", 'H', BlockOf({Left("20261119", 44)}, "44") + "more"));
    EXPECT_EQ(Told(), Events{Added('A', "COMP", kUpdates)});
    Feed(IndexUpdate("MAIN"), IndexUpdate("COMP").Index(70706999).Volume(12).TotalVolume(99));
    EXPECT_TRUE((ShowsRows<HeadedRows, IndexChartRow>(
        m_Screen->Next(), "Y1" + Head(".2", "7070.6999", "12") +
                              BlockOf({"20261119090000" + Right("7070.6999", 15) + Right("12", 15)}, "44"))));
    Feed(IndexUpdate("COMP"), IndexUpdate("COMP"));
    EXPECT_EQ(Told(), (Events{"view", "view", "view"}));
}

TEST_F(IndexChartTicks, TheMachinesDateHasSpacesAndAWrongPeriodLeavesTheSubscription) {
    const tickhost_time day{2027, 1, 2, 9, 0, 0, 0};
    tickhost_set_local_time(&day);
    Open(Inquiry("COMP", 'A', Block("0", "44")));
    Feed(IndexUpdate("COMP"));
    EXPECT_EQ(m_Screen->Next().substr(sizeof(HeadedRows), 8), "2027 1 2");
    Told();
    EXPECT_EQ(Init(Inquiry("MAIN", 'I', Block("0", "44"))), 0);
    EXPECT_EQ(Told(), Events{});
    EXPECT_EQ(Init(Inquiry("COMP", 'A', BlockOf({std::string(44, ' ')}, "44"))), 1);
    EXPECT_EQ(Told(), (Events{Added('A', "COMP", kUpdates), Deleted('A', "MAIN", kUpdates)}))
        << "a refused period has taken its key";
}

}  // namespace
