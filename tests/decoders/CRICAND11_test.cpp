// What the index chart does otherwise than the stock chart.

#include "layouts/RICAND11.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Candle(const Rows& figures) {
    return RowOf<IndexCandleRow>(figures);
}

class IndexChart : public ScreenTest {
protected:
    IndexChart() : ScreenTest("RICAND11_R") {}
    void Expect(const std::string& periodAndAction, const std::string& value, const std::string& quantity,
                const Rows& rows) {
        const std::string sent = "C1" + Head(periodAndAction, value, quantity) + BlockOf(rows, "95");
        EXPECT_TRUE((ShowsRows<HeadedRows, IndexCandleRow>(m_Screen->Next(), sent)));
    }
    static IndexUpdate At(const std::string& time, int32_t index, int32_t volume) {
        return IndexUpdate("COMP").Time(time).Index(index).Volume(volume).TotalVolume(1000);
    }
    static std::string Newest(const std::string& date) {
        return Candle({date, "090130", "7000.000", "7010.500", "6990.250", "7005.125", "40"});
    }
};

TEST_F(IndexChart, SendsUpdatesWithoutVolumeAndClosesBarsWithTheLiveValue) {
    Open(CandleInquiry("COMP", 'E').Figures("7005.125", "500").Row(Newest("20261120")));
    EXPECT_EQ(Told(), Events{Added('A', "COMP", "c000000")});
    Batch(At("090200", 70150001, 0));
    Expect("E1", "7015.000", "1000",
           {Candle({"20261120", "090200", "7000.000", "7015.000", "6990.250", "7015.000", "40"})});
    Feed(At("090301", 70200000, 3), IndexBar("COMP", "090300", 69800000, 10));
    Expect("E1", "7020.000", "1000",
           {Candle({"20261120", "090300", "7000.000", "7010.500", "6980.000", "7020.000", "50"})});

    // A bar before any update closes with its own value.
    Open(CandleInquiry("COMP", 'C').Figures("", ""));
    Feed(IndexBar("COMP", "090100", 70001234, 10));
    Expect("C2", "7000.123", "0",
           {Candle({"20261120", "090100", "7000.123", "7000.123", "7000.123", "7000.123", "10"})});
}

TEST_F(IndexChart, ATickListSendsEveryUpdate) {
    Open(CandleInquiry("COMP", 'A'));
    Feed(At("090200", 70100000, 0).Value(-5), IndexUpdate("COMX"));
    Batch(At("090201", -1, 1).Value(123456789012345678).TotalVolume(1001));
    Expect(
        "A2", "-0.000", "1001",
        {Candle({"20261120", "090200", "7010.000", "7010.000", "7010.000", "7010.000", "0", "-5"}),
         Candle({"20261120", "090201", "-0.000", "-0.000", "-0.000", "-0.000", "1", "123456789012345678"})});
}

}  // namespace
