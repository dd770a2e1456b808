// The keys of the screens that take lists of codes: what is wanted of each, by packet type.
#ifndef TICKMUX_TERMINAL_SCREENS_SUBSCRIPTION_ITEMS_H
#define TICKMUX_TERMINAL_SCREENS_SUBSCRIPTION_ITEMS_H

#include <string_view>
#include <vector>

#include "module/layouts/SubscriptionItem.h"

namespace tools {

// Of the items in an Init text, with their numbers.
inline constexpr char kItemName[] = "Item";

inline constexpr char kItemsForm[] = "CODE:TYPES,CODE:TYPES ..., such as 1ASII:ABCD,COMP:EF";

// The items of such a list; packet types tell the class, and a code may be left out where none counts.
// BadInput for types that are not among `types`, and for codes that their class cannot have.
std::vector<SubscriptionItem> ItemsOf(std::string_view key, std::string_view types);

}  // namespace tools

#endif
