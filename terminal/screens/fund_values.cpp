// The values of a fund.
#include "module/layouts/RSETFNAV.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/panel.h"
#include "terminal/text.h"

namespace tools {

namespace {

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    NavInit init;
    FillBlank(init);
    init.Key = StockKeyOf(key);
    InitText text;
    text.Append("", init);
    return text;
}

std::vector<LayoutTable> Display() {
    return {TaggedTable<NavDisplay>("Display buffer")};
}

std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t /*rows*/) {
    return std::make_unique<Panel>(Display().front());
}

}  // namespace

const ScreenKind kFundValues = {"RSETFNAV_R", MakeInit, Display, Open};

}  // namespace tools
