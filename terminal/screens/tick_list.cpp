// The tick list of a stock.
#include "module/layouts/RSTICK11.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"
#include "terminal/text.h"

namespace tools {

namespace {

InitText MakeInit(std::string_view key, const InitDefaults& defaults) {
    TickInit init;
    FillBlank(init);
    init.Key = StockKeyOf(key);
    TickRow newest;
    FillBlank(newest);
    PutLeft(newest.Date, defaults.Date);
    InitText text;
    text.Append("", init);
    text.AppendRow(newest);
    return text;
}

}  // namespace

const ScreenKind kStockTicks = {"RSTICK11_R", MakeInit, RowsTables<HeadedRows, TickRow>,
                                OpenRowList<HeadedRows, TickRow>};

}  // namespace tools
