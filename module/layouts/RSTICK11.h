// Stock tick list: what the screen's inquiry answers, and what the screen receives.
//
// Init text:       request tag, TickInit, then a repeat block of at most one TickRow and nothing behind it.
// Display buffer:  HeadedRows, then the TickRows of the batch, oldest first.
#ifndef TICKMUX_MODULE_LAYOUTS_RSTICK11_H
#define TICKMUX_MODULE_LAYOUTS_RSTICK11_H

#include <cstddef>

#include "module/wire/shapes.h"

struct TickInit {
    StockKey Key;
    DisplayHead Head;
};
static_assert(sizeof(TickInit) == 97 && alignof(TickInit) == 1);
static_assert(offsetof(TickInit, Head) == 11);

template <class Visitor>
void Describe(const TickInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("Head", init.Head);
}

// One trade. Of the Init text's row only the date is read.
struct TickRow {
    char Date[8];
    char Time[6];
    char Price[12];
    char Volume[12];
};
static_assert(sizeof(TickRow) == 38 && alignof(TickRow) == 1);

template <class Visitor>
void Describe(const TickRow& row, Visitor&& visit) {
    visit("Date", row.Date);
    visit("Time", row.Time);
    visit("Price", row.Price);
    visit("Volume", row.Volume);
}

#endif
