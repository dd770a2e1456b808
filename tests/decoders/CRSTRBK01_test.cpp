#include <gtest/gtest.h>

#include "layouts/RSTRBK01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

using Events = std::vector<std::string>;

std::string Row(const std::string& color, const std::string& price, const std::string& trades,
                const std::string& volume, const std::string& value) {
    return Left(color, 2) + Right(price, 15) + Right(trades, 15) + Right(volume, 15) + Right(value, 15);
}

std::string Inquiry(const std::string& key, const std::vector<std::string>& rows = {},
                    const std::string& size = "62") {
    std::string text = "V1" + Left(key, 11) + "unused.." + Block(std::to_string(rows.size()), size);
    for (const std::string& row : rows) {
        text += row;
    }
    return text;
}

std::string Table(const std::vector<std::string>& rows) {
    std::string text = "V1" + Block(std::to_string(rows.size()), "62");
    for (const std::string& row : rows) {
        text += row;
    }
    return text;
}

class VolumeByPrice : public testing::Test {
protected:
    void Open(const std::string& init) { m_Screen = m_Terminal.Open("RSTRBK01_R", init); }
    void Feed(int32_t price, int32_t volume, char sign = '2') {
        m_Terminal.Feed(Trade("1ASII").Price(price).Volume(volume).Change(sign, 1).Lot(10));
    }
    void Expect(const std::vector<std::string>& rows) {
        m_Terminal.EndBatch();
        EXPECT_TRUE((ShowsRows<PlainRows, PriceRow>(m_Screen->Next(), Table(rows))));
    }

    Terminal m_Terminal;
    std::unique_ptr<Screen> m_Screen;
};

TEST_F(VolumeByPrice, TradesAddToTheirPriceAndNewPricesFindTheirPlace) {
    Open(Inquiry("1ASII"));
    EXPECT_EQ(m_Terminal.Events(), Events{Added('1', "1ASII", "80000000")});
    Feed(1000, 3);
    EXPECT_EQ(m_Terminal.Events(), Events{"list"}) << "at once, and once for a new price";
    Expect({Row("1", "1000", "1", "3", "30")});
    Feed(1000, 4, '5');
    Feed(1010, 0, '5');
    Feed(990, 1, '9');
    Feed(1005, 2);
    m_Terminal.Feed(Trade("1BBCA").Price(1));
    EXPECT_EQ(m_Terminal.Events(), (Events{"view", "list", "list", "list"}));
    Expect({Row("4", "1010", "1", "0", "0"), Row("1", "1005", "1", "2", "20"),
            Row("1", "1000", "2", "7", "70"), Row("5", "990", "1", "1", "9")});
    m_Terminal.EndBatch();
    EXPECT_TRUE(m_Screen->Empty());
}

TEST_F(VolumeByPrice, TheInquirysRowsKeepTheirOrderAndTheFirstOfAPriceCounts) {
    const std::string low = Row("x", "5", "1", "1", "1");
    const std::string high = Row("x", "9", "2147483647", "2147483647", "");
    Open(Inquiry("1ASII", {low, high, low}));
    m_Terminal.EndBatch();
    EXPECT_TRUE(m_Screen->Empty()) << "Init sends nothing";
    Feed(5, 1);
    Feed(9, 1);
    Feed(7, 0, '0');
    Expect({Row("5", "7", "1", "0", "0"), Row("x", "5", "2", "2", "0"),
            Row("x", "9", "-2147483648", "-2147483648", "-193273528"), low});
}

TEST_F(VolumeByPrice, RowsOfAnInquiryLieWithinItsText) {
    const std::string row = Row("1", "1000", "1", "1", "1");
    Open(Inquiry("1ASII", {row}));
    m_Terminal.Events();
    for (const char* count : {"2", "9999", "-1"}) {
        EXPECT_EQ(m_Screen->Init("V1" + Left("1OTHER", 19) + Block(count, "62", row)), 0) << count;
    }
    for (std::size_t length = 0; length < 45 + 62; ++length) {
        EXPECT_EQ(m_Screen->Init(Inquiry("1OTHER", {row}).substr(0, length)), 0) << length;
    }
    EXPECT_EQ(m_Terminal.Events(), Events{});
    EXPECT_EQ(m_Screen->Init(Inquiry("1ASII", {row, row.substr(0, 32)}, "32")), 1);
    Feed(1000, 1);
    Expect(
        {row.substr(0, 17) + Right("2", 15) + Right("1", 15) + Right("10", 15), Left(row.substr(0, 32), 62)});
    EXPECT_EQ(m_Screen->Init(Inquiry("1ASII", {row, row}, "9999")), 1)
        << "no more than a row's width is read";
    EXPECT_EQ(m_Screen->Init(Inquiry("1ASII", {row}, "-62")), 1);
}

TEST_F(VolumeByPrice, StopEndsTheTableAndReleaseTheSubscription) {
    Open(Inquiry("1ASII"));
    Feed(1000, 1);
    m_Screen->Stop();
    EXPECT_EQ(m_Screen->Init(Inquiry("1BBCA")), 1);
    m_Terminal.EndBatch();
    EXPECT_EQ(m_Terminal.Events(),
              (Events{Added('1', "1ASII", "80000000"), "list", Added('1', "1BBCA", "80000000"),
                      Deleted('1', "1ASII", "80000000")}));
    m_Screen->Release();
    m_Screen->Unregister();
    EXPECT_EQ(m_Terminal.Events(), Events{Deleted('1', "1BBCA", "80000000")});
}

TEST_F(VolumeByPrice, AWindowMayEndTheTableWhenItHearsOfARow) {
    for (const bool stop : {true, false}) {
        Open(Inquiry("1ASII"));
        m_Screen->OnNextMessage([&] { stop ? m_Screen->Stop() : m_Screen->Init(Inquiry("1BBCA")); });
        Feed(1000, 1);
        m_Screen->Init(Inquiry("1ASII"));
        Feed(990, 1);
        Expect({Row("1", "990", "1", "1", "9")});
    }
}

}  // namespace
