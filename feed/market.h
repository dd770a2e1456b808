// An invented market: stocks and funds whose figures move as real ones would. It knows nothing of packets.
//
// All in whole numbers, so that a seed gives the same session everywhere.
#ifndef TICKMUX_FEED_MARKET_H
#define TICKMUX_FEED_MARKET_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "feed/random.h"

namespace tools {

inline constexpr int32_t kLotSize = 100;  // shares in one unit of volume
inline constexpr int kMostStocks = 10000;
inline constexpr int kMostFunds = 99;

// The step of prices, by the range in which a price lies. Range borders lie on the steps of both sides.
int32_t TickSize(int32_t price);

// How far a day's prices may lie from the base price.
struct DailyLimits {
    int32_t Lowest;
    int32_t Highest;
};
DailyLimits LimitsOf(int32_t basePrice);

// The next price on either side; 0 where a daily limit leaves no room.
int32_t PriceBelow(int32_t price, const DailyLimits& limits);
int32_t PriceAbove(int32_t price, const DailyLimits& limits);

struct Broker {
    std::string Code;
    char Class;  // 'D' or 'F'
};

struct Stock {
    std::string Code;
    int32_t Base;
    DailyLimits Limits;
    int32_t Price;  // latest; the base before the first trade
    int32_t Open = 0;
    int32_t High = 0;
    int32_t Low = 0;
    int32_t TradeCount = 0;
    int32_t TotalVolume = 0;
    int64_t TotalValue = 0;

    // Best prices beside the latest one; 0 where a daily limit leaves no room.
    int32_t BestBelow() const { return PriceBelow(Price, Limits); }
    int32_t BestAbove() const { return PriceAbove(Price, Limits); }
};

struct Deal {
    const Stock* Of;  // with the deal in its figures
    int32_t Volume;   // 0: only the best prices have moved
    int64_t Value;
    Broker First;
    Broker Second;
    int64_t Number;  // of the whole market's deals
};

// Fund values count in ten-thousandths.
inline constexpr int kFundDecimals = 4;
inline constexpr int64_t kFundBase = 1000'0000;
std::string FundValueText(int64_t value);

struct Fund {
    std::string Code;
    int64_t Indicative = kFundBase;
    int64_t Closing = kFundBase;
    int64_t Previous = kFundBase;
};

class Market {
public:
    Market(uint64_t seed, int stocks, int funds);

    const std::vector<Broker>& Brokers() const { return m_Brokers; }
    const std::vector<Stock>& Stocks() const { return m_Stocks; }
    const std::vector<Fund>& Funds() const { return m_Funds; }
    // Its stocks and brokers in lines, as a terminal reads them.
    std::string MasterText() const;
    Random& Dice() { return m_Random; }

    // The next deal, in one of the busier stocks more often than not.
    Deal NextDeal();

    // A fund whose indicative value has moved, or with `close` its closing values.
    const Fund& NextFund(bool close);

private:
    int32_t NextPrice(const Stock& stock);
    int32_t NextVolume();

    Random m_Random;
    std::vector<Broker> m_Brokers;
    std::vector<Stock> m_Stocks;
    std::vector<Fund> m_Funds;
    int64_t m_nDeals = 0;
};

}  // namespace tools

#endif
