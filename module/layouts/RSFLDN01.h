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
    char TradeRef[8];    // blank for a trade of the compact feed
    char Code[15];       // the code and, close behind it, the board's suffix
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
    char Broker1Color[2];  // by the broker's mark in the master data
    char Broker1[4];
    char Broker2ClassColor[2];
    char Broker2Class;
    char Broker2Color[2];
    char Broker2[4];
};
static_assert(sizeof(MonitorRow) == 98 && alignof(MonitorRow) == 1);
static_assert(offsetof(MonitorRow, Code) == 14 && offsetof(MonitorRow, Rate) == 60 &&
              offsetof(MonitorRow, Volume) == 68 && offsetof(MonitorRow, Broker2ClassColor) == 89);

template <class Visitor>
void Describe(const MonitorRow& row, Visitor&& visit) {
    visit("Time", row.Time);
    visit("TradeRef", row.TradeRef);
    visit("Code", row.Code);
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
    visit("Broker1Color", row.Broker1Color);
    visit("Broker1", row.Broker1);
    visit("Broker2ClassColor", row.Broker2ClassColor);
    visit("Broker2Class", row.Broker2Class);
    visit("Broker2Color", row.Broker2Color);
    visit("Broker2", row.Broker2);
}

#endif
