// The trade monitor: the trades that the user's settings let through.
#include "module/layouts/RSFLDN01.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr char kNoKey[] = "-";

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    if (key != kNoKey) {
        throw BadInput(
            "key " + Quoted(key) +
            " means nothing to the monitor, whose stocks are in the user's TradeMonEnv.ini; write " + kNoKey);
    }
    MonitorInit init;
    FillBlank(init);
    InitText text;
    text.Append("", init);
    return text;
}

}  // namespace

const ScreenKind kTradeMonitor = {"RSFLDN01_R", MakeInit, RowsTables<PlainRows, MonitorRow>,
                                  OpenRowList<PlainRows, MonitorRow>, kNoKey};

}  // namespace tools
