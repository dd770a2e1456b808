// What the index chart does otherwise than the stock chart.

#include <gtest/gtest.h>

#include "layouts/RICAND11.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

using Events = std::vector<std::string>;

std::string Candle(const std::string& dateTime, const std::string& open, const std::string& high,
                   const std::string& low, const std::string& close, const std::string& volume,
                   const std::string& value = "") {
    return dateTime + Right(open, 12) + Right(high, 12) + Right(low, 12) + Right(close, 12) +
           Right(volume, 15) + Right(value, 18);
}

std::string Sent(const std::string& periodAndAction, const std::string& value, const std::string& quantity,
                 const std::string& row, int rows = 1) {
    return "C1" + Head(periodAndAction, value, quantity) + Block(std::to_string(rows), "95") + row;
}

class IndexChart : public testing::Test {
protected:
    void Open(const std::string& init) { m_Screen = m_Terminal.Open("RICAND11_R", init); }
    void Feed(const IndexUpdate& update) { m_Terminal.Feed(update); }
    void Feed(const IndexBar& bar) { m_Terminal.Feed(bar); }
    void EndBatch() { m_Terminal.EndBatch(); }
    void ExpectRow(const std::string& expected) {
        EXPECT_TRUE((ShowsRows<HeadedRows, IndexCandleRow>(m_Screen->Next(), expected)));
    }
    static IndexUpdate At(const std::string& time, int32_t index, int32_t volume) {
        return IndexUpdate("COMP").Time(time).Index(index).Volume(volume).TotalVolume(1000);
    }
    static std::string Newest(const std::string& dateTime) {
        return Candle(dateTime, "7000.000", "7010.500", "6990.250", "7005.125", "40");
    }

    Terminal m_Terminal;
    std::unique_ptr<Screen> m_Screen;
};

TEST_F(IndexChart, AFullTurnOfAThreeMinuteBucket) {
    Open(CandleInquiry("COMP", 'E').Figures("7005.125", "500").Row(Newest("20261120090130")));
    EXPECT_EQ(m_Terminal.Events(), Events{"add A [COMP       ] 4 c000000"});
    Feed(At("090200", 70150001, 5));
    EndBatch();
    ExpectRow(Sent("E1", "7015.000", "1000",
                   Candle("20261120090200", "7000.000", "7015.000", "6990.250", "7015.000", "45")));
    Feed(At("090201", 70110000, 0));
    EndBatch();
    ExpectRow(Sent("E1", "7011.000", "1000",
                   Candle("20261120090201", "7000.000", "7015.000", "6990.250", "7011.000",
                          "45")));  // at once, and also without a quantity

    Feed(At("090300", 70120000, 100));  // at the boundary: not the next candle's
    Feed(At("090301", 70200000, 3));
    Feed(IndexBar("COMP", "090300", 69800000, 10));
    ExpectRow(Sent("E1", "7020.000", "1000",
                   Candle("20261120090300", "7000.000", "7010.500", "6980.000", "7020.000", "50")));
    EndBatch();
    ExpectRow(Sent("E2", "7020.000", "1000",
                   Candle("20261120090301", "7000.000", "7010.500", "6980.000", "7020.000", "148")));
    Feed(At("090302", 70180000, 2));
    EndBatch();
    ExpectRow(Sent("E1", "7018.000", "1000",
                   Candle("20261120090302", "7020.000", "7020.000", "7018.000", "7018.000", "5")));
    EXPECT_TRUE(m_Screen->Empty());
}

TEST_F(IndexChart, ABarBeforeAnyUpdateClosesWithItsOwnValue) {
    Open(CandleInquiry("COMP", 'C').Figures("", ""));
    Feed(IndexBar("COMP", "090100", 70001234, 10));
    ExpectRow(Sent("C2", "7000.123", "0",
                   Candle("20261120090100", "7000.123", "7000.123", "7000.123", "7000.123", "10")));
}

TEST_F(IndexChart, TheDayShowsTheDaysOwnFigures) {
    Open(CandleInquiry("COMP", 'L').Row(Newest("20261119160000")));
    Feed(IndexBar("COMP", "090100", 1, 1));
    Feed(At("090200", 70100000, 5).Day(70000000, 70200000, 69900000).TotalVolume(77));
    EndBatch();
    ExpectRow(Sent("L2", "7010.000", "77",
                   Candle("20261120090200", "7000.000", "7020.000", "6990.000", "7010.000", "77")));
    EXPECT_TRUE(m_Screen->Empty());
}

TEST_F(IndexChart, ATickListSendsEveryUpdateAtTheBatchEnd) {
    Open(CandleInquiry("COMP", 'A'));
    Feed(At("090200", 70100000, 0).Value(-5));
    Feed(IndexUpdate("COMX"));
    Feed(At("090201", -1, 1).Value(123456789012345678).TotalVolume(1001));
    EndBatch();
    ExpectRow(
        Sent("A2", "-0.000", "1001",
             Candle("20261120090200", "7010.000", "7010.000", "7010.000", "7010.000", "0", "-5") +
                 Candle("20261120090201", "-0.000", "-0.000", "-0.000", "-0.000", "1", "123456789012345678"),
             2));
}

TEST_F(IndexChart, GivesUpItsSubscriptionInEveryPeriodButTheTickList) {
    Open(CandleInquiry("COMP", 'A'));
    EXPECT_EQ(m_Screen->Init(CandleInquiry("LQ45", 'E')), 1);
    m_Terminal.Feed(At("090200", 70100000, 1));
    m_Screen->Unregister();
    EXPECT_EQ(m_Terminal.Events(),
              (Events{"add A [COMP       ] 4 c000000", "add A [LQ45       ] 4 c000000",
                      "delete A [COMP       ] 4 c000000", "delete A [LQ45       ] 4 c000000"}));
    Open(CandleInquiry("COMP", 'A'));
    m_Terminal.Events();
    m_Screen->Release();
    m_Screen->Unregister();
    EXPECT_EQ(m_Terminal.Events(), Events{});
}

}  // namespace
