// Lists of codes that a window wants subscribed: the classes of their items, what each Want byte asks for,
// and the list with its requests.
#ifndef TICKMUX_DECODERS_SUBSCRIPTIONLIST_H
#define TICKMUX_DECODERS_SUBSCRIPTIONLIST_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "framework/init_reader.h"
#include "framework/subscription.h"
#include "layouts/SubscriptionItem.h"

// What a Want byte asks for.
struct WantColumn {
    char Type;       // of the packets; 0: the byte is not read
    uint32_t Flags;  // of the request; 0: the packets come without one
};

struct ItemClass {
    char Class;
    int CodeLength;  // of Key, from its left
    WantColumn Columns[4];
    bool SkipsBlank = false;        // an item without a code asks for nothing
    std::string_view Skipped = {};  // nor does an item of this code

    std::string_view CodeOf(const SubscriptionItem& item) const {
        return {item.Key, static_cast<std::size_t>(CodeLength)};
    }
    bool Skips(const SubscriptionItem& item) const;
};

// Null: no class of that char.
const ItemClass* FindClass(std::span<const ItemClass> classes, char chClass);

class SubscriptionList {
public:
    explicit SubscriptionList(std::span<const ItemClass> classes) : m_Classes(classes) {}

    struct Items {
        std::unique_ptr<SubscriptionItem[]> First;
        int nItems = 0;
        int nRequests = 0;  // that have gone out for them

        const SubscriptionItem* begin() const { return First.get(); }
        const SubscriptionItem* end() const { return First.get() + nItems; }
    };

    // Reads the items, which must be there, and gives the former ones, for MoveFrom. False if memory fails;
    // then the former ones stay.
    bool Take(InitReader& in, int items, Items& former);

    // Asks for what the items want, and then gives up what the former ones wanted, item by item and column
    // by column.
    void MoveFrom(const Items& former);
    void GiveUp();

    const SubscriptionItem* begin() const { return m_Items.begin(); }
    const SubscriptionItem* end() const { return m_Items.end(); }

    // Calls visit(class, column) for each packet type that the item wants, in order of the columns.
    template <class Visitor>
    void ForEachWanted(const SubscriptionItem& item, Visitor&& visit) const {
        const ItemClass* itemClass = FindClass(m_Classes, item.Class);
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

private:
    void Delete(const Items& items) const;

    std::span<const ItemClass> m_Classes;
    Items m_Items;
    unsigned m_nGeneration = 0;  // of the items
};

#endif
