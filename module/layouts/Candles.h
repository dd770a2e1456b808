// What the two chart maps have in common.
//
// Init text:       request tag, CandleInit, then a repeat block of at most one row, the newest candle, and
//                  nothing behind it.
// Display buffer:  HeadedRows, then one row; in period kTickList all rows of the batch, oldest first.
#ifndef TICKMUX_MODULE_LAYOUTS_CANDLES_H
#define TICKMUX_MODULE_LAYOUTS_CANDLES_H

#include <cstddef>

#include "module/wire/shapes.h"

struct CandleInit {
    char Key[11];         // stock key; or index key, and the rest unused
    char RequestDate[8];  // not before Date
    char Reserved[3];
    char Date[8];  // of the chart, YYYYMMDD, in every row
    DisplayHead Head;
};
static_assert(sizeof(CandleInit) == 116 && alignof(CandleInit) == 1);
static_assert(offsetof(CandleInit, Date) == 22 && offsetof(CandleInit, Head) == 30);

template <class Visitor>
void Describe(const CandleInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("RequestDate", init.RequestDate);
    visit("Date", init.Date);
    visit("Head", init.Head);
}

// The row of either map.
template <class Row, class Visitor>
void DescribeCandle(const Row& row, Visitor&& visit) {
    visit("Date", row.Date);
    visit("Time", row.Time);
    visit("Open", row.Open);
    visit("High", row.High);
    visit("Low", row.Low);
    visit("Close", row.Close);
    visit("Volume", row.Volume);
    visit("Value", row.Value);
}

#endif
