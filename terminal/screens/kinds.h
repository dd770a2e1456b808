// All kinds of screens, each told once, in order of their maps.
#ifndef TICKMUX_TERMINAL_SCREENS_KINDS_H
#define TICKMUX_TERMINAL_SCREENS_KINDS_H

#include "terminal/screens/screen.h"

#define TICKMUX_SCREEN_KINDS(KIND) \
    KIND(kSubscriptionHolder)      \
    KIND(kIndexCandles)            \
    KIND(kIndexTicks)              \
    KIND(kIndexChartTicks)         \
    KIND(kIndexPanelScreen)        \
    KIND(kIndexBoard)              \
    KIND(kNews)                    \
    KIND(kPassThrough)             \
    KIND(kBrokerSummary)           \
    KIND(kStockCandles)            \
    KIND(kFills)                   \
    KIND(kFundValues)              \
    KIND(kTradeMonitor)            \
    KIND(kInterestBoard)           \
    KIND(kOpenOrders)              \
    KIND(kOrderBook)               \
    KIND(kOrderList)               \
    KIND(kFilteredOrders)          \
    KIND(kStockTicks)              \
    KIND(kPriceTable)              \
    KIND(kStockPanelScreen)

namespace tools {

#define TICKMUX_DECLARE_KIND(kind) extern const ScreenKind kind;
TICKMUX_SCREEN_KINDS(TICKMUX_DECLARE_KIND)
#undef TICKMUX_DECLARE_KIND

}  // namespace tools

#endif
