// The ticks of an index: as a list, and as a chart takes them.
#include "module/layouts/RINTIK01.h"
#include "module/layouts/RINTIK11.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"

namespace tools {

namespace {

InitText MakeList(std::string_view key, const InitDefaults& /*defaults*/) {
    IndexTickInit init;
    FillBlank(init);
    init.Key = IndexKeyOf(key);
    InitText text;
    text.Append("", init);
    return text;
}

InitText MakeChart(std::string_view key, const InitDefaults& defaults) {
    IndexChartInit init;
    FillBlank(init);
    init.Key = IndexKeyOf(key);
    init.Period = kTickList;
    IndexChartRow newest;
    FillBlank(newest);
    PutLeft(newest.Date, defaults.Date);
    InitText text;
    text.Append("", init);
    text.AppendRow(newest);
    return text;
}

}  // namespace

const ScreenKind kIndexTicks = {"RINTIK01_R", MakeList, RowsTables<PlainRows, IndexTickRow>,
                                OpenRowList<PlainRows, IndexTickRow>, "COMP"};
const ScreenKind kIndexChartTicks = {"RINTIK11_R", MakeChart, RowsTables<HeadedRows, IndexChartRow>,
                                     OpenRowList<HeadedRows, IndexChartRow>, "COMP"};

}  // namespace tools
