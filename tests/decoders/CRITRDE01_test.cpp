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

TEST_F(IndexPanelScreen, RefusesRangesAndLengthsThatDoNotFit) {
    Open(Inquiry("1717", "      "));
    for (const char* range : {"1716", "0018", "9999", "-1 3"}) {
        EXPECT_EQ(Init(Inquiry(range, std::string(199, ' '))), 0) << range;
    }
}

}  // namespace
