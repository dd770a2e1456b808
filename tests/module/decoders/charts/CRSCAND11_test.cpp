#include <array>

#include "module/layouts/RSCAND11.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Candle(const Rows& figures) {
    return RowOf<StockCandleRow>(figures);
}

// A row of the inquiry, today's, at a time of day.
std::string Newest(const std::string& time) {
    return Candle({"20261120", time, "1000", "1010", "990", "1005", "40"});
}

// A chart whose throttle is open at each batch end unless the test holds the clock.
struct StockChart : ScreenTest {
    StockChart() : ScreenTest("RSCAND11_R") {}
    void Open(const std::string& init) {
        tickhost_set_tick_count(1, m_Now);
        ScreenTest::Open(init);
    }
    void EndBatchAt(uint32_t milliseconds) {
        tickhost_set_tick_count(1, milliseconds);
        m_Terminal.EndBatch();
    }
    void EndBatch() override { EndBatchAt(m_Now += 1000); }
    // One row, of today.
    void ExpectRow(const std::string& periodAndAction, const std::string& price, const std::string& quantity,
                   Rows figures) {
        figures.insert(figures.begin(), "20261120");
        Expect<HeadedRows, StockCandleRow>("C1" + Head(periodAndAction, price, quantity), {Candle(figures)});
    }
    // The batch end after a trade; see NextShort.
    std::string Traded(const std::string& time, int32_t volume) {
        Batch(At(time, 1000, volume));
        return NextShort();
    }
    // The row of a closed minute; see NextShort.
    std::string Closed(const std::string& time) {
        Feed(Bar("1ASII", time));
        return NextShort();
    }
    // Action, row time and volume of the next row.
    std::string NextShort() {
        const std::string buffer = m_Screen->Next();
        const std::string volume = buffer.size() < 168 ? "" : buffer.substr(158, 10);
        return buffer.empty() ? "" : buffer.substr(3, 1) + " " + buffer.substr(120, 6) + " " + volume;
    }

    static Trade At(const std::string& time, int32_t price, int32_t volume) {
        return Trade("1ASII").Time(time).Price(price).Volume(volume).TotalVolume(1000);
    }

    uint32_t m_Now = 0;
};

TEST_F(StockChart, AFullTurnOfAThreeMinuteBucket) {
    Open(CandleInquiry("1ASII", 'E').Row(Newest("090130")));
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "90000000")});
    Batch(At("090200", 1015, 5));
    ExpectRow("E1", "1015", "1000", {"090200", "1000", "1015", "990", "1015", "45"});

    Feed(Bar("1ASII", "090200").Prices(1000, 1012, 995, 1012).Volume(7));
    ExpectRow("E1", "1015", "1000", {"090200", "1000", "1012", "990", "1012", "47"});

    Feed(At("090301", 1020, 3).TotalVolume(1003));
    Feed(Bar("1ASII", "090300").Prices(1013, 1014, 980, 1014).Volume(10));
    ExpectRow("E1", "1020", "1003", {"090300", "1000", "1014", "980", "1014", "57"});
    EndBatch();
    ExpectRow("E2", "1020", "1003", {"090301", "1000", "1014", "980", "1020", "48"});

    Batch(At("090310", 1018, 2).TotalVolume(1005));
    ExpectRow("E1", "1018", "1005", {"090310", "1020", "1020", "1018", "1018", "5"});
    EXPECT_TRUE(m_Screen->Empty());
}

// The boundary shows by what rolls: a trade at the boundary stays out of the next candle, one a second later
// is in. The first row shows whether the inquiry's candle was finished.
TEST_F(StockChart, TheInquirysRowSetsTheBoundaryAndTheFirstAction) {
    const std::array<std::string, 5> cases[] = {
        {"C", "090030", "090100", "090101", "1"}, {"C", "090100", "090200", "090201", "2"},
        {"C", "000001", "000100", "000101", "1"}, {"C", "199899", "203900", "203901", "1"},
        {"E", "090300", "090600", "090601", "2"}, {"G", "095501", "100000", "100001", "1"},
        {"H", "101000", "102000", "102001", "2"}, {"I", "114459", "114500", "114501", "1"},
        {"J", "100001", "103000", "103001", "1"}, {"K", "100000", "110000", "110001", "2"}};
    for (const auto& [period, rowTime, boundary, after, firstAction] : cases) {
        SCOPED_TRACE(period + " " + rowTime);
        Open(CandleInquiry("1ASII", period[0]).Row(Newest(rowTime)));
        Feed(At(boundary, 1000, 100));
        EXPECT_EQ(Traded(after, 1).substr(0, 1), firstAction);
        EXPECT_EQ(Closed(boundary)[0], '1');
        EXPECT_EQ(Traded("235958", 2)[0], '2');
        EXPECT_EQ(Traded("235959", 4), "1 235959          7");
    }
}

TEST_F(StockChart, TheThrottleOpensBehind300MillisecondsAndSurvivesTheCounterWrap) {
    constexpr uint32_t kStart = 0xFFFFFF00;
    m_Now = kStart;
    Open(CandleInquiry("1ASII", 'E').Row(Newest("090130")));
    Feed(At("090200", 1015, 1), At("090201", 1016, 1));
    EndBatchAt(kStart + 200);
    EXPECT_TRUE(m_Screen->Empty());
    EndBatchAt(100);  // wrapped: the time is taken, nothing is sent
    EndBatchAt(400);
    EXPECT_TRUE(m_Screen->Empty()) << "exactly 300 is too early";
    EndBatchAt(401);
    EXPECT_EQ(NextShort(), "1 090201         42") << "the change has waited";
    EndBatchAt(5000);
    EXPECT_TRUE(m_Screen->Empty());
}

TEST_F(StockChart, ATradeThatTheLastBarCoversSendsNothing) {
    Open(CandleInquiry("1ASII", 'G').Row(Newest("090130")));
    Feed(At("090200", 1015, 1));
    Closed("090200");
    EndBatchAt(m_Now = 1000);
    Feed(At("090201", 1015, 1));
    EndBatchAt(1300);
    EXPECT_TRUE(m_Screen->Empty()) << "the time is taken also without a row";
    EXPECT_EQ(Traded("090202", 1), "1 090202         43");
}

TEST_F(StockChart, ARollClearsAChangeThatWasHeldBack) {
    for (const auto& [start, end] : {std::pair(1000U, 1300U), {0xFFFFFF00U, 100U}}) {
        m_Now = start;
        Open(CandleInquiry("1ASII", 'E').Row(Newest("090130")));
        Feed(At("090301", 1020, 3));
        Closed("090300");
        EndBatchAt(end);
        m_Now = 5000;
        EXPECT_TRUE(Silent()) << "too early, or the counter has wrapped";
        EXPECT_EQ(Traded("090302", 2), "2 090302          5");
    }
}

TEST_F(StockChart, TimesThatAreNoneDaysAndMidnight) {
    for (const char* time : {"199900", "235959", "      "}) {
        Open(CandleInquiry("1ASII", 'C').Row(Newest(time)));
        EXPECT_EQ(Traded("235957", 1), "2 235957          1") << time;
        Closed("100000");
        Traded("235958", 2);
        EXPECT_EQ(Traded("235959", 4), "1 235959          6") << "no boundary was known at the first trade";
    }
    for (const auto& [date, action] : {std::pair("20261119", "2"), {"20261120", "1"}, {"20261121", "1"}}) {
        Open(CandleInquiry("1ASII", 'L').Row(Candle({date, "090130"})));
        EXPECT_EQ(Traded("090200", 5), std::string(action) + " 090200       1000") << date;
    }
    // The second trade is in the next candle if the first one lies behind the boundary, a minute past the
    // bar.
    const std::array<std::string, 4> bars[] = {{"235900", "235930", "235931", "6"},
                                               {"090330", "090401", "090402", "1"}};
    for (const auto& [bar, first, second, volume] : bars) {
        Open(CandleInquiry("1ASII", 'C').Row(Newest("090130")));
        Closed(bar);
        EXPECT_EQ(Traded(first, 5), "2 " + first + "         45");
        EXPECT_EQ(Traded(second, 1), "1 " + second + "          " + volume);
    }
}

TEST_F(StockChart, ARollTakesBackWhatCameBehindTheClosingBar) {
    Open(CandleInquiry("1ASII", 'E').Row(Newest("090130")));
    EXPECT_EQ(Closed("090300"), "1 090300         41");
    EXPECT_TRUE(Silent()) << "without a trade the roll waits";
    EXPECT_EQ(Traded("090310", 9), "2 090310         49") << "still the closed bucket's live column";
    Feed(Bar("1ASII", "090400").Prices(-5, -5, -5, -5).Volume(9));
    // The inquiry's price stands in the next column until a trade falls there; -1 is no high.
    ExpectRow("E1", "1000", "1000", {"090400", "-5", "-1", "-5", "-5", "9"});
}

TEST_F(StockChart, HalfMinutesMergeBarsInSilenceAndSumsOfQuantitiesWrap) {
    Open(CandleInquiry("1ASII", 'B').Row(Newest("090945")));
    Feed(Bar("1ASII", "091000").Prices(1, 2000, 1, 1));
    EXPECT_TRUE(m_Screen->Empty());
    Batch(At("091001", 1000, 1));
    ExpectRow("B1", "1000", "1000", {"091001", "1000", "2000", "1", "1000", "41"});
    EXPECT_EQ(Traded("091002", 2147483647), "1 091002 -214748360") << "-2147483608, cut to its field";
    for (const auto& [rowTime, firstAction] : {std::pair("090130", '2'), {"090131", '1'}}) {
        Open(CandleInquiry("1ASII", 'B').Row(Newest(rowTime)));
        EXPECT_EQ(Traded("090132", 1)[0], firstAction) << rowTime;
    }
}

TEST_F(StockChart, AnUnknownPeriodTakesItsKeyAndOnlyTicksStayAskedFor) {
    for (const char period : {'B', 'C', 'E', 'G', 'H', 'I', 'J', 'K', 'L', 'A'}) {
        Open(CandleInquiry("1ASII", period));
        EXPECT_EQ(Told(), Events{Added('1', "1ASII", "90000000")});
        m_Screen->Unregister();
        EXPECT_EQ(Told(), period == 'A' ? Events{} : Events{Deleted('1', "1ASII", "90000000")});
    }
    Open(CandleInquiry("1ASII", 'E'));
    Told();
    for (const char period : {'D', 'F', 'M', ' ', '1'}) {
        EXPECT_EQ(Init(CandleInquiry("1OTHER", period)), 0) << period;
        EXPECT_EQ(Told(), Events{});
    }
    EXPECT_EQ(Init(CandleInquiry("1ASII", 'E')), 1);
    EXPECT_EQ(Told(), (Events{Added('1', "1ASII", "90000000"), Deleted('1', "1OTHER", "90000000")}));
}

}  // namespace
