#include "module/decoders/orders/OrderFilters.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include "module/wire/codecs.h"

namespace {

constexpr StatusRule kStatusRules[] = {
    {'1', {kSending, kOpen, kPartial}, true, false},
    {'2', {kDone, U"", U""}, false, true},
    {'3', {U"Withdraw", U"", U""}, false, true},  // on its way too
    {'4', {kPartial, U"", U""}, true, true},
};

bool PassesCode(const FilteredOrdersInit& filter, const OrderPacket& notice) {
    const std::string_view head(filter.CodeFilter, 4);
    return head == "    " || head == "All " || head == "ALL " ||
           std::memcmp(filter.CodeFilter, notice.Code, sizeof(notice.Code)) == 0;
}

bool PassesGroup(const FilteredOrdersInit& filter, const OrderPacket& notice) {
    return std::string_view(filter.GroupFilter, 6) == "      " ||
           std::memcmp(filter.GroupFilter, notice.GroupCode, sizeof(notice.GroupCode)) == 0;
}

// A notice without a board passes; "ADV" counts as "NG".
bool PassesBoard(const FilteredOrdersInit& filter, const OrderPacket& notice) {
    const std::string_view wanted(filter.BoardFilter, sizeof(filter.BoardFilter));
    const std::string_view head = wanted.substr(0, 3);
    if (head == "   " || head == "All" || head == "ALL") {
        return true;
    }
    std::string_view board(notice.BoardName, sizeof(notice.BoardName));
    board = WithoutBlanksBehind(board.substr(0, board.find('\0')));
    const std::size_t advertised = board.find("ADV");
    if (advertised == std::string_view::npos) {
        return wanted.starts_with(board);
    }
    const std::string_view before = board.substr(0, advertised);
    const std::string_view behind = board.substr(advertised + 3);
    return wanted.starts_with(before) && wanted.substr(before.size()).starts_with("NG") &&
           wanted.substr(before.size() + 2).starts_with(behind);
}

bool PassesSide(const FilteredOrdersInit& filter, const OrderPacket& notice) {
    if (filter.SideFilter == ' ' || filter.SideFilter == kBothSides) {
        return true;
    }
    switch (notice.Side) {
        case kSide1:
            return filter.SideFilter == kSide1Row;
        case kSide2:
            return filter.SideFilter == kSide2Row;
        default:
            return true;
    }
}

}  // namespace

bool PassesFilters(const FilteredOrdersInit& filter, const OrderPacket& notice) {
    return PassesCode(filter, notice) && PassesGroup(filter, notice) && PassesBoard(filter, notice) &&
           PassesSide(filter, notice);
}

bool StatusRule::HasWordOf(const OrderRow& row) const {
    return std::any_of(std::begin(Words), std::end(Words),
                       [&row](const Word& word) { return word.Size() > 0 && HasWord(row.Status, word); });
}

const StatusRule* FindStatusRule(char filter) {
    const auto* rule = std::find_if(std::begin(kStatusRules), std::end(kStatusRules),
                                    [filter](const StatusRule& known) { return known.Filter == filter; });
    return rule == std::end(kStatusRules) ? nullptr : rule;
}
