// Pass-through: packets as they come.
//
// Init text:       PassInit, then as many SubscriptionItems as it counts, at least one, and nothing behind
//                  them. There is no request tag.
// Display buffer:  one packet: its type byte, then its payload. There is no request tag either, and the
//                  length told with the message is that of the whole packet.
#ifndef TICKMUX_MODULE_LAYOUTS_RRPASS01_H
#define TICKMUX_MODULE_LAYOUTS_RRPASS01_H

#include "module/layouts/SubscriptionItem.h"

struct PassInit {
    char Count[4];
};
static_assert(sizeof(PassInit) == 4);

template <class Visitor>
void Describe(const PassInit& init, Visitor&& visit) {
    visit("Count", init.Count);
}

#endif
