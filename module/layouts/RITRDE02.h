// Index board: one row an index.
//
// Init text:       request tag, a repeat block of at least one IndexBoardRow, and nothing behind it.
// Display buffer:  PlainRows, then the rows that the batch has changed, in board order.
#ifndef TICKMUX_MODULE_LAYOUTS_RITRDE02_H
#define TICKMUX_MODULE_LAYOUTS_RITRDE02_H

#include <cstddef>

#include "module/wire/shapes.h"

struct IndexBoardRow {
    char Name[10];       // the inquiry's
    char IndexColor[2];  // by the sign, as the next two
    char Index[15];      // four decimals
    char Sign;
    char ChangeColor[2];
    char Change[15];  // four decimals
    char RateColor[2];
    char Rate[7];  // per cent, two decimals
    char Count1[5];
    char Count2[5];
    char Count3[5];
    char Count4[5];
    char Count5[9];
    char TotalVolume[15];
    char TotalValue[18];
    char Note[8];  // the inquiry's
    char Time[6];
    IndexKey Key;
};
static_assert(sizeof(IndexBoardRow) == 134 && alignof(IndexBoardRow) == 1);
static_assert(offsetof(IndexBoardRow, Count1) == 54 && offsetof(IndexBoardRow, Key) == 130);

template <class Visitor>
void Describe(const IndexBoardRow& row, Visitor&& visit) {
    visit("Name", row.Name);
    visit("IndexColor", row.IndexColor);
    visit("Index", row.Index);
    visit("Sign", row.Sign);
    visit("ChangeColor", row.ChangeColor);
    visit("Change", row.Change);
    visit("RateColor", row.RateColor);
    visit("Rate", row.Rate);
    visit("Count1", row.Count1);
    visit("Count2", row.Count2);
    visit("Count3", row.Count3);
    visit("Count4", row.Count4);
    visit("Count5", row.Count5);
    visit("TotalVolume", row.TotalVolume);
    visit("TotalValue", row.TotalValue);
    visit("Note", row.Note);
    visit("Time", row.Time);
    visit("Key", row.Key);
}

#endif
