// The ten rows of a stock's broker totals, which each buffer brings whole.
#include "module/layouts/RSBRSM01.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"

namespace tools {

namespace {

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    InitText text;
    text.Append("Key", StockKeyOf(key));
    return text;
}

std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t /*rows*/) {
    return std::make_unique<RowList>(RowsTables<BrokerFront, BrokerDisplayRow>(), kBrokerRows);
}

}  // namespace

const ScreenKind kBrokerSummary = {"RSBRSM01_R", MakeInit, RowsTables<BrokerFront, BrokerDisplayRow>, Open};

}  // namespace tools
