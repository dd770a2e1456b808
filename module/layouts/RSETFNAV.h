// Fund values: what the screen's inquiry answers, and what the screen receives.
//
// Init text:       request tag, NavInit; what follows is ignored.
// Display buffer:  NavDisplay, one for each batch that changes a value.
#ifndef TICKMUX_MODULE_LAYOUTS_RSETFNAV_H
#define TICKMUX_MODULE_LAYOUTS_RSETFNAV_H

#include <cstddef>

#include "module/wire/shapes.h"

struct NavInit {
    StockKey Key;
    char BaseValue[17];  // what the colours compare with
    char FirstValue[22];
    char SecondValue[22];
};
static_assert(sizeof(NavInit) == 72 && alignof(NavInit) == 1);
static_assert(offsetof(NavInit, FirstValue) == 28);

template <class Visitor>
void Describe(const NavInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("BaseValue", init.BaseValue);
    visit("FirstValue", init.FirstValue);
    visit("SecondValue", init.SecondValue);
}

// A value with two decimals, and how it lies to the base.
struct NavField {
    char Color[2];
    char Value[22];
};
static_assert(sizeof(NavField) == 24);

template <class Visitor>
void Describe(const NavField& field, Visitor&& visit) {
    visit("Color", field.Color);
    visit("Value", field.Value);
}

struct NavDisplay {
    RequestTag Tag;
    char Reserved[11];  // spaces
    NavField Field1;    // blank until a packet of kind 0
    NavField Field2;    // from FirstValue, then from packets of kind 1
    NavField Field3;    // from SecondValue, then from packets of kind 1
};
static_assert(sizeof(NavDisplay) == 2 + 83 && alignof(NavDisplay) == 1);
static_assert(offsetof(NavDisplay, Field1) == 2 + 11 && offsetof(NavDisplay, Field3) == 2 + 59);

template <class Visitor>
void Describe(const NavDisplay& display, Visitor&& visit) {
    visit("Field1", display.Field1);
    visit("Field2", display.Field2);
    visit("Field3", display.Field3);
}

#endif
