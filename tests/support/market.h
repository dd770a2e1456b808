// Packets at random, the same from one seed on every machine.
#ifndef TICKMUX_TESTS_SUPPORT_MARKET_H
#define TICKMUX_TESTS_SUPPORT_MARKET_H

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "feed/random.h"
#include "tests/support/orders.h"
#include "tests/support/packets.h"
#include "tests/support/text.h"

// "1S1000", "1S1001" ...: a stock of board 1.
inline std::string StockOf(int64_t number) {
    return "1S" + std::to_string(1000 + number);
}

// The codes of so many of them.
inline Rows StockCodes(int64_t count) {
    Rows codes;
    for (int64_t number = 0; number < count; ++number) {
        codes.push_back(StockOf(number).substr(1));
    }
    return codes;
}

// Choices.
class Dice : public tools::Random {
public:
    using Random::Random;

    int32_t Number(int64_t bound) { return static_cast<int32_t>(Below(bound)); }
    std::string Digits(int64_t first, int64_t last) { return std::to_string(Between(first, last)); }
    template <class Item, std::size_t N>
    Item OneOf(const Item (&items)[N]) {
        return items[Below(N)];
    }
};

// Values as a busy morning brings them: no two alike, and none that can be foretold.
class Market : public Dice {
public:
    using Dice::Dice;

    // Of three to six digits.
    int32_t Price() { return 100 + Number(OneOf({500, 5000, 50000, 500000})); }
    // Mostly some hundreds, now and then millions.
    int32_t Quantity() { return 1 + Number(Below(8) == 0 ? 9'000'000 : 900); }
    char Sign() { return "1234567800"[Below(10)]; }

    Trade NextTrade(const std::string& key) {
        const int32_t price = Price();
        const int32_t volume = Quantity();
        const int32_t total = Number(900'000'000);
        Trade trade(key);
        trade.Time(std::to_string(100000 + Below(4) * 10000 + Below(60) * 100 + Below(60)));
        trade.Price(price).Volume(volume).Value(int64_t{price} * volume * 100);
        trade.Change(Sign(), Number(price / 5)).Day(Price(), Price(), Price()).Best(Price(), Price());
        trade.Totals(Number(100'000), total, int64_t{total} * 100 * price);
        trade.Brokers("DF"[Below(2)], "DF"[Below(2)], "B" + Digits(0, 99), "B" + Digits(0, 99));
        return trade.Ref(Digits(10'000'000, 99'999'999));
    }

    CompactTrade NextCompactTrade(const std::string& key) {
        CompactTrade trade(key);
        const int32_t price = Price();
        return trade.Price(price).Change(Sign(), Number(price / 5)).Volume(Quantity());
    }

    // The next book of a stock: some quantities change, and now and then the best prices move by a tick.
    Book NextBook(const std::string& key) {
        const bool isFirst = m_nBest == 0;
        if (isFirst || Below(5) == 0) {
            m_nBest = isFirst ? 5000 : std::clamp(m_nBest + (Below(2) == 0 ? 5 : -5), 4500, 5500);
        }
        for (int64_t changes = isFirst ? 60 : 1 + Below(4); changes > 0; --changes) {
            m_Quantities[static_cast<std::size_t>(Below(20))] = Quantity();
        }
        Book book(key);
        for (int32_t level = 0; level < 10; ++level) {
            const auto number = static_cast<std::size_t>(level);
            book.Level(number, m_nBest - level * 5, m_Quantities[number], m_nBest + 5 + level * 5,
                       m_Quantities[10 + number]);
        }
        return book.Base(5000).Totals(1 + Number(90'000'000), 1 + Number(90'000'000));
    }

private:
    std::array<int32_t, 20> m_Quantities{};  // of side 1, then of side 2
    int32_t m_nBest = 0;
};

// A packet as it should not be: extreme numbers, and digits, blanks or zero bytes where they don't belong.
inline std::string Spoilt(std::string packet, Dice& dice, std::size_t from = 1) {
    const int32_t number = dice.OneOf({INT32_MAX, INT32_MIN, 0, -1, 100, dice.Number(2000)});
    const auto end = static_cast<int64_t>(packet.size());
    const auto place = static_cast<std::size_t>(dice.Between(static_cast<int64_t>(from), end - 1));
    if (dice.Chance(50) && place + sizeof(number) <= packet.size()) {
        std::memcpy(&packet[place], &number, sizeof(number));
    } else {
        packet[place] = dice.OneOf({'0', '1', '2', '3', '5', '9', ' ', 'F', '\0'});
    }
    return packet;
}

#endif
