// The subscription holder, which keeps codes subscribed to and receives nothing.
#include "module/layouts/RDUMMY01.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_table.h"
#include "terminal/screens/subscription_items.h"

namespace tools {

namespace {

constexpr char kHeldTypes[] = "ABCDEF";

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    const std::vector<SubscriptionItem> items = ItemsOf(key, kHeldTypes);
    HolderInit init;
    FillBlank(init);
    PutRepeat<SubscriptionItem>(init.Repeat, items.size());
    InitText text;
    text.Append("", init);
    AppendRows(text, items, kItemName);
    return text;
}

class SubscriptionHolder : public Screen {
public:
    explicit SubscriptionHolder(std::string_view items) : m_Items(items) {}

    std::size_t Take(std::string_view buffer) override {
        throw Failure("a buffer of " + Counted(buffer.size(), "byte") + " where the map has none");
    }
    std::string Show(std::string_view /*buffer*/) const override { return ""; }
    // What it holds.
    std::string Image() const override {
        return RowTable({"", 0, sizeof(SubscriptionItem), FieldsOf<SubscriptionItem>()}, m_Items);
    }

private:
    const std::string m_Items;
};

std::unique_ptr<Screen> Open(const InitText& init, std::size_t /*rows*/) {
    return std::make_unique<SubscriptionHolder>(init.Bytes().substr(sizeof(RequestTag) + sizeof(HolderInit)));
}

}  // namespace

const ScreenKind kSubscriptionHolder = {"RDUMMY01_R", MakeInit, [] { return std::vector<LayoutTable>(); },
                                        Open, "1ASII:A"};

}  // namespace tools
