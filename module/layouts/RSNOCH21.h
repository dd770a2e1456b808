// Open orders: what the screen's inquiry answers. The message stands in Orders.h.
//
// Init text:       request tag, OpenOrdersInit, then as many OrderRows as Repeat counts and nothing behind.
#ifndef TICKMUX_MODULE_LAYOUTS_RSNOCH21_H
#define TICKMUX_MODULE_LAYOUTS_RSNOCH21_H

#include "module/layouts/Orders.h"

struct OpenOrdersInit {
    char UserField[7];  // the last is compared with an order number's first digit
    RepeatHead Repeat;  // only Count is read
};
static_assert(sizeof(OpenOrdersInit) == 31 && alignof(OpenOrdersInit) == 1);

template <class Visitor>
void Describe(const OpenOrdersInit& init, Visitor&& visit) {
    visit("UserField", init.UserField);
    visit("Repeat", init.Repeat);
}

#endif
