#include "layouts/RSBRSM01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

class BrokerSummary : public ScreenTest {
protected:
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

}  // namespace
