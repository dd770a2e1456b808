#include "module/decoders/passing/ItemClasses.h"

#include <algorithm>

const ItemClass* FindClass(std::span<const ItemClass> classes, char chClass) {
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [chClass](const ItemClass& each) { return each.Class == chClass; });
    return found == classes.end() ? nullptr : &*found;
}

bool ItemClass::Skips(const SubscriptionItem& item) const {
    const std::string_view code = CodeOf(item);
    return (!code.empty() && code == Skipped) ||
           (SkipsBlank && code.find_first_not_of(' ') == std::string_view::npos);
}

bool ListRequests(std::span<const ItemClass> classes, std::span<const SubscriptionItem> items,
                  CodeRequests::List& requests) {
    if (!requests.Reserve(items.size() * kWantColumns)) {
        return false;
    }
    for (const SubscriptionItem& item : items) {
        ForEachWanted(classes, item, [&](const ItemClass& itemClass, const WantColumn& column) {
            if (column.Flags != 0) {
                requests.Add(itemClass.Class, item.Key, itemClass.CodeLength, column.Flags);
            }
        });
    }
    return true;
}
