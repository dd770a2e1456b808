// Index tick list: each update of one index with its change and rate.
//
// Init text:       request tag, IndexTickInit, and nothing behind it.
// Display buffer:  PlainRows, then the IndexTickRows of the batch, oldest first.
#ifndef TICKMUX_MODULE_LAYOUTS_RINTIK01_H
#define TICKMUX_MODULE_LAYOUTS_RINTIK01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct IndexTickInit {
    IndexKey Key;
    char Unused1[7];
    char BaseValue[15];  // of the rate, in index points; 0: the first update tells it
    char Unused2[8];
};
static_assert(sizeof(IndexTickInit) == 34 && offsetof(IndexTickInit, BaseValue) == 11);

template <class Visitor>
void Describe(const IndexTickInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("Unused1", init.Unused1);
    visit("BaseValue", init.BaseValue);
    visit("Unused2", init.Unused2);
}

struct IndexTickRow {
    char Time[6];
    char Reserved1[2];
    char IndexColor[2];  // by the sign, as the next two
    char Index[15];      // four decimals
    char Sign;
    char ChangeColor[2];
    char Change[15];  // four decimals
    char RateColor[2];
    char Rate[7];  // per cent, two decimals
    char Volume[15];
};
static_assert(sizeof(IndexTickRow) == 67 && alignof(IndexTickRow) == 1);
static_assert(offsetof(IndexTickRow, Index) == 10 && offsetof(IndexTickRow, Rate) == 45);

template <class Visitor>
void Describe(const IndexTickRow& row, Visitor&& visit) {
    visit("Time", row.Time);
    visit("Reserved1", row.Reserved1);
    visit("IndexColor", row.IndexColor);
    visit("Index", row.Index);
    visit("Sign", row.Sign);
    visit("ChangeColor", row.ChangeColor);
    visit("Change", row.Change);
    visit("RateColor", row.RateColor);
    visit("Rate", row.Rate);
    visit("Volume", row.Volume);
}

#endif
