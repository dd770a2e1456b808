// Volume by price: one row for each price at which the stock has traded, highest first.
//
// Init text:       request tag, PriceTableInit, then as many PriceRows as Repeat counts.
// Display buffer:  PlainRows, then the whole table; one for each batch that changes it.
#ifndef TICKMUX_MODULE_LAYOUTS_RSTRBK01_H
#define TICKMUX_MODULE_LAYOUTS_RSTRBK01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct PriceTableInit {
    StockKey Key;
    char Unused[8];
    RepeatHead Repeat;
};
static_assert(sizeof(PriceTableInit) == 43 && alignof(PriceTableInit) == 1);

template <class Visitor>
void Describe(const PriceTableInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("Unused", init.Unused);
    visit("Repeat", init.Repeat);
}

struct PriceRow {
    char Color[2];  // by the sign of the trade that made the row
    char Price[15];
    char Trades[15];
    char SumVolume[15];
    char SumValue[15];  // thousands, at the latest trade's price and lot size
};
static_assert(sizeof(PriceRow) == 62 && alignof(PriceRow) == 1);

template <class Visitor>
void Describe(const PriceRow& row, Visitor&& visit) {
    visit("Color", row.Color);
    visit("Price", row.Price);
    visit("Trades", row.Trades);
    visit("SumVolume", row.SumVolume);
    visit("SumValue", row.SumValue);
}

#endif
