// What each broker has traded in each stock: running totals of the market's deals, largest first. They know
// nothing of packets.
#ifndef TICKMUX_FEED_BROKER_TOTALS_H
#define TICKMUX_FEED_BROKER_TOTALS_H

#include <cstdint>
#include <string>
#include <vector>

#include "feed/market.h"
#include "feed/random.h"

namespace tools {

struct BrokerTotal {
    std::string Code;
    int64_t Quantity;
};

struct BrokerTotals {
    const Stock* Of;
    std::vector<BrokerTotal> First;  // as the first party of deals
    std::vector<BrokerTotal> Second;
};

class BrokerSummaries {
public:
    // As many summaries for each 100 packets of the market, whose stocks these are.
    BrokerSummaries(const std::vector<Stock>& stocks, uint64_t seed, int percent);

    // Each deal is told, so that totals are whole.
    void Take(const Deal& deal);

    // The totals, if they come behind a packet of the market: of the stock that has just traded, and of none
    // behind a packet that is no trade.
    const BrokerTotals* Next(const Stock* traded);

private:
    const Stock* const m_pFirst;
    const int m_nPercent;
    Random m_Dice;
    std::vector<BrokerTotals> m_Totals;  // of each stock
};

}  // namespace tools

#endif
