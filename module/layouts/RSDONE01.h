// Stock fills: time and sales of one stock, with rate and brokers.
//
// Init text:       request tag, FillsInit, then a repeat block of at most one FillRow; what follows is not
//                  read.
// Display buffer:  PlainRows, then the FillRows of the batch, oldest first.
#ifndef TICKMUX_MODULE_LAYOUTS_RSDONE01_H
#define TICKMUX_MODULE_LAYOUTS_RSDONE01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct FillsInit {
    StockKey Key;
    char BasePrice[12];  // of the rate; 0: the row tells it, or the first trade
};
static_assert(sizeof(FillsInit) == 23);

template <class Visitor>
void Describe(const FillsInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("BasePrice", init.BasePrice);
}

struct FillRow {
    char Time[6];
    char TradeRef[8];
    char PriceColor[2];  // by the sign, as the next two
    char Price[12];
    char Sign;
    char ChangeColor[2];
    char Change[12];
    char RateColor[2];
    char Rate[6];  // per cent, two decimals
    char Reserved1[2];
    char Volume[12];
    char Broker1ClassColor[2];
    char Broker1Class;
    char Broker1[4];
    char Broker2ClassColor[2];
    char Broker2Class;
    char Broker2[4];
};
static_assert(sizeof(FillRow) == 79 && alignof(FillRow) == 1);
static_assert(offsetof(FillRow, Rate) == 45 && offsetof(FillRow, Broker1ClassColor) == 65);

template <class Visitor>
void Describe(const FillRow& row, Visitor&& visit) {
    visit("Time", row.Time);
    visit("TradeRef", row.TradeRef);
    visit("PriceColor", row.PriceColor);
    visit("Price", row.Price);
    visit("Sign", row.Sign);
    visit("ChangeColor", row.ChangeColor);
    visit("Change", row.Change);
    visit("RateColor", row.RateColor);
    visit("Rate", row.Rate);
    visit("Reserved1", row.Reserved1);
    visit("Volume", row.Volume);
    visit("Broker1ClassColor", row.Broker1ClassColor);
    visit("Broker1Class", row.Broker1Class);
    visit("Broker1", row.Broker1);
    visit("Broker2ClassColor", row.Broker2ClassColor);
    visit("Broker2Class", row.Broker2Class);
    visit("Broker2", row.Broker2);
}

#endif
