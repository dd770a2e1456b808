// Lists of codes that a window wants subscribed: the classes of their items, and what each Want byte asks
// for.
#ifndef TICKMUX_MODULE_DECODERS_PASSING_ITEMCLASSES_H
#define TICKMUX_MODULE_DECODERS_PASSING_ITEMCLASSES_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "module/framework/code_requests.h"
#include "module/layouts/SubscriptionItem.h"

// A Want byte asks for one packet type of a class.
struct WantColumn {
    char Type;       // of the packets; 0: the byte is not read
    uint32_t Flags;  // of the request; 0: the packets come without one
};

inline constexpr std::size_t kWantColumns = 4;

struct ItemClass {
    char Class;
    int CodeLength;  // of Key, from its left
    WantColumn Columns[kWantColumns];
    bool SkipsBlank = false;        // an item without a code asks for nothing
    std::string_view Skipped = {};  // nor does an item of this code

    std::string_view CodeOf(const SubscriptionItem& item) const {
        return {item.Key, static_cast<std::size_t>(CodeLength)};
    }
    bool Skips(const SubscriptionItem& item) const;
};

// Gives null for a char that stands for no class.
const ItemClass* FindClass(std::span<const ItemClass> classes, char chClass);

// Calls visit(class, column) for each packet type that the item wants, in order of the columns.
template <class Visitor>
void ForEachWanted(std::span<const ItemClass> classes, const SubscriptionItem& item, Visitor&& visit) {
    const ItemClass* itemClass = FindClass(classes, item.Class);
    if (itemClass == nullptr || itemClass->Skips(item)) {
        return;
    }
    const char* want = item.Want;
    for (const WantColumn& column : itemClass->Columns) {
        if (*want++ == '1' && column.Type != '\0') {
            visit(*itemClass, column);
        }
    }
}

// The requests of the items, item by item and column by column. False if memory fails.
bool ListRequests(std::span<const ItemClass> classes, std::span<const SubscriptionItem> items,
                  CodeRequests::List& requests);

#endif
