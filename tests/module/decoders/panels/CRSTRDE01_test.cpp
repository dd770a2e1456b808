#include "module/layouts/RSTRDE01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Inquiry(const std::string& key, const std::string& range, const std::string& fields) {
    return "P1" + Left(key, 11) + range + fields;
}

std::size_t Offset(int field, int from = 0) {
    return static_cast<std::size_t>(WidthOf(kStockPanel, from, field));
}

std::string Blank(int from, int to) {
    std::string blank;
    blank.resize(Offset(to + 1, from), ' ');
    return blank;
}

struct StockPanelScreen : ScreenTest {
    StockPanelScreen() : ScreenTest("RSTRDE01_R") {}
    void Open(const std::string& range, const std::string& fields) {
        ScreenTest::Open(Inquiry("1ASII", range, fields));
    }
};

TEST_F(StockPanelScreen, TradeAndBookFillTheirFieldsAndLeaveTheInquirys) {
    std::string fields(Offset(56), '.');
    const auto expect = [&](int field, const std::string& text) {
        fields.replace(Offset(field), text.size(), text);
    };
    expect(4, "5 " + Right("1000", 12));
    expect(28, Right("250.5", 14));
    expect(48, Right("10", 15) + Right("99999999999", 18) + Right("", 8));
    Open("000055", fields);
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "a0000000")});
    expect(3, "1 " + Right("1019", 12));
    expect(8, "3");
    expect(9, "1 " + Right("20", 12) + "1 " + Right("1.90", 6) + Right("123", 8) + Right("2147483647", 15) +
                  Right("9876543211", 18));
    expect(14, "1 " + Right("1001", 12) + "5 " + Right("1000", 12) + "4 " + Right("999", 12));
    expect(17, ".." + Right("45.99", 12) + Right("0", 18));
    expect(21, "1 " + Right("1020", 12) + "5 " + Right("1000", 12));
    expect(48, Right("12", 15) + Right("99999999999", 18) + Right("1", 8));
    expect(18, Right("26", 18));
    expect(49, Right("100000002037", 18));
    Trade trade = Trade("1ASII").Price(1019).Change('3', 20).Day(1001, 1000, 999).Best(1000, 1020);
    trade.Totals(123, 2147483647, 9876543210987).Lot(100).Volume(2).Brokers('F', 'F');
    EXPECT_EQ(After(trade), "P1" + fields);
    expect(21, "1 " + Right("1005", 12) + "4 " + Right("995", 12) + Right("20", 15) + Right("10", 15));
    expect(44, Right("200", 15) + Right("100", 15));
    EXPECT_EQ(After(Book("1ASII")), "P1" + fields);
}

TEST_F(StockPanelScreen, WhatTheRangeDoesNotReachIsNotTaken) {
    Open("003020", Blank(3, 20));
    EXPECT_EQ(After(Book("1ASII")), "nothing") << "no book field";
    Open("018027", Right("7", 18) + Blank(19, 27));
    EXPECT_EQ(After(Trade("1ASII")).substr(2, 18), Right("7", 18)) << "field 28 is out of reach";
    Open("017017", ".." + Right("9", 12));
    EXPECT_EQ(After(Trade("1ASII").Totals(1, 0, 5)), "P1.." + std::string(12, ' '))
        << "no average without volume";
}

TEST_F(StockPanelScreen, RunningValuesWrapAt32BitsAndGoOnFromTheirText) {
    const auto sums = [](const char* quantity, const char* value, const char* count) {
        return Right(quantity, 15) + Right(value, 18) + Right(count, 8) + Blank(51, 53);
    };
    Trade trade = Trade("1ASII").Price(65536).Volume(65537).Brokers('F', 'D');
    Open("048053", Blank(48, 53));
    EXPECT_EQ(After(trade).substr(2), sums("65537", "65536", "1"));
    EXPECT_EQ(After(trade).substr(2), sums("131074", "131072", "2"));
    Init(Inquiry("1ASII", "048053", sums("-0.5", "-65536.4", "9999998")));
    EXPECT_EQ(After(trade).substr(2), sums("65536", "-0", "9999999")) << "half to even";
    EXPECT_EQ(After(trade).substr(2), sums("131073", "65536", "10000000"));
    Init(Inquiry("1ASII", "048053", sums("999999999934462", "9007199254675456", "99999999")));
    EXPECT_EQ(After(trade).substr(2), sums("999999999999999", "9007199254740992", "10000000")) << "cut";
    EXPECT_EQ(After(trade).substr(2), sums("100000000006553", "9007199254806528", "10000001"));
    EXPECT_EQ(After(trade.Volume(1)).substr(2), sums("100000000006554", "9007199254872064", "10000002"));
}

TEST_F(StockPanelScreen, RefusesRangesThatDoNotFit) {
    Open("003012", Blank(3, 12));
    Told();
    for (const char* range : {"005004", "000056", "055999", "-01003", "999999"}) {
        EXPECT_EQ(Init(Inquiry("1BBCA", range, Blank(0, 55))), 0) << range;
    }
    EXPECT_EQ(Told(), Events{});
}

}  // namespace
