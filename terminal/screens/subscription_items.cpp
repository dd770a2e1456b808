#include "terminal/screens/subscription_items.h"

#include <algorithm>

#include "module/wire/subscription_record.h"
#include "terminal/errors.h"
#include "terminal/screens/screen.h"

namespace tools {

namespace {

constexpr char kNoClass = '/';  // for what comes without a subscription

// The byte of Want that stands for a packet type, and the class in which it does.
struct WantByte {
    char Type;
    char Class;
    std::size_t Number;
};
constexpr WantByte kWantBytes[] = {
    {'A', kStockClass, 0}, {'B', kStockClass, 1}, {'C', kStockClass, 2},   {'D', kStockClass, 3},
    {'E', kIndexClass, 0}, {'F', kIndexClass, 3}, {'M', kMarketClass, 0},  {'N', kFundClass, 0},
    {'T', kNoClass, 0},    {'0', kNoClass, 1},    {'@', kSpecialClass, 0},
};

const WantByte& WantOf(char type, std::string_view types) {
    const WantByte* const found = std::find_if(std::begin(kWantBytes), std::end(kWantBytes),
                                               [type](const WantByte& want) { return want.Type == type; });
    if (types.find(type) == std::string_view::npos || found == std::end(kWantBytes)) {
        throw BadInput("packet type " + Quoted({&type, 1}) + " is none of " + std::string(types));
    }
    return *found;
}

// A code as the class has it.
void PutKey(SubscriptionItem& item, std::string_view code) {
    constexpr std::size_t kMarketCode = 5;
    if (item.Class == kStockClass || item.Class == kFundClass) {
        const StockKey key = StockKeyOf(code);
        PutLeft(item.Key, {reinterpret_cast<const char*>(&key), sizeof(key)});
        return;
    }
    if (item.Class == kIndexClass) {
        PutLeft(item.Key, {IndexKeyOf(code).IndexCode, sizeof(IndexKey)});
        return;
    }
    const std::size_t most = item.Class == kMarketClass ? kMarketCode : sizeof(item.Key);
    if (code.size() > most || (code.empty() && item.Class != kNoClass) ||
        code.find('\0') != std::string_view::npos) {
        throw BadInput("code " + Quoted(code) + " is none; give 1 to " + std::to_string(most) +
                       " characters");
    }
    PutLeft(item.Key, code);
}

SubscriptionItem ItemOf(std::string_view word, std::string_view types) {
    const std::size_t colon = word.rfind(':');
    if (colon == std::string_view::npos || colon + 1 == word.size()) {
        throw BadInput("item " + Quoted(word) + " does not tell packet types; write " + kItemsForm);
    }
    SubscriptionItem item;
    FillBlank(item);
    item.Class = WantOf(word[colon + 1], types).Class;
    std::fill(std::begin(item.Want), std::end(item.Want), '0');
    for (const char type : word.substr(colon + 1)) {
        const WantByte& want = WantOf(type, types);
        if (want.Class != item.Class) {
            throw BadInput("item " + Quoted(word) + " mixes packet types of codes of several kinds; give " +
                           type + " an item of its own");
        }
        item.Want[want.Number] = '1';
    }
    PutKey(item, word.substr(0, colon));
    return item;
}

}  // namespace

std::vector<SubscriptionItem> ItemsOf(std::string_view key, std::string_view types) {
    std::vector<SubscriptionItem> items;
    for (const std::string_view word : KeyList(key)) {
        items.push_back(ItemOf(word, types));
    }
    constexpr std::size_t kMostItems = 9999;
    if (items.size() > kMostItems) {
        throw BadInput(std::to_string(items.size()) + " items, but a list has room for " +
                       std::to_string(kMostItems));
    }
    return items;
}

}  // namespace tools
