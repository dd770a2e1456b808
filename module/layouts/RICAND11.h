// Index chart: its row. What goes in and out around it stands in Candles.h.
#ifndef TICKMUX_MODULE_LAYOUTS_RICAND11_H
#define TICKMUX_MODULE_LAYOUTS_RICAND11_H

#include "module/layouts/Candles.h"

struct IndexCandleRow {
    char Date[8];
    char Time[6];
    char Open[12];  // index points with three decimals, as the next three
    char High[12];
    char Low[12];
    char Close[12];
    char Volume[15];
    char Value[18];  // of the update, in period kTickList; else spaces
};
static_assert(sizeof(IndexCandleRow) == 95 && alignof(IndexCandleRow) == 1);

template <class Visitor>
void Describe(const IndexCandleRow& row, Visitor&& visit) {
    DescribeCandle(row, visit);
}

#endif
