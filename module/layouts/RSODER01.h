// Order book: ten price levels on each side of a stock, and a row of totals.
//
// Init text:       request tag, BookInit, then the BookRows that Repeat counts, at most 11, and nothing
//                  behind them.
// Display buffer:  BookDisplay, for each batch that changes it.
#ifndef TICKMUX_MODULE_LAYOUTS_RSODER01_H
#define TICKMUX_MODULE_LAYOUTS_RSODER01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct BookInit {
    StockKey Key;
    char Unused[8];
};
static_assert(sizeof(BookInit) == 19 && alignof(BookInit) == 1);

template <class Visitor>
void Describe(const BookInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("Unused", init.Unused);
}

inline constexpr char kCurrentPrice = 'z';  // second byte of BookRowSide::PriceColor

// One side of a level.
struct BookRowSide {
    char DiffColor[2];  // by the direction of the quantity's change, as DiffAmountColor
    char DiffSign;      // '+', '-' or a space
    char DiffAmountColor[2];
    char Diff[10];     // magnitude
    char QtyColor[2];  // that of the price once more, as RateColor
    char Qty[15];
    char RateColor[2];
    char Rate[6];        // of the price against the base, per cent, two decimals
    char PriceColor[2];  // against the base; the second byte may mark the current price
    char Price[12];
};
static_assert(sizeof(BookRowSide) == 54 && alignof(BookRowSide) == 1);
static_assert(offsetof(BookRowSide, Qty) == 17 && offsetof(BookRowSide, PriceColor) == 40);

template <class Visitor>
void Describe(const BookRowSide& side, Visitor&& visit) {
    visit("DiffColor", side.DiffColor);
    visit("DiffSign", side.DiffSign);
    visit("DiffAmountColor", side.DiffAmountColor);
    visit("Diff", side.Diff);
    visit("QtyColor", side.QtyColor);
    visit("Qty", side.Qty);
    visit("RateColor", side.RateColor);
    visit("Rate", side.Rate);
    visit("PriceColor", side.PriceColor);
    visit("Price", side.Price);
}

struct BookRow {
    BookRowSide Side1;
    BookRowSide Side2;
};
static_assert(sizeof(BookRow) == 108);

template <class Visitor>
void Describe(const BookRow& row, Visitor&& visit) {
    visit("Side1", row.Side1);
    visit("Side2", row.Side2);
}

inline constexpr std::size_t kBookTotals = 10;  // the row behind the levels
inline constexpr std::size_t kBookRows = kBookTotals + 1;

struct BookDisplay {
    PlainRows Front;
    BookRow Rows[kBookRows];
};
static_assert(sizeof(BookDisplay) == 1214 && offsetof(BookDisplay, Rows) == 26);

#endif
