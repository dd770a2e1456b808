// Index ticks for a chart: each update of one index, at once.
//
// Init text:       request tag, IndexChartInit, then a repeat block of at most one IndexChartRow; what
//                  follows is not read.
// Display buffer:  IndexChartDisplay, for each update.
#ifndef TICKMUX_MODULE_LAYOUTS_RINTIK11_H
#define TICKMUX_MODULE_LAYOUTS_RINTIK11_H

#include <cstddef>

#include "module/wire/shapes.h"

struct IndexChartInit {
    IndexKey Key;
    char Unused[6];
    char Period;  // 'A' to 'H', or the text is refused
    DisplayHead Head;
};
static_assert(sizeof(IndexChartInit) == 97 && offsetof(IndexChartInit, Head) == 11);

template <class Visitor>
void Describe(const IndexChartInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("Unused", init.Unused);
    visit("Period", init.Period);
    visit("Head", init.Head);
}

// Of the Init text's row only the date is read.
struct IndexChartRow {
    char Date[8];
    char Time[6];
    char Index[15];  // four decimals
    char Volume[15];
};
static_assert(sizeof(IndexChartRow) == 44);

template <class Visitor>
void Describe(const IndexChartRow& row, Visitor&& visit) {
    visit("Date", row.Date);
    visit("Time", row.Time);
    visit("Index", row.Index);
    visit("Volume", row.Volume);
}

struct IndexChartDisplay {
    HeadedRows Front;  // Front.Head.Quantity is the update's own
    IndexChartRow Row;
};
static_assert(sizeof(IndexChartDisplay) == 156);

#endif
