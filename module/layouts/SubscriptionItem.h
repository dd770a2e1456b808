// What a screen wants of one code: the item of the lists that the subscription holder and the pass-through
// take.
#ifndef TICKMUX_MODULE_LAYOUTS_SUBSCRIPTIONITEM_H
#define TICKMUX_MODULE_LAYOUTS_SUBSCRIPTIONITEM_H

#include "module/wire/shapes.h"

struct SubscriptionItem {
    char Class;
    char Key[11];  // a shorter code has spaces behind
    char Want[8];  // '1': wanted; which packet type each byte stands for is the class's own
};
static_assert(sizeof(SubscriptionItem) == 20 && alignof(SubscriptionItem) == 1);

template <class Visitor>
void Describe(const SubscriptionItem& item, Visitor&& visit) {
    visit("Class", item.Class);
    visit("Key", item.Key);
    visit("Want", item.Want);
}

#endif
