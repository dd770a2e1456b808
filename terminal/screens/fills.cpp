// Time and sales of a stock.
#include "module/layouts/RSDONE01.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"

namespace tools {

namespace {

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    FillsInit init;
    FillBlank(init);
    init.Key = StockKeyOf(key);
    FillRow newest;
    FillBlank(newest);
    InitText text;
    text.Append("", init);
    text.AppendRow(newest);
    return text;
}

}  // namespace

const ScreenKind kFills = {"RSDONE01_R", MakeInit, RowsTables<PlainRows, FillRow>,
                           OpenRowList<PlainRows, FillRow>};

}  // namespace tools
