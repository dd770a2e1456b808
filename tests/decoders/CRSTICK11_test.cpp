#include <gtest/gtest.h>

#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

using Events = std::vector<std::string>;

std::string Front(const std::string& tag, const std::string& price, const std::string& quantity, int rows) {
    return tag + Head("A2", price, quantity) + Block(std::to_string(rows), "38");
}

std::string Row(const std::string& dateTime, const std::string& price, const std::string& volume) {
    return dateTime + Right(price, 12) + Right(volume, 12);
}

TEST(StockTicks, RowsOfABatchLeaveTogetherBehindTheLatestFigures) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII").Date("20261120"));
    EXPECT_EQ(terminal.Events(), Events{Added('1', "1ASII", "80000000")});
    terminal.Feed(Trade("1ASII").Time("090000").Price(1005).Volume(3).TotalVolume(103));
    terminal.Feed(Trade("1ASII").Time("090001").Price(1010).Volume(2147483647).TotalVolume(-7));
    terminal.EndBatch();
    EXPECT_TRUE((ShowsRows<HeadedRows, TickRow>(
        screen->Next(), Front("T1", "1010", "-7", 2) + Row("20261120090000", "1005", "3") +
                            Row("20261120090001", "1010", "2147483647"))));
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty());

    terminal.Feed(Trade("1ASII").Time("090002").Price(0).Volume(-1).TotalVolume(0));
    terminal.EndBatch();
    EXPECT_TRUE((ShowsRows<HeadedRows, TickRow>(screen->Next(),
                                                Front("T1", "0", "0", 1) + Row("20261120090002", "0", "-1"))))
        << "zero is a digit, and a volume below zero is a trade";
}

TEST(StockTicks, PacketsWithoutVolumeAndOfOtherStocksChangeNothing) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    for (const Trade& packet :
         {Trade("1ASII").Price(7).Volume(0), Trade("2ASII").Price(8), Trade("1ASIIX").Price(9)}) {
        terminal.Feed(packet);
    }
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty());
    terminal.Feed(Trade("1ASII").Price(1005).TotalVolume(50));
    terminal.Feed(Trade("1ASII").Price(7).Volume(0).TotalVolume(51));
    terminal.EndBatch();
    EXPECT_EQ(screen->Next().substr(0, sizeof(HeadedRows)), Front("T1", "1005", "50", 1));
}

TEST(StockTicks, TheDateIsTheInquirysOrElseTheMachines) {
    Terminal terminal;
    const tickhost_time newYear{2027, 1, 2, 23, 59, 59, 0};
    tickhost_set_local_time(&newYear);
    auto screen = terminal.Open("RSTICK11_R");
    const auto dateOf = [&](const std::string& init) {
        EXPECT_EQ(screen->Init(init), 1);
        terminal.Feed(Trade("1ASII"));
        terminal.EndBatch();
        return screen->Next().substr(sizeof(HeadedRows), 8);
    };
    EXPECT_EQ(dateOf(TickInquiry("1ASII").Date("20261120")), "20261120");
    EXPECT_EQ(dateOf(TickInquiry("1ASII").Date("")), "20270102");
    EXPECT_EQ(dateOf(TickInquiry("1ASII").Dates({})), "20270102");
    EXPECT_EQ(dateOf("T1" + Left("1ASII", 11) + Head("..") + Block("1", "4", "2026")), "2026    ")
        << "a shorter row has spaces for what it lacks";
    EXPECT_EQ(dateOf("T1" + Left("1ASII", 11) + Head("..") + Block("1", "40", Left("20261121", 40))),
              "20261121")
        << "of a longer row the known head counts";
}

TEST(StockTicks, AnotherInquiryDropsTheRowsAndMovesTheSubscription) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    terminal.Feed(Trade("1ASII"));
    terminal.Events();
    EXPECT_EQ(screen->Init(TickInquiry("1BBCA").Tag("T2")), 1);
    EXPECT_EQ(terminal.Events(),
              (Events{Added('1', "1BBCA", "80000000"), Deleted('1', "1ASII", "80000000")}));
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty());
    terminal.Feed(Trade("1ASII"));
    terminal.Feed(Trade("1BBCA").Price(5).TotalVolume(6));
    terminal.EndBatch();
    EXPECT_EQ(screen->Next().substr(0, sizeof(HeadedRows)), Front("T2", "5", "6", 1));
    terminal.Events();

    screen->Release();
    EXPECT_EQ(terminal.Events(), Events{Deleted('1', "1BBCA", "80000000")});
    screen->Unregister();
    EXPECT_EQ(terminal.Events(), Events{});
}

TEST(StockTicks, StopKeepsTheSubscriptionAndTheNextInquiryStartsOver) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    terminal.Feed(Trade("1ASII"));
    terminal.Events();
    screen->Stop();
    terminal.EndBatch();
    EXPECT_EQ(screen->Init(TickInquiry("1ASII")), 1);
    terminal.EndBatch();
    EXPECT_EQ(terminal.Events(),
              (Events{Added('1', "1ASII", "80000000"), Deleted('1', "1ASII", "80000000")}));
}

TEST(StockTicks, ARefusedInquiryKeepsStockAndRows) {
    Terminal terminal;
    auto screen = terminal.Open("RSTICK11_R", TickInquiry("1ASII"));
    terminal.Feed(Trade("1ASII").Price(1005).TotalVolume(9));
    terminal.Events();
    const std::string whole = TickInquiry("1OTHER").Tag("T2");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(screen->Init(whole.substr(0, length)), 0) << length;
    }
    EXPECT_EQ(screen->Init(whole + "x"), 0) << "nothing may follow the row";
    EXPECT_EQ(screen->Init(TickInquiry("1OTHER").Tag("T2").Dates({"20261120", "20261121"})), 0);
    EXPECT_EQ(terminal.Events(), Events{});

    terminal.EndBatch();
    EXPECT_TRUE((ShowsRows<HeadedRows, TickRow>(
        screen->Next(), "T2" + Head("..") + Block("1", "38") + Row("20261120090000", "1005", "1"))))
        << "the row still leaves, behind the tag and head that the refused text brought";
    EXPECT_EQ(screen->Init(TickInquiry("1BBCA")), 1);
    EXPECT_EQ(terminal.Events(),
              (Events{"view", Added('1', "1BBCA", "80000000"), Deleted('1', "1ASII", "80000000")}));
}

}  // namespace
