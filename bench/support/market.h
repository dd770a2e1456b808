// Packets with values as a busy morning brings them: no two alike, and none that can be foretold.
#ifndef TICKMUX_BENCH_SUPPORT_MARKET_H
#define TICKMUX_BENCH_SUPPORT_MARKET_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include "framework/packets.h"

namespace bench {

template <std::size_t N>
void PutLeft(char (&field)[N], const std::string& text) {
    FillBlank(field);
    std::memcpy(field, text.data(), std::min(text.size(), N));
}

// Fixed-width text with spaces behind or in front.
inline std::string Left(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}
inline std::string Right(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

// A repeat block's head.
inline std::string Head(std::size_t rows, std::size_t size) {
    return Right(std::to_string(rows), 4) + Right(std::to_string(size), 4) + std::string(16, ' ');
}

// "1S1000", "1S1001" ...: a stock of board 1.
inline std::string StockOf(unsigned number) {
    return "1S" + std::to_string(1000 + number);
}

class Market {
public:
    explicit Market(unsigned seed) : m_Random(seed) {}

    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_Random()) % limit; }
    // Of three to six digits.
    int32_t Price() {
        constexpr unsigned kScales[] = {500, 5000, 50000, 500000};
        return static_cast<int32_t>(100 + Below(kScales[Below(4)]));
    }
    // Mostly some hundreds, now and then millions.
    int32_t Quantity() { return static_cast<int32_t>(1 + Below(Below(8) == 0 ? 9'000'000 : 900)); }
    char Sign() { return "1234567800"[Below(10)]; }

    TradePacket Trade(const std::string& key) {
        TradePacket trade;
        FillBlank(trade);
        std::memcpy(&trade.Key, Left(key, sizeof(trade.Key)).data(), sizeof(trade.Key));
        PutLeft(trade.Time, std::to_string(100000 + Below(4) * 10000 + Below(60) * 100 + Below(60)));
        trade.Sign = Sign();
        PutLeft(trade.Broker1, "B" + std::to_string(Below(100)));
        trade.Broker1Class = "DF"[Below(2)];
        PutLeft(trade.Broker2, "B" + std::to_string(Below(100)));
        trade.Broker2Class = "DF"[Below(2)];
        PutLeft(trade.TradeRef, std::to_string(10'000'000 + Below(90'000'000)));
        trade.Price = Price();
        trade.Change = static_cast<int32_t>(Below(static_cast<unsigned>(trade.Price) / 5));
        trade.Open = Price();
        trade.High = Price();
        trade.Low = Price();
        trade.Best1Price = Price();
        trade.Best2Price = Price();
        trade.TradeCount = static_cast<int32_t>(Below(100'000));
        trade.Volume = Quantity();
        trade.TotalVolume = static_cast<int32_t>(Below(900'000'000));
        trade.LotSize = 100;
        trade.Value = int64_t{trade.Price} * trade.Volume * trade.LotSize;
        trade.TotalValue = int64_t{trade.TotalVolume} * 100 * trade.Price;
        return trade;
    }

    CompactTradePacket CompactTrade(const std::string& key) {
        const TradePacket whole = Trade(key);
        CompactTradePacket trade;
        FillBlank(trade);
        trade.Key = whole.Key;
        std::memcpy(trade.Time, whole.Time, sizeof(trade.Time));
        trade.Sign = whole.Sign;
        trade.Price = whole.Price;
        trade.Change = whole.Change;
        trade.Volume = whole.Volume;
        return trade;
    }

    // The next book of a stock: some quantities change, and now and then the best prices move by a tick.
    const BookPacket& NextBook(const std::string& key) {
        std::memcpy(&m_Book.Key, Left(key, sizeof(m_Book.Key)).data(), sizeof(m_Book.Key));
        m_Book.BasePrice = 5000;
        const bool isFirst = m_Book.Side1Total == 0;
        if (isFirst || Below(5) == 0) {
            m_nBest = isFirst ? 5000 : std::clamp(m_nBest + (Below(2) == 0 ? 5 : -5), 4500, 5500);
            for (int32_t number = 0; number < 10; ++number) {
                m_Book.Levels[number].Side1Price = m_nBest - number * 5;
                m_Book.Levels[number].Side2Price = m_nBest + 5 + number * 5;
            }
        }
        for (unsigned changes = isFirst ? 60 : 1 + Below(4); changes > 0; --changes) {
            PacketLevel& level = m_Book.Levels[Below(10)];
            (Below(2) == 0 ? level.Side1Qty : level.Side2Qty) = Quantity();
        }
        m_Book.Side1Total = static_cast<int32_t>(1 + Below(90'000'000));
        m_Book.Side2Total = static_cast<int32_t>(1 + Below(90'000'000));
        return m_Book;
    }

private:
    std::mt19937 m_Random;
    BookPacket m_Book{};
    int32_t m_nBest = 0;
};

}  // namespace bench

#endif
