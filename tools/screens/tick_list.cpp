// The tick list of a stock.
#include "layouts/RSTICK11.h"
#include "tools/screens/row_list.h"
#include "tools/screens/row_table.h"
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
    RepeatHead repeat;
    FillBlank(repeat);
    PutRight(repeat.Count, "1");
    PutRight(repeat.Size, std::to_string(sizeof(newest)));
    InitText text;
    text.Append("", init);
    text.Append("Repeat", repeat);
    text.Append("Row", newest);
    return text;
}

std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t rows) {
    return std::make_unique<RowList>(RowsTables<HeadedRows, TickRow>(), rows);
}

}  // namespace

extern const ScreenKind kTickList = {"RSTICK11_R", MakeInit, RowsTables<HeadedRows, TickRow>, Open};

}  // namespace tools
