#include "feed/indices.h"

#include <algorithm>

namespace tools {

bool Index::Update(const std::vector<Stock>& stocks) {
    constexpr int64_t kUnit = 1'000'000;  // a price that stands at its base
    Index now{Code, Base, Members};
    int64_t sum = 0;
    for (std::size_t number = 0; number < Members; ++number) {
        const Stock& stock = stocks[number];
        sum += stock.Price * kUnit / stock.Base;
        now.TotalVolume += stock.TotalVolume;
        now.TotalValue += stock.TotalValue;
        now.TradeCount += stock.TradeCount;
        ++(stock.TradeCount == 0      ? now.Untraded
           : stock.Price > stock.Base ? now.Rising
           : stock.Price < stock.Base ? now.Falling
                                      : now.Unchanged);
    }
    if (Members == 0 || now.TradeCount == TradeCount) {
        return false;
    }
    // The mean of the members' prices, each against its base.
    now.Value = static_cast<int32_t>(Base * sum / (static_cast<int64_t>(Members) * kUnit));
    now.Volume = now.TotalVolume - TotalVolume;
    now.Money = now.TotalValue - TotalValue;
    const bool isFirst = TradeCount == 0;
    now.Open = isFirst ? now.Value : Open;
    now.High = isFirst ? now.Value : std::max(High, now.Value);
    now.Low = isFirst ? now.Value : std::min(Low, now.Value);
    *this = std::move(now);
    return true;
}

std::vector<Index> IndicesOf(const std::vector<Stock>& stocks) {
    constexpr int32_t kAllBase = 7000'0000;
    constexpr int32_t kMainBase = 1000'0000;
    return {{"COMP", kAllBase, stocks.size()}, {"MAIN", kMainBase, (stocks.size() + 3) / 4}};
}

}  // namespace tools
