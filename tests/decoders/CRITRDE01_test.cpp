#include "layouts/RITRDE01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Inquiry(const std::string& range, const std::string& fields) {
    return "P1" + Left("COMP", 11) + range + fields;
}

std::string Tagged(const std::string& tag, const std::string& value) {
    return Left(tag, 2) + Right(value, 15);
}

class IndexPanelScreen : public ScreenTest {
protected:
    IndexPanelScreen() : ScreenTest("RITRDE01_R") {}
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

TEST_F(IndexPanelScreen, TheBaseIsFieldNineOrFollowsFromTheFirstFieldsOrThePacket) {
    Open(Inquiry("0303", "        "));
    EXPECT_EQ(After(IndexUpdate("COMP").Index(100000).Change('2', 100000)), "P11   0.00") << "a base of zero";
    const std::string head = Tagged("1", "1000.0000") + "1" + Tagged("1", "10.0000");
    // The tag of an open of 995 against the base, with a packet whose own base is 1010.
    const auto tag = [&](const std::string& range, const std::string& fields) {
        EXPECT_EQ(Init(Inquiry(range, fields)), 1);
        return After(IndexUpdate("COMP").Index(10000000).Change('5', 100000).Day(9950000, 0, 0))
            .substr(79, 1);
    };
    const std::string rest(199 - 35, ' ');
    EXPECT_EQ(tag("0008", head + rest.substr(0, 124 - 35)), "1") << "990 from the fields 0 to 2";
    EXPECT_EQ(tag("0009", head + rest.substr(0, 124 - 35) + Tagged("", "995")), "5") << "995 from field 9";
    EXPECT_EQ(tag("0017", head + rest), "4") << "a blank base is none: 1010 from the packet";
}

TEST_F(IndexPanelScreen, RefusesRangesAndLengthsThatDoNotFit) {
    Open(Inquiry("1717", "      "));
    for (const char* range : {"1716", "0018", "9999", "-1 3"}) {
        EXPECT_EQ(Init(Inquiry(range, std::string(199, ' '))), 0) << range;
    }
}

}  // namespace
