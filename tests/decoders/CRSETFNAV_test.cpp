#include <gtest/gtest.h>

#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

using Events = std::vector<std::string>;

std::string Display(const std::string& tag, const std::string& field1, const std::string& field2,
                    const std::string& field3) {
    const auto field = [](const std::string& text) {
        return text.empty() ? std::string(24, ' ') : text.substr(0, 2) + Right(text.substr(2), 22);
    };
    return tag + std::string(11, ' ') + field(field1) + field(field2) + field(field3);
}

TEST(FundValues, ShowThreeValuesAgainstTheBase) {
    Terminal terminal;
    auto screen = terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    EXPECT_EQ(terminal.Events(), Events{Added('N', "1FUND", "80000000")});
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty()) << "Init sends nothing";

    terminal.Feed(Nav("1FUND").Kind("0").Value1("1000.005"));
    terminal.EndBatch();
    EXPECT_TRUE(Shows<NavDisplay>(screen->Next(), Display("N1", "1 1000.00", "1 1001.25", "4 998.50")))
        << "compared as it came, shown with two decimals, inquiry values until a packet brings others";

    terminal.Feed(Nav("1FUND").Kind("1").Value1("  1000.00").Value2("-3"));
    terminal.Feed(Nav("1FUND").Kind("0").Value1("999"));
    terminal.EndBatch();
    EXPECT_TRUE(Shows<NavDisplay>(screen->Next(), Display("N1", "4 999.00", "5 1000.00", "4 0.00")))
        << "one message for both packets; a negative value shows as zero";
    EXPECT_TRUE(screen->Empty());
}

TEST(FundValues, OtherFundsAndLargerKindsChangeNothing) {
    Terminal terminal;
    auto screen = terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    for (const Nav& packet : {Nav("2FUND"), Nav("1FUND2"), Nav("1FUND").Kind("2"),
                              Nav("1FUND").Kind("4294967297"), Nav("1FUND").Kind("3000000000")}) {
        terminal.Feed(packet);
    }
    terminal.EndBatch();
    EXPECT_TRUE(screen->Empty());
    terminal.Feed(Nav("1FUND").Kind("-1").Value1("5"));
    terminal.Feed(Nav("1FUND").Kind("").Value1(""));
    terminal.EndBatch();
    EXPECT_TRUE(Shows<NavDisplay>(screen->Next(), Display("N1", "4 0.00", "1 1001.25", "4 998.50")))
        << "a kind below 1 is the first value; a blank value is zero";
}

TEST(FundValues, ABaseOfZeroHasFlatAndRisingValuesOnly) {
    Terminal terminal;
    auto screen = terminal.Open("RSETFNAV_R", NavInquiry("1FUND").Base("").First("0.001").Second("-1"));
    terminal.Feed(Nav("1FUND").Value1("0"));
    terminal.EndBatch();
    EXPECT_TRUE(Shows<NavDisplay>(screen->Next(), Display("N1", "5 0.00", "1 0.00", "5 0.00")));
}

TEST(FundValues, AnotherInquiryMovesTheSubscriptionAndStartsOver) {
    Terminal terminal;
    auto screen = terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    terminal.Feed(Nav("1FUND").Value1("5"));
    terminal.EndBatch();
    screen->Next();
    terminal.Events();
    EXPECT_EQ(screen->Init(NavInquiry("1OTHER").Tag("N2")), 1);
    EXPECT_EQ(terminal.Events(),
              (Events{Added('N', "1OTHER", "80000000"), Deleted('N', "1FUND", "80000000")}));
    terminal.Feed(Nav("1FUND").Value1("5"));
    terminal.Feed(Nav("1OTHER").Kind("1").Value1("1").Value2("2"));
    terminal.EndBatch();
    EXPECT_TRUE(Shows<NavDisplay>(screen->Next(), Display("N2", "", "4 1.00", "4 2.00")))
        << "first value blank again";
    terminal.Events();

    EXPECT_EQ(screen->Init(NavInquiry("1OTHER")), 1);
    EXPECT_EQ(terminal.Events(),
              (Events{Added('N', "1OTHER", "80000000"), Deleted('N', "1OTHER", "80000000")}));
    screen->Release();
    EXPECT_EQ(terminal.Events(), Events{Deleted('N', "1OTHER", "80000000")});
    screen->Unregister();
    EXPECT_EQ(terminal.Events(), Events{}) << "nothing is given up twice";
}

TEST(FundValues, ATextOfAnyShorterLengthIsRefusedAndTheFormerFundStays) {
    Terminal terminal;
    auto screen = terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    terminal.Events();
    const std::string whole = NavInquiry("1OTHER");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(screen->Init(whole.substr(0, length)), 0) << length;
    }
    EXPECT_EQ(terminal.Events(), Events{});
    EXPECT_EQ(screen->Init(whole + "more"), 1) << "what follows is ignored";
    EXPECT_EQ(terminal.Events(),
              (Events{Added('N', "1OTHER", "80000000"), Deleted('N', "1FUND", "80000000")}));
}

}  // namespace
