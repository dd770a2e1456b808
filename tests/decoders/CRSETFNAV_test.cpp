#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

class FundValues : public ScreenTest {
protected:
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
