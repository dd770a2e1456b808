// The tick list of a stock.
#include "layouts/RSTICK11.h"
#include "tools/screens/row_list.h"
#include "tools/screens/screen.h"
#include "tools/text.h"

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

extern const ScreenKind kTickList = {"RSTICK11_R", MakeInit, RowsTables<HeadedRows, TickRow>,
                                     OpenRowList<HeadedRows, TickRow>};

}  // namespace tools
