// Broker summary: ten rows of broker totals of one stock.
//
// Init text:       request tag, the StockKey, and nothing behind it.
// Display buffer:  BrokerDisplay, for each batch that changes it.
#ifndef TICKMUX_MODULE_LAYOUTS_RSBRSM01_H
#define TICKMUX_MODULE_LAYOUTS_RSBRSM01_H

#include <cstddef>

#include "module/wire/shapes.h"

// Texts as the packet has them, its second side first.
struct BrokerDisplayRow {
    char Reserved1[2];
    char Qty2[15];
    char Broker2[4];
    char Broker1[4];
    char Reserved2[2];
    char Qty1[15];
};
static_assert(sizeof(BrokerDisplayRow) == 42);

template <class Visitor>
void Describe(const BrokerDisplayRow& row, Visitor&& visit) {
    visit("Reserved1", row.Reserved1);
    visit("Qty2", row.Qty2);
    visit("Broker2", row.Broker2);
    visit("Broker1", row.Broker1);
    visit("Reserved2", row.Reserved2);
    visit("Qty1", row.Qty1);
}

struct BrokerFront {
    RequestTag Tag;
    char Time[6];  // of the latest packet
    char Reserved1[2];
    RepeatHead Repeat;
};
static_assert(sizeof(BrokerFront) == 34);

template <class Visitor>
void Describe(const BrokerFront& front, Visitor&& visit) {
    visit("Time", front.Time);
    visit("Reserved1", front.Reserved1);
    visit("Repeat", front.Repeat);
}

inline constexpr std::size_t kBrokerRows = 10;

struct BrokerDisplay {
    BrokerFront Front;
    BrokerDisplayRow Rows[kBrokerRows];
};
static_assert(sizeof(BrokerDisplay) == 454 && offsetof(BrokerDisplay, Rows) == 34);

#endif
