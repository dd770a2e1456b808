#include "layouts/RSTRBK01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Row(const std::string& color, const std::string& price, const std::string& trades,
                const std::string& volume, const std::string& value) {
    return RowOf<PriceRow>({color + " ", price, trades, volume, value});
}

std::string Inquiry(const std::string& key, const Rows& rows = {}, const std::string& size = "62") {
    return "V1" + Left(key, 11) + "unused.." + BlockOf(rows, size);
}

class VolumeByPrice : public ScreenTest {
protected:
    VolumeByPrice() : ScreenTest("RSTRBK01_R") {}
    void Traded(int32_t price, int32_t volume, char sign = '2') {
        Feed(Trade("1ASII").Price(price).Volume(volume).Change(sign, 1).Lot(10));
    }
    void Expect(const Rows& rows) {
        EndBatch();
        EXPECT_TRUE((ShowsRows<PlainRows, PriceRow>(m_Screen->Next(), "V1" + BlockOf(rows, "62"))));
    }
};

TEST_F(VolumeByPrice, TradesAddToTheirPriceAndNewPricesFindTheirPlace) {
    Open(Inquiry("1ASII"));
    EXPECT_EQ(m_Terminal.Events(), Events{Added('1', "1ASII", "80000000")});
    Traded(1000, 3);
    EXPECT_EQ(m_Terminal.Events(), Events{"list"}) << "at once, and once for a new price";
    Expect({Row("1", "1000", "1", "3", "30")});
    Traded(1000, 4, '5');
    Traded(1010, 0, '5');
    Traded(990, 1, '9');
    Traded(1005, 2);
    Feed(Trade("1BBCA").Price(1));
    EXPECT_EQ(m_Terminal.Events(), (Events{"view", "list", "list", "list"}));
    Expect({Row("4", "1010", "1", "0", "0"), Row("1", "1005", "1", "2", "20"),
            Row("1", "1000", "2", "7", "70"), Row("5", "990", "1", "1", "9")});
    EXPECT_TRUE(Silent());
}

TEST_F(VolumeByPrice, TheInquirysRowsKeepTheirOrderAndTheFirstOfAPriceCounts) {
    const std::string low = Row("x", "5", "1", "1", "1");
    const std::string high = Row("x", "9", "2147483647", "2147483647", "");
    Open(Inquiry("1ASII", {low, high, low}));
    EXPECT_TRUE(Silent()) << "Init sends nothing";
    Traded(5, 1);
    Traded(9, 1);
    Traded(7, 0, '0');
    Expect({Row("5", "7", "1", "0", "0"), Row("x", "5", "2", "2", "0"),
            Row("x", "9", "-2147483648", "-2147483648", "-193273528"), low});
}

TEST_F(VolumeByPrice, RowsOfAnInquiryLieWithinItsText) {
    const std::string row = Row("1", "1000", "1", "1", "1");
    Open(Inquiry("1ASII", {row}));
    for (const char* count : {"2", "9999", "-1"}) {
        EXPECT_EQ(Init("V1" + Left("1OTHER", 19) + Block(count, "62", row)), 0) << count;
    }
    EXPECT_EQ(Init(Inquiry("1ASII", {row, row.substr(0, 32)}, "32")), 1);
    Traded(1000, 1);
    Expect(
        {row.substr(0, 17) + Right("2", 15) + Right("1", 15) + Right("10", 15), Left(row.substr(0, 32), 62)});
    EXPECT_EQ(Init(Inquiry("1ASII", {row, row}, "9999")), 1) << "no more than a row's width is read";
    EXPECT_EQ(Init(Inquiry("1ASII", {row}, "-62")), 1);
}

TEST_F(VolumeByPrice, AWindowMayEndTheTableWhenItHearsOfARow) {
    for (const bool stop : {true, false}) {
        Open(Inquiry("1ASII"));
        m_Screen->OnNextMessage([&] { stop ? m_Screen->Stop() : Init(Inquiry("1BBCA")); });
        Traded(1000, 1);
        Init(Inquiry("1ASII"));
        Traded(990, 1);
        Expect({Row("1", "990", "1", "1", "9")});
    }
}

}  // namespace
