#include "layouts/RSDONE01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Inquiry(const std::string& key, const std::string& base, const Rows& rows = {}) {
    return "F1" + Left(key, 11) + Right(base, 12) + BlockOf(rows, "79");
}

std::string Row(const std::string& ref, char tag, const std::string& price, char sign,
                const std::string& change, const std::string& rate, const std::string& volume,
                const std::string& brokers) {
    const std::string color{tag, ' '};
    return "090000" + Left(ref, 8) + color + Right(price, 12) + sign + color + Right(change, 12) + color +
           Right(rate, 6) + "  " + Right(volume, 12) + brokers;
}

class StockFills : public ScreenTest {
protected:
    StockFills() : ScreenTest("RSDONE01_R") {}
    void Expect(const Rows& rows) {
        EndBatch();
        EXPECT_TRUE((ShowsRows<PlainRows, FillRow>(m_Screen->Next(), "F1" + BlockOf(rows, "79"))));
    }
};

TEST_F(StockFills, ATradeIsARowWithRateAndBrokers) {
    Open(Inquiry("1ASII", "1000"));
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "80000000")});
    Feed(Trade("1ASII").Volume(0), Trade("2ASII"));
    Feed(Trade("1ASII").Price(1019).Change('2', 5).Volume(3).Ref("00000042").Brokers('F', 'D', "AB", "WXYZ"));
    Feed(Trade("1ASII").Price(1019).Change('7', 5).Volume(-3).Brokers('x', ' '));
    Feed(Trade("1ASII").Price(1019).Change(' ', 5));
    Expect({Row("00000042", '1', "1019", '2', "5", "1.90", "3", "4 FAB  1 DWXYZ"),
            Row("", '4', "1019", '7', "5", "1.90", "-3", "  x           "),
            Row("", '5', "1019", ' ', "5", "1.90", "1", "1 D    1 D    ")});
    EXPECT_TRUE(Silent());
}

}  // namespace
