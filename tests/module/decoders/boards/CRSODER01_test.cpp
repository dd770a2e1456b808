#include "module/layouts/RSODER01.h"
#include "tests/support/inquiries.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/terminal.h"

namespace {

constexpr char kBook[] = "20000000";

// One side of a row: the diff with its sign ("" is none), quantity, rate, price tag, price. `quantityTag` is
// that of the price unless given.
std::string Side(const std::string& diff, const std::string& quantity, const std::string& rate,
                 const std::string& tag, const std::string& price, std::string quantityTag = "") {
    const std::string color = diff.empty() ? "5 " : diff[0] == '+' ? "1 " : "4 ";
    const std::string plainTag = tag.substr(0, 1) + " ";
    quantityTag = quantityTag.empty() ? plainTag : quantityTag;
    return color + (diff.empty() ? " " : diff.substr(0, 1)) + color +
           Right(diff.empty() ? "0" : diff.substr(1), 10) + quantityTag + Right(quantity, 15) + plainTag +
           Right(rate, 6) + tag + Right(price, 12);
}

// A row of the image, for sides that hold nothing.
const std::string kNothing = Side("", "0", "-100.0", "4 ", "0");

struct OrderBook : ScreenTest {
    OrderBook() : ScreenTest("RSODER01_R") {}

    // The image with these rows from the top and these totals; rows in between are kNothing.
    static testing::AssertionResult Is(const std::string& image, Rows rows, const std::string& totals) {
        rows.resize(kBookTotals, kNothing + kNothing);
        rows.push_back(totals);
        return ShowsRows<PlainRows, BookRow>(image, "O1" + BlockOf(rows, "108"));
    }
    // The level and side that the image marks as current.
    static std::string Mark(const std::string& image) {
        std::string marks;
        for (std::size_t number = 0; number < kBookRows; ++number) {
            const std::size_t row = sizeof(PlainRows) + number * sizeof(BookRow);
            marks += image[row + 41] == 'z' ? std::to_string(number) + "a" : "";
            marks += image[row + 95] == 'z' ? std::to_string(number) + "b" : "";
        }
        return marks;
    }
};

TEST_F(OrderBook, AQuantityChangesAgainstTheSamePriceOfTheFormerBook) {
    const std::string former = Side("-3", "40", "1.00", "..", "995") + Side("+4", "50", "2.00", "..", "1005");
    const std::string lower = Side("", "9", "", "..", "995") + Side("", "60", "", "..", "1010");
    Open(BookInquiry("1ASII", BlockOf({former, lower}, "108")));
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", kBook)});
    EXPECT_TRUE(Silent());
    // 995 counts against the upper of its two rows, 1010 has moved up, 990 is new, 1005 leaves no trace.
    Book book = Book("1ASII").Base(1003).Side1(990, 5, 700).Side2(1010, 45, 0).Level(1, 995, 10, 1020, 0);
    EXPECT_TRUE(Is(After(book),
                   {Side("+5", "5", "-1.29", "4 ", "990") + Side("-15", "45", "0.69", "1 ", "1010"),
                    Side("-30", "10", "-0.79", "4 ", "995") + Side("", "0", "1.69", "1 ", "1020")},
                   Side("+700", "700", "0.00", "4 ", "0", "4 ") + Side("", "0", "0.00", "4 ", "0", "1 ")));
    book.Side1(990, 7, 0).Side2(1020, 1, 80).Level(1, 0, 0, 0, 0);
    EXPECT_TRUE(Is(After(book),
                   {Side("+2", "7", "-1.29", "4 ", "990") + Side("+1", "1", "1.69", "1 ", "1020")},
                   Side("", "0", "0.00", "4 ", "0", "4 ") + Side("+80", "80", "0.00", "4 ", "0", "1 ")));
    EXPECT_EQ(After(Book("2ASII")), "nothing");
}

TEST_F(OrderBook, QuantitiesThatRunOverWrapAndShowTheirMagnitude) {
    Open(BookInquiry("1ASII"));
    After(Book("1ASII").Base(0).Side1(-5, INT32_MIN, 0).Side2(0, 0, 0));
    EXPECT_EQ(After(Book("1ASII").Base(0).Side1(-5, 0, 0).Side2(7, 0, 0)).substr(26, sizeof(BookRow)),
              Side("-2147483648", "0", "0.00", "4 ", "-5") + Side("", "0", "0.00", "1 ", "7"));
}

TEST_F(OrderBook, TheMarkMovesWithTheTradesAndTheirFirstPriceTellsABase) {
    const std::string row = Side("+3", "40", "1.00", "77", "1005") + Side("-4", "50", "2.00", "77", "1005");
    Open(BookInquiry("1ASII", BlockOf(Rows(kBookRows, row), "108")));
    // Diffs and figures stay, tags come from the base that the trade tells.
    const std::string image = After(Trade("1ASII").Price(1005).Change('5', 5));
    EXPECT_EQ(image.substr(sizeof(PlainRows), sizeof(BookRow)),
              Side("+3", "40", "1.00", "4z", "1005") + Side("-4", "50", "2.00", "4 ", "1005"));
    EXPECT_EQ(Mark(image), "0a1a2a3a4a5a6a7a8a9a10a");
    const Book book = Book("1ASII").Side1(995, 1, 1).Side2(1005, 1, 1).Level(3, 0, 0, 1010, 1);
    EXPECT_EQ(Mark(After(book)), "0b10a") << "the totals keep the price that the inquiry gave them";
    EXPECT_EQ(Mark(After(Trade("1ASII").Price(1010))), "3b");
    EXPECT_EQ(Mark(After(Trade("1ASII").Price(995))), "0a");
}

TEST_F(OrderBook, WithoutTheMarkTradesCountForNothing) {
    const ScratchFolder folder;
    folder.Write("EnvVar.ini", "[USER_TABLE_HOGARECT]\nUSE=0\n");
    tickhost_set_text("DataDir", folder.Path("").c_str());
    Open(BookInquiry("1ASII"));
    folder.Write("EnvVar.ini", "[USER_TABLE_HOGARECT]\nUSE=1\n");
    EXPECT_EQ(Init(BookInquiry("1ASII")), 1) << "the setting is that of the opening";
    EXPECT_EQ(After(Trade("1ASII").Price(1005)), "nothing");
    EXPECT_EQ(Mark(After(Book("1ASII"))), "");
}

TEST_F(OrderBook, WhatTheInquiryWroteStaysUntilAFailedInitBlanksIt) {
    const std::string reserved = "sixteen reserved";
    const std::string row = Side("", "", "", "..", "") + Side("", "", "", "..", "");
    Open(BookInquiry("1ASII", "   1 108" + reserved + row));
    const Book book = Book("1ASII").Base(-1);  // no base: no tags either
    EXPECT_EQ(After(book).substr(0, 80), "O1  11 108" + reserved + Side("+10", "10", "-99600", "..", "995"));
    Feed(book);
    EXPECT_EQ(Init("O2"), 0);
    EndBatch();
    EXPECT_EQ(m_Screen->Next().substr(0, 80),
              "O2  11 108" + std::string(16, ' ') + Side("", "10", "-99600", "  ", "995"));
}

TEST_F(OrderBook, AnInitThatOverrunsTheImageIsRefusedAndTheStockStays) {
    const std::string row(sizeof(BookRow), '1');
    Open(BookInquiry("1ASII"));
    Told();
    for (const std::string& block :
         {BlockOf(Rows(12, row), "108"), BlockOf(Rows(11, row + "1"), "109"), Block("9999", "9999", row),
          Block("1", "-999", row), Block("-1", "108", row)}) {
        EXPECT_EQ(Init(BookInquiry("1BBBB", block)), 0) << block;
    }
    EXPECT_EQ(Told(), Events{});
    EXPECT_EQ(Init(BookInquiry("1BBBB", BlockOf(Rows(kBookRows, row), "108"))), 1);
    EXPECT_EQ(Init(BookInquiry("1BBBB", BlockOf(Rows(12, row.substr(0, 99)), "99"))), 1) << "fills it too";
}

}  // namespace
