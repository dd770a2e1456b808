// Headlines of the kind that the key selects.
#include "module/layouts/RRNEWS01.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"

namespace tools {

namespace {

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    if (key != "0" && key != "1" && key != "2" && key != "9") {
        throw BadInput(
            "key " + Quoted(key) +
            " selects no headlines; give 0 for all, or 1, 2 or 9 for the categories that begin so");
    }
    NewsInit init;
    FillBlank(init);
    init.Selector = key.front();
    InitText text;
    text.Append("", init);
    return text;
}

}  // namespace

const ScreenKind kNews = {"RRNEWS01_R", MakeInit, RowsTables<NewsFront, NewsRow>,
                          OpenRowList<NewsFront, NewsRow>, "0"};

}  // namespace tools
