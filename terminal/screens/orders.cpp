// The three lists of a user's orders: open ones, all, and those of a filter.
#include "module/layouts/RSNOCH21.h"
#include "module/layouts/RSORDE21.h"
#include "module/layouts/RSORDE22.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/order_table.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr std::size_t kUserField = sizeof(OrderListInit::UserField);

void CheckKey(std::string_view key, std::size_t width) {
    if (key.empty() || key.size() > width || key.find('\0') != std::string_view::npos) {
        throw BadInput("key " + Quoted(key) + " is no user field; give 1 to " + std::to_string(width) +
                       " characters, such as ACC001");
    }
}

template <class Init>
InitText TextOf(const Init& init) {
    InitText text;
    text.Append("", init);
    return text;
}

// The key's last byte is compared with the first digit of an order number. Numbers have leading zeros.
InitText MakeOpenOrders(std::string_view key, const InitDefaults& /*defaults*/) {
    OpenOrdersInit init;
    CheckKey(key, sizeof(init.UserField));
    FillBlank(init);
    PutLeft(init.UserField, key);
    if (key.size() <= kUserField) {
        init.UserField[kUserField] = '0';
    }
    PutRepeat<OrderRow>(init.Repeat, 0);
    return TextOf(init);
}

InitText MakeOrderList(std::string_view key, const InitDefaults& /*defaults*/) {
    OrderListInit init;
    CheckKey(key, sizeof(init.UserField));
    FillBlank(init);
    PutLeft(init.UserField, key);
    PutRepeat<OrderRow>(init.Repeat, 0);
    return TextOf(init);
}

// All orders pass unless the workspace says otherwise.
InitText MakeFilteredOrders(std::string_view key, const InitDefaults& /*defaults*/) {
    FilteredOrdersInit init;
    CheckKey(key, sizeof(init.UserField));
    FillBlank(init);
    PutLeft(init.UserField, key);
    init.StatusFilter = '0';
    init.SideFilter = '2';
    PutRepeat<OrderRow>(init.Repeat, 0);
    return TextOf(init);
}

template <BlankTail kTail>
std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t rows) {
    return std::make_unique<OrderTable>(rows, kTail);
}

constexpr char kSampleKey[] = "ACC001";

}  // namespace

const ScreenKind kOpenOrders = {"RSNOCH21_R", MakeOpenOrders, OrderTables, Open<BlankTail::No>, kSampleKey};
const ScreenKind kOrderList = {"RSORDE21_R", MakeOrderList, OrderTables, Open<BlankTail::No>, kSampleKey};
const ScreenKind kFilteredOrders = {"RSORDE22_R", MakeFilteredOrders, OrderTables, Open<BlankTail::Allowed>,
                                    kSampleKey};

}  // namespace tools
