// The screens of indices: panel, board, the two lists of updates, and what the chart does otherwise than that
// of stocks.
#include "module/layouts/RICAND11.h"
#include "module/layouts/RINTIK01.h"
#include "module/layouts/RINTIK11.h"
#include "module/layouts/RITRDE01.h"
#include "module/layouts/RITRDE02.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

struct IndexPanelScreen : ScreenTest {
    IndexPanelScreen() : ScreenTest("RITRDE01_R") {}
    static std::string Inquiry(const std::string& range, const std::string& fields) {
        return "P1" + Left("COMP", 11) + range + fields;
    }
    static std::string Tagged(const std::string& tag, const std::string& value) {
        return Left(tag, 2) + Right(value, 15);
    }
};

TEST_F(IndexPanelScreen, AnUpdateFillsItsFieldsAndLeavesTheInquirys) {
    const std::string fields = std::string(124, '.') + "xx" + Right("7000", 15) + std::string(58, '.');
    Open(Inquiry("0017", fields));
    EXPECT_EQ(Told(), Events{Added('A', "COMP", "8000000")});
    EXPECT_EQ(After(IndexUpdate("COMX")), "nothing");
    IndexUpdate update = IndexUpdate("COMP").Time("101112").Index(69900001).Change('7', 99999);
    update.Day(70000000, 70000001, 69899999).TotalVolume(12345).TotalValue(123456789012345678);
    Batch(update.Counts(11, 22, 33, 44, 555555555));
    EXPECT_EQ(m_Screen->Next(), "P1" + Tagged("4", "6990.0001") + "7" + Tagged("4", "9.9999") + "4   0.15" +
                                    Tagged("1", "7000.0001") + Tagged("4", "6989.9999") +
                                    Tagged("5", "7000.0000") + Right("12345", 15) + "123456789012345" + "xx" +
                                    Right("7000", 15) + "   11   22   33   44555555555" +
                                    std::string(23, '.') + "101112")
        << "high, low, open; the rate is the packet's change";
    EXPECT_TRUE(m_Screen->Empty());
}

// 990 is 1000 less a rise of 10, by the texts; or the first update's.
TEST_F(IndexPanelScreen, TheBaseIsThatOfTheFirstThreeFieldsOrElseTheFirstUpdates) {
    const std::string fields = Tagged("1", "1000.0000") + "1" + Tagged("1", "10.0000") + Left("", 59);
    for (const auto& [from, index] : {std::pair(std::size_t{0}, 70000000), {std::size_t{1}, 9900000}}) {
        Open(Inquiry(from == 0 ? "0006" : "0106", fields.substr(from * 17)));
        EXPECT_EQ(
            After(IndexUpdate("COMP").Index(index).Day(9900000, 9900001, 9899999)).substr(45 - from * 17),
            Tagged("1", "990.0001") + Tagged("4", "989.9999") + Tagged("5", "990.0000"));
    }
}

constexpr char kUpdates[] = "8000000";

struct IndexBoard : ScreenTest {
    IndexBoard() : ScreenTest("RITRDE02_R") {}
};

TEST_F(IndexBoard, ChangedRowsLeaveInBoardOrderOnceABatch) {
    Open(IndexBoardInquiry({"AAAA", "BBBB", "CCCC", "BBBB"}));
    EXPECT_EQ(Told(), (Events{Added('A', "AAAA", kUpdates), Added('A', "BBBB", kUpdates),
                              Added('A', "CCCC", kUpdates), Added('A', "BBBB", kUpdates)}));
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
    Expect<PlainRows, IndexBoardRow>("B1", {second, third});
    EXPECT_TRUE(Silent());
}

struct IndexTicks : ScreenTest {
    IndexTicks() : ScreenTest("RINTIK01_R") {}
    static std::string Row(char tag, const std::string& index, char sign, const std::string& change,
                           const std::string& rate, const std::string& volume) {
        const std::string color{tag, ' '};
        return "090000  " + color + Right(index, 15) + sign + color + Right(change, 15) + color +
               Right(rate, 7) + Right(volume, 15);
    }
};

TEST_F(IndexTicks, EveryUpdateIsARowWithTheRateOfItsChange) {
    Open("X1COMP......." + Right("7000.00", 15) + "........");
    EXPECT_EQ(Told(), Events{Added('A', "COMP", kUpdates)});
    Feed(IndexUpdate("COMP").Index(70706999).Change('2', 706000).Volume(0), IndexUpdate("MAIN"));
    Batch(IndexUpdate("COMP").Index(69000000).Change('5', 706000).Volume(12));
    Expect<PlainRows, IndexTickRow>("X1", {Row('1', "7070.6999", '2', "70.6000", "1.00", "0"),
                                           Row('4', "6900.0000", '5', "70.6000", "1.01", "12")});
    EXPECT_TRUE(Silent());
}

struct IndexChartTicks : ScreenTest {
    IndexChartTicks() : ScreenTest("RINTIK11_R") {}
    static std::string Inquiry(const std::string& code, char period, const std::string& block) {
        return "Y1" + code + "......" + period + Head("..") + block;
    }
};

TEST_F(IndexChartTicks, EveryUpdateLeavesAtOnceWithItsOwnQuantity) {
    Open(Inquiry("COMP", 'H', BlockOf({Left("20261119", 44)}, "44") + "more"));
    EXPECT_EQ(Told(), Events{Added('A', "COMP", kUpdates)});
    Feed(IndexUpdate("MAIN"), IndexUpdate("COMP").Index(70706999).Volume(12).TotalVolume(99));
    Expect<HeadedRows, IndexChartRow>("Y1" + Head(".2", "7070.6999", "12"),
                                      {"20261119090000" + Right("7070.6999", 15) + Right("12", 15)});
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
    EXPECT_EQ(Init(Inquiry("COMP", 'B', BlockOf({std::string(44, ' ')}, "44"))), 1);
    EXPECT_EQ(Told(), (Events{Added('A', "COMP", kUpdates), Deleted('A', "MAIN", kUpdates)}))
        << "a refused period has taken its key";
    for (const char period : {'A', 'C', 'D', 'E', 'F', 'G', 'H'}) {
        EXPECT_EQ(Init(Inquiry("COMP", period, Block("0", "44"))), 1) << period;
    }
}

std::string Candle(const Rows& figures) {
    return RowOf<IndexCandleRow>(figures);
}

struct IndexChart : ScreenTest {
    IndexChart() : ScreenTest("RICAND11_R") {}
    void Expect(const std::string& periodAndAction, const std::string& value, const std::string& quantity,
                const Rows& rows) {
        ScreenTest::Expect<HeadedRows, IndexCandleRow>("C1" + Head(periodAndAction, value, quantity), rows);
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

TEST_F(IndexChart, TheDayShowsTheDaysOwnFigures) {
    Open(CandleInquiry("COMP", 'L').Row(Newest("20261119")));
    Batch(At("090200", 70100000, 5).Day(70000000, 70200000, 69900000).TotalVolume(77));
    Expect("L2", "7010.000", "77",
           {Candle({"20261120", "090200", "7000.000", "7020.000", "6990.000", "7010.000", "77"})});
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
