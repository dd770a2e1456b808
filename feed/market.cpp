#include "feed/market.h"

#include <algorithm>

#include "terminal/text.h"

namespace tools {

namespace {

struct TickRange {
    int32_t Below;
    int32_t Tick;
};
constexpr TickRange kTickRanges[] = {{200, 1}, {500, 2}, {2000, 5}, {5000, 10}, {INT32_MAX, 25}};

struct LimitRange {
    int32_t UpTo;
    int32_t Percent;
};
constexpr LimitRange kLimitRanges[] = {{200, 35}, {5000, 25}, {INT32_MAX, 20}};

constexpr int32_t kBasePrices[] = {1000, 148, 310, 745, 1985, 2460, 4980, 8725, 496, 12350};
constexpr int kBrokers = 24;

int32_t DownToTick(int32_t price) {
    return price - price % TickSize(price);
}

// The first stock has the name that examples use; the others' are consonants and vowels by turns.
std::string StockCode(int number) {
    if (number == 0) {
        return "ASII";
    }
    constexpr std::string_view kConsonants = "BCDFGHJKLMNPQRSTVWXZ";
    constexpr std::string_view kVowels = "AEIOU";
    constexpr std::size_t kStride = 1237;  // prime to the number of codes, so that none comes twice
    std::size_t rest = static_cast<std::size_t>(number) * kStride;
    std::string code;
    for (const std::string_view letters : {kConsonants, kVowels, kConsonants, kVowels}) {
        code += letters[rest % letters.size()];
        rest /= letters.size();
    }
    return code;
}

int32_t BasePrice(int number) {
    return kBasePrices[static_cast<std::size_t>(number) % std::size(kBasePrices)];
}

std::string Numbered(const char* stem, int number) {
    return stem + std::to_string(100 + number).substr(1);
}

}  // namespace

int32_t TickSize(int32_t price) {
    return std::find_if(std::begin(kTickRanges), std::end(kTickRanges),
                        [price](const TickRange& range) { return price < range.Below; })
        ->Tick;
}

DailyLimits LimitsOf(int32_t basePrice) {
    const int32_t percent =
        std::find_if(std::begin(kLimitRanges), std::end(kLimitRanges), [basePrice](const LimitRange& range) {
            return basePrice <= range.UpTo;
        })->Percent;
    const int32_t reach = basePrice * percent / 100;
    const int32_t lowest = basePrice - reach;
    const int32_t onTick = DownToTick(lowest);
    return {onTick == lowest ? onTick : onTick + TickSize(onTick), DownToTick(basePrice + reach)};
}

int32_t PriceBelow(int32_t price, const DailyLimits& limits) {
    const int32_t next = price - TickSize(price - 1);
    return next < limits.Lowest ? 0 : next;
}

int32_t PriceAbove(int32_t price, const DailyLimits& limits) {
    const int32_t next = price + TickSize(price);
    return next > limits.Highest ? 0 : next;
}

std::string FundValueText(int64_t value) {
    return DecimalText(value, kFundDecimals);
}

Market::Market(uint64_t seed, int stocks, int funds) : m_Random(seed) {
    for (int number = 0; number < kBrokers; ++number) {
        m_Brokers.push_back({Numbered("B", number + 1), number % 3 == 2 ? 'F' : 'D'});
    }
    for (int number = 0; number < stocks; ++number) {
        const int32_t base = BasePrice(number);
        m_Stocks.push_back({StockCode(number), base, LimitsOf(base), base});
    }
    for (int number = 0; number < funds; ++number) {
        m_Funds.push_back({Numbered("FUND", number + 1)});
    }
}

std::string Market::MasterText() const {
    constexpr int kMarks = 3;
    std::string text = "# stock CODE NAME BASE, broker CODE NAME MARK\n";
    for (const Stock& stock : m_Stocks) {
        text += "stock " + stock.Code + " \"" + stock.Code + " shares\" " + std::to_string(stock.Base) + "\n";
    }
    int mark = 0;
    for (const Broker& broker : m_Brokers) {
        text += "broker " + broker.Code + " \"Broker " + broker.Code + "\" " + std::to_string(mark) + "\n";
        mark = (mark + 1) % kMarks;
    }
    return text;
}

Deal Market::NextDeal() {
    const auto stocks = static_cast<int64_t>(m_Stocks.size());
    Stock& stock =
        m_Stocks[static_cast<std::size_t>(std::min(m_Random.Below(stocks), m_Random.Below(stocks)))];
    const Broker& first = m_Brokers[static_cast<std::size_t>(m_Random.Below(kBrokers))];
    const Broker& second = m_Brokers[static_cast<std::size_t>(m_Random.Below(kBrokers))];
    constexpr int kPercentWithoutTrade = 2;
    if (stock.TradeCount > 0 && m_Random.Chance(kPercentWithoutTrade)) {
        return {&stock, 0, 0, first, second, m_nDeals};
    }
    stock.Price = NextPrice(stock);
    const int32_t volume = NextVolume();
    const int64_t value = int64_t{stock.Price} * volume * kLotSize;
    if (stock.TradeCount == 0) {
        stock.Open = stock.High = stock.Low = stock.Price;
    }
    stock.High = std::max(stock.High, stock.Price);
    stock.Low = std::min(stock.Low, stock.Price);
    stock.TradeCount += 1;
    stock.TotalVolume += volume;
    stock.TotalValue += value;
    return {&stock, volume, value, first, second, ++m_nDeals};
}

// Half of the deals repeat the price, the others move it by a tick. The farther the price is from its base,
// the likelier it turns back.
int32_t Market::NextPrice(const Stock& stock) {
    if (m_Random.Chance(50)) {
        return stock.Price;
    }
    const int32_t percentAway = (stock.Price - stock.Base) * 100 / stock.Base;
    const int32_t next = m_Random.Chance(50 - percentAway) ? stock.BestAbove() : stock.BestBelow();
    return next == 0 ? stock.Price : next;
}

// Most deals are small, a few large.
int32_t Market::NextVolume() {
    const int64_t kind = m_Random.Below(100);
    const int64_t largest = kind < 90 ? 10 : kind < 99 ? 100 : 500;
    return static_cast<int32_t>(m_Random.Between(1, largest));
}

const Fund& Market::NextFund(bool close) {
    constexpr int64_t kStep = 5000;
    Fund& fund = m_Funds[static_cast<std::size_t>(m_Random.Below(static_cast<int64_t>(m_Funds.size())))];
    const int64_t pull = (kFundBase - fund.Indicative) / 100;
    fund.Indicative += m_Random.Between(-kStep, kStep) + pull;
    if (close) {
        fund.Previous = fund.Closing;
        fund.Closing = fund.Indicative;
    }
    return fund;
}

}  // namespace tools
