// The order book of a stock as a ladder; each buffer brings the whole book.
#include <algorithm>

#include "module/layouts/RSODER01.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/plain_table.h"
#include "terminal/screens/row_table.h"
#include "terminal/text.h"

namespace tools {

namespace {

// A step of the ladder.
struct Rung {
    char Side[5];
    char Level[5];  // 1 is the best price
    char Price[sizeof(BookRowSide::Price)];
    char Rate[sizeof(BookRowSide::Rate)];
    char Qty[sizeof(BookRowSide::Qty)];
    char Change[sizeof(BookRowSide::DiffSign) + sizeof(BookRowSide::Diff)];
    char Mark[7];
};

template <class Visitor>
void Describe(const Rung& rung, Visitor&& visit) {
    visit("Side", rung.Side);
    visit("Level", rung.Level);
    visit("Price", rung.Price);
    visit("Rate", rung.Rate);
    visit("Qty", rung.Qty);
    visit("Change", rung.Change);
    visit("Mark", rung.Mark);
}

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    BookInit init;
    FillBlank(init);
    init.Key = StockKeyOf(key);
    RepeatHead repeat;
    PutRepeat<BookRow>(repeat, kBookRows);
    std::vector<BookRow> rows(kBookRows);
    std::for_each(rows.begin(), rows.end(), FillBlank<BookRow>);
    InitText text;
    text.Append("", init);
    text.Append("Repeat", repeat);
    AppendRows(text, rows);
    return text;
}

template <std::size_t N>
std::string_view Trimmed(const char (&field)[N]) {
    return Trim({field, N});
}

bool HasPrice(const BookRowSide& side) {
    return ParseInteger(Trimmed(side.Price)).value_or(0) != 0;
}

Rung RungOf(const char* name, const BookRowSide& side) {
    Rung rung;
    FillBlank(rung);
    PutLeft(rung.Side, name);
    PutRight(rung.Qty, Trimmed(side.Qty));
    PutRight(rung.Change, Trim(side.DiffSign + std::string(Trimmed(side.Diff))));
    return rung;
}

// The level at place `number` of the book, if the book has one there.
void AddLevel(std::string& rungs, const char* name, const BookRowSide& side, std::size_t number) {
    if (!HasPrice(side)) {
        return;
    }
    Rung rung = RungOf(name, side);
    PutRight(rung.Level, std::to_string(number + 1));
    PutRight(rung.Price, Trimmed(side.Price));
    PutRight(rung.Rate, Trimmed(side.Rate));
    PutLeft(rung.Mark, side.PriceColor[1] == kCurrentPrice ? "current" : "");
    rungs.append(reinterpret_cast<const char*>(&rung), sizeof(rung));
}

void AddTotal(std::string& rungs, const char* name, const BookRowSide& side) {
    Rung rung = RungOf(name, side);
    PutLeft(rung.Level, "total");
    rungs.append(reinterpret_cast<const char*>(&rung), sizeof(rung));
}

class OrderBook : public PlainTable {
public:
    OrderBook() : PlainTable(RowsTables<PlainRows, BookRow>()) {}

    std::string Image() const override { return m_Rows.empty() ? "" : Table(m_Rows); }

private:
    void TakeRows(std::string_view rows) override {
        if (rows.size() != sizeof(BookDisplay::Rows)) {
            throw Failure("a book of " + Counted(rows.size() / sizeof(BookRow), "row") + " where it has " +
                          std::to_string(kBookRows));
        }
        m_Rows = rows;
    }

    // Side 2 above, so that the best prices meet.
    std::string Table(std::string_view rows) const override {
        constexpr char kSide1[] = "Side1";
        constexpr char kSide2[] = "Side2";
        const auto* row = reinterpret_cast<const BookRow*>(rows.data());
        std::string rungs;
        for (std::size_t number = kBookTotals; number-- > 0;) {
            AddLevel(rungs, kSide2, row[number].Side2, number);
        }
        for (std::size_t number = 0; number < kBookTotals; ++number) {
            AddLevel(rungs, kSide1, row[number].Side1, number);
        }
        AddTotal(rungs, kSide2, row[kBookTotals].Side2);
        AddTotal(rungs, kSide1, row[kBookTotals].Side1);
        return RowTable({"", 0, sizeof(Rung), FieldsOf<Rung>()}, rungs);
    }

    std::string m_Rows;
};

std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t /*rows*/) {
    return std::make_unique<OrderBook>();
}

}  // namespace

const ScreenKind kOrderBook = {"RSODER01_R", MakeInit, RowsTables<PlainRows, BookRow>, Open};

}  // namespace tools
