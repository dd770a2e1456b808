// Stock chart: its row. What goes in and out around it stands in Candles.h.
#ifndef TICKMUX_MODULE_LAYOUTS_RSCAND11_H
#define TICKMUX_MODULE_LAYOUTS_RSCAND11_H

#include "module/layouts/Candles.h"

struct StockCandleRow {
    char Date[8];
    char Time[6];
    char Open[8];
    char High[8];
    char Low[8];
    char Close[8];
    char Volume[10];
    char Value[10];  // of the trade, in period kTickList; else spaces
};
static_assert(sizeof(StockCandleRow) == 66 && alignof(StockCandleRow) == 1);

template <class Visitor>
void Describe(const StockCandleRow& row, Visitor&& visit) {
    DescribeCandle(row, visit);
}

#endif
