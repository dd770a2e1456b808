#include <gtest/gtest.h>

#include "layouts/RITRDE01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

using Events = std::vector<std::string>;

std::string Inquiry(const std::string& range, const std::string& fields) {
    return "P1" + Left("COMP", 11) + range + fields;
}

std::string Tagged(const std::string& tag, const std::string& value) {
    return Left(tag, 2) + Right(value, 15);
}

TEST(IndexPanelScreen, AnUpdateFillsItsFieldsAndLeavesTheInquirys) {
    Terminal terminal;
    const std::string fields = std::string(124, '.') + "xx" + Right("7000", 15) + std::string(58, '.');
    auto screen = terminal.Open("RITRDE01_R", Inquiry("0017", fields));
    EXPECT_EQ(terminal.Events(), Events{"add A [COMP       ] 4 8000000"});
    terminal.Feed(IndexUpdate("COMX"));
    terminal.Feed(IndexUpdate("COMP")
                      .Time("101112")
                      .Index(69900001)
                      .Change('7', 99999)
                      .Day(70000000, 70000001, 69899999)
                      .TotalVolume(12345)
                      .TotalValue(123456789012345678)
                      .Counts(11, 22, 33, 44, 555555555));
    terminal.EndBatch();
    EXPECT_EQ(screen->Next(), "P1" + Tagged("4", "6990.0001") + "7" + Tagged("4", "9.9999") + "4   0.15" +
                                  Tagged("1", "7000.0001") + Tagged("4", "6989.9999") +
                                  Tagged("5", "7000.0000") + Right("12345", 15) + "123456789012345" + "xx" +
                                  Right("7000", 15) + "   11   22   33   44555555555" + std::string(23, '.') +
                                  "101112")
        << "high, low, open; the rate is the packet's change";
    EXPECT_TRUE(screen->Empty());
}

TEST(IndexPanelScreen, TheBaseIsFieldNineOrFollowsFromTheFirstFieldsOrThePacket) {
    Terminal terminal;
    auto screen = terminal.Open("RITRDE01_R");
    const std::string head = Tagged("1", "1000.0000") + "1" + Tagged("1", "10.0000");
    // The tag of an open of 995 against the base, with a packet whose own base is 1010.
    const auto tag = [&](const std::string& range, const std::string& fields) {
        EXPECT_EQ(screen->Init(Inquiry(range, fields)), 1);
        terminal.Feed(IndexUpdate("COMP").Index(10000000).Change('5', 100000).Day(9950000, 0, 0));
        terminal.EndBatch();
        return screen->Next().substr(2 + 77, 1);
    };
    const std::string rest(199 - 35, ' ');
    EXPECT_EQ(tag("0008", head + rest.substr(0, 124 - 35)), "1") << "990 from the fields 0 to 2";
    EXPECT_EQ(tag("0009", head + rest.substr(0, 124 - 35) + Tagged("", "995")), "5") << "995 from field 9";
    EXPECT_EQ(tag("0017", head + rest), "4") << "a blank base is none: 1010 from the packet";
    screen->Init(Inquiry("0303", "        "));
    terminal.Feed(IndexUpdate("COMP").Index(100000).Change('2', 100000));
    terminal.EndBatch();
    EXPECT_EQ(screen->Next(), "P11   0.00") << "a base of zero";
}

TEST(IndexPanelScreen, RefusesRangesAndLengthsThatDoNotFit) {
    Terminal terminal;
    auto screen = terminal.Open("RITRDE01_R", Inquiry("1717", "      "));
    terminal.Events();
    for (const char* range : {"1716", "0018", "9999", "-1 3"}) {
        EXPECT_EQ(screen->Init(Inquiry(range, std::string(199, ' '))), 0) << range;
    }
    EXPECT_EQ(screen->Init(Inquiry("1717", "       ")), 0);
    EXPECT_EQ(screen->Init(Inquiry("1717", "     ")), 0);
    screen->Release();
    EXPECT_EQ(terminal.Events(), Events{"delete A [COMP       ] 4 8000000"});
}

}  // namespace
