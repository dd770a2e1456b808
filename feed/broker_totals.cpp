#include "feed/broker_totals.h"

#include <algorithm>

namespace tools {

namespace {

constexpr uint64_t kSummaryDice = 0xB20CE2;

// Moves up past smaller ones; of two that are equal the earlier one stays above.
void Add(std::vector<BrokerTotal>& totals, const std::string& code, int32_t quantity) {
    auto at = std::find_if(totals.begin(), totals.end(),
                           [&code](const BrokerTotal& total) { return total.Code == code; });
    if (at == totals.end()) {
        at = totals.insert(at, {code, 0});
    }
    at->Quantity += quantity;
    for (; at != totals.begin() && (at - 1)->Quantity < at->Quantity; --at) {
        std::iter_swap(at - 1, at);
    }
}

}  // namespace

BrokerSummaries::BrokerSummaries(const std::vector<Stock>& stocks, uint64_t seed, int percent)
    : m_pFirst(stocks.data()), m_nPercent(percent), m_Dice(seed + kSummaryDice) {
    m_Totals.reserve(stocks.size());
    for (const Stock& stock : stocks) {
        m_Totals.push_back({&stock, {}, {}});
    }
}

void BrokerSummaries::Take(const Deal& deal) {
    if (deal.Volume != 0) {
        BrokerTotals& totals = m_Totals[static_cast<std::size_t>(deal.Of - m_pFirst)];
        Add(totals.First, deal.First.Code, deal.Volume);
        Add(totals.Second, deal.Second.Code, deal.Volume);
    }
}

const BrokerTotals* BrokerSummaries::Next(const Stock* traded) {
    const bool comes = m_Dice.Chance(m_nPercent);
    return comes && traded != nullptr ? &m_Totals[static_cast<std::size_t>(traded - m_pFirst)] : nullptr;
}

}  // namespace tools
