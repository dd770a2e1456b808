// Are the generated books ones that the trades around them allow?
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "tests/tools/sessions.h"
#include "tools/emitters.h"

namespace {

constexpr std::size_t kLevels = std::extent_v<decltype(BookPacket::Levels)>;

using Side = std::array<tools::PriceLevel, kLevels>;

Side SideOf(const BookPacket& book, int number) {
    Side side;
    for (std::size_t i = 0; i < kLevels; ++i) {
        const auto& [price1, quantity1, price2, quantity2] = book.Levels[i];
        side[i] = number == 1 ? tools::PriceLevel{price1, quantity1} : tools::PriceLevel{price2, quantity2};
    }
    return side;
}

// Holds each book against the latest trade of its stock.
class BookAudit {
public:
    void Take(const TradePacket& trade) {
        m_Stocks[Text(trade.Key.Code)] = {ToldBase(trade, trade.Price), trade.Best1Price, trade.Best2Price};
    }

    void Take(const BookPacket& book) {
        ++Books;
        const auto stock = m_Stocks.find(Text(book.Key.Code));
        const tools::DailyLimits limits = tools::LimitsOf(book.BasePrice);
        for (const int number : {1, 2}) {
            const Side side = SideOf(book, number);
            if (stock != m_Stocks.end()) {
                EXPECT_EQ(book.BasePrice, stock->second.Base);
                EXPECT_EQ(side[0].Price, number == 1 ? stock->second.Best1 : stock->second.Best2);
            }
            CheckSide(side, number == 1 ? tools::PriceBelow : tools::PriceAbove, limits,
                      number == 1 ? book.Side1Total : book.Side2Total);
        }
    }

    int Books = 0;
    int Short = 0;  // sides with fewer levels than there is room for
    int Empty = 0;
    double Gaps() const { return 1.0 * m_nGaps / m_nLevels; }

private:
    struct Stock {
        int32_t Base;
        int32_t Best1;
        int32_t Best2;
    };

    // From one level to the next by ticks, then nothing more.
    void CheckSide(const Side& side, int32_t (*outward)(int32_t, const tools::DailyLimits&),
                   const tools::DailyLimits& limits, int32_t total) {
        int32_t sum = 0;
        int32_t expected = side[0].Price;
        std::size_t levels = 0;
        for (; levels < kLevels && side[levels].Price != 0; ++levels) {
            const auto [price, quantity] = side[levels];
            m_nGaps += price != expected ? 1 : 0;
            while (expected != price && expected != 0) {
                expected = outward(expected, limits);
            }
            ASSERT_EQ(price, expected);  // in order, on tick, within the limits
            EXPECT_TRUE(quantity > 0 && quantity < 2000);
            sum += quantity;
            expected = outward(price, limits);
        }
        m_nLevels += static_cast<int>(levels);
        Short += levels < kLevels ? 1 : 0;
        Empty += levels == 0 ? 1 : 0;
        EXPECT_TRUE(std::all_of(side.begin() + static_cast<std::ptrdiff_t>(levels), side.end(),
                                [](const auto& level) { return level.Price == 0 && level.Quantity == 0; }));
        EXPECT_TRUE(total >= sum && total <= (levels < kLevels ? sum : sum + sum / 5));
    }

    std::map<std::string, Stock> m_Stocks;
    int m_nLevels = 0;
    int m_nGaps = 0;
};

using Books = FeedSession;

TEST_F(Books, AgreeWithTheTradesOfAWholeDay) {
    BookAudit audit;
    Each("--packets 60000 --stocks 12", [&audit](const tools::CaptureRecord& record) {
        if (const auto* trade = As<TradePacket>(record)) {
            audit.Take(*trade);
        } else if (const auto* book = As<BookPacket>(record)) {
            audit.Take(*book);
        }
    });
    EXPECT_NEAR(audit.Books, 12000, 400);
    EXPECT_TRUE(audit.Gaps() > 0.01 && audit.Gaps() < 0.15);
}

// A price that wanders through the whole day's range, from end to end and back.
TEST_F(Books, EndAtTheDailyLimits) {
    const tools::DailyLimits limits = tools::LimitsOf(1985);
    std::vector<tools::Stock> stocks = {{"ASII", 1985, limits, limits.Lowest}};
    tools::Stock& stock = stocks.front();
    tools::Books books(stocks, 1, 100);
    BookAudit audit;
    for (const auto outward : {tools::PriceAbove, tools::PriceBelow}) {
        for (int32_t price = stock.Price; price != 0; price = outward(price, limits)) {
            stock.Price = price;
            audit.Take(tools::MakeTrade({&stock, 1, 0, {}, {}, 1}, {}).Payload);
            audit.Take(tools::MakeBook(*books.Next(&stock)).Payload);
        }
    }
    EXPECT_GT(audit.Short, 4 * 9);
    EXPECT_EQ(audit.Empty, 4);
}

}  // namespace
