// Subscription holder: keeps codes subscribed to for as long as its map lives.
//
// Init text:       request tag, a repeat block of at least one SubscriptionItem, and nothing behind it.
// Display buffer:  none.
#ifndef TICKMUX_MODULE_LAYOUTS_RDUMMY01_H
#define TICKMUX_MODULE_LAYOUTS_RDUMMY01_H

#include "module/layouts/SubscriptionItem.h"

struct HolderInit {
    RepeatHead Repeat;  // its Size is not read
};
static_assert(sizeof(HolderInit) == 24);

template <class Visitor>
void Describe(const HolderInit& init, Visitor&& visit) {
    visit("Repeat", init.Repeat);
}

#endif
