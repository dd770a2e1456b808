// Trade monitor: a running ticker of the trades that the user's settings let through.
//
// Init text:       request tag, MonitorInit; what follows is not read.
// Display buffer:  PlainRows, then the MonitorRows of the batch, oldest first.
#ifndef TICKMUX_MODULE_LAYOUTS_RSFLDN01_H
#define TICKMUX_MODULE_LAYOUTS_RSFLDN01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct MonitorInit {
    char Unused[8];
};
static_assert(sizeof(MonitorInit) == 8);

template <class Visitor>
void Describe(const MonitorInit& init, Visitor&& visit) {
    visit("Unused", init.Unused);
}

struct MonitorRow {
    char Time[6];
    char TradeRef[8];  // blank for a trade of the compact feed
    char Code[15];     // the code and, close behind it, the board's suffix
    char PriceTag[2];  // by the sign, as the next two
    char Price[12];
    char Sign;
    char ChangeTag[2];
    char Change[12];
    char RateTag[2];
    char Rate[6];  // per cent, two decimals
    char Reserved1[2];
    char Volume[12];
    char Broker1ClassTag[2];
    char Broker1Class;
    char Broker1Tag[2];  // by the broker's mark in the master data
    char Broker1[4];
    char Broker2ClassTag[2];
    char Broker2Class;
    char Broker2Tag[2];
    char Broker2[4];
};
static_assert(sizeof(MonitorRow) == 98 && alignof(MonitorRow) == 1);
static_assert(offsetof(MonitorRow, Code) == 14 && offsetof(MonitorRow, Rate) == 60 &&
              offsetof(MonitorRow, Volume) == 68 && offsetof(MonitorRow, Broker2ClassTag) == 89);

template <class Visitor>
void Describe(const MonitorRow& row, Visitor&& visit) {
    visit("Time", row.Time);
    visit("TradeRef", row.TradeRef);
    visit("Code", row.Code);
    visit("PriceTag", row.PriceTag);
    visit("Price", row.Price);
    visit("Sign", row.Sign);
    visit("ChangeTag", row.ChangeTag);
    visit("Change", row.Change);
    visit("RateTag", row.RateTag);
    visit("Rate", row.Rate);
    visit("Reserved1", row.Reserved1);
    visit("Volume", row.Volume);
    visit("Broker1ClassTag", row.Broker1ClassTag);
    visit("Broker1Class", row.Broker1Class);
    visit("Broker1Tag", row.Broker1Tag);
    visit("Broker1", row.Broker1);
    visit("Broker2ClassTag", row.Broker2ClassTag);
    visit("Broker2Class", row.Broker2Class);
    visit("Broker2Tag", row.Broker2Tag);
    visit("Broker2", row.Broker2);
}

#endif
