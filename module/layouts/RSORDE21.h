// Order list: what the screen's inquiry answers. The message stands in Orders.h.
//
// Init text:       request tag, OrderListInit, then as many OrderRows as Repeat counts and nothing behind.
#ifndef TICKMUX_MODULE_LAYOUTS_RSORDE21_H
#define TICKMUX_MODULE_LAYOUTS_RSORDE21_H

#include "module/layouts/Orders.h"

struct OrderListInit {
    char UserField[6];
    char Unused;
    RepeatHead Repeat;  // only Count is read
};
static_assert(sizeof(OrderListInit) == 31 && alignof(OrderListInit) == 1);

template <class Visitor>
void Describe(const OrderListInit& init, Visitor&& visit) {
    visit("UserField", init.UserField);
    visit("Unused", init.Unused);
    visit("Repeat", init.Repeat);
}

#endif
