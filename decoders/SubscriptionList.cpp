#include "decoders/SubscriptionList.h"

#include <algorithm>
#include <new>
#include <utility>

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

bool SubscriptionList::Take(InitReader& in, int items, Items& former) {
    Items next{std::unique_ptr<SubscriptionItem[]>(new (std::nothrow)
                                                       SubscriptionItem[static_cast<std::size_t>(items)]),
               items, 0};
    if (next.First == nullptr) {
        return false;
    }
    for (int i = 0; i < items; ++i) {
        in.Read(next.First[static_cast<std::size_t>(i)]);
    }
    former = std::exchange(m_Items, std::move(next));
    ++m_nGeneration;
    return true;
}

void SubscriptionList::MoveFrom(const Items& former) {
    // The communication manager may call back and end this list, or bring another.
    const unsigned generation = m_nGeneration;
    for (int i = 0; m_nGeneration == generation && i < m_Items.nItems; ++i) {
        const SubscriptionItem item = m_Items.First[static_cast<std::size_t>(i)];
        ForEachWanted(item, [&](const ItemClass& itemClass, const WantColumn& column) {
            if (column.Flags != 0 && m_nGeneration == generation) {
                ++m_Items.nRequests;
                AddTrStcd(item.Key, itemClass.CodeLength, itemClass.Class, column.Flags);
            }
        });
    }
    Delete(former);
}

void SubscriptionList::GiveUp() {
    ++m_nGeneration;
    Delete(std::exchange(m_Items, {}));
}

void SubscriptionList::Delete(const Items& items) const {
    int left = items.nRequests;
    for (const SubscriptionItem& item : items) {
        ForEachWanted(item, [&](const ItemClass& itemClass, const WantColumn& column) {
            if (column.Flags != 0 && left-- > 0) {
                DelTrStcd(item.Key, itemClass.CodeLength, itemClass.Class, column.Flags);
            }
        });
    }
}
