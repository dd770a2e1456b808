#include "feed/books.h"

#include <algorithm>

namespace tools {

namespace {

constexpr uint64_t kBookDice = 0xB00C5;

int32_t QuantityAt(const std::vector<PriceLevel>& levels, int32_t price) {
    const auto found = std::find_if(levels.begin(), levels.end(),
                                    [price](const PriceLevel& level) { return level.Price == price; });
    return found == levels.end() ? 0 : found->Quantity;
}

}  // namespace

Books::Books(const std::vector<Stock>& stocks, uint64_t seed, int percent)
    : m_Stocks(stocks), m_nPercent(percent), m_Dice(seed + kBookDice) {
    m_Books.reserve(m_Stocks.size());
    for (const Stock& stock : m_Stocks) {
        m_Books.push_back({&stock, {}, {}});
    }
}

const Book* Books::Next(const Stock* traded) {
    if (!m_Dice.Chance(m_nPercent)) {
        return nullptr;
    }
    constexpr int kPercentAlone = 15;
    const bool isAlone = traded == nullptr || m_Dice.Chance(kPercentAlone);
    const int64_t number =
        isAlone ? m_Dice.Below(static_cast<int64_t>(m_Stocks.size())) : traded - m_Stocks.data();
    Book& book = m_Books[static_cast<std::size_t>(number)];
    const Stock& stock = *book.Of;
    Bring(book.Below, stock.BestBelow(), stock.Limits, PriceBelow);
    Bring(book.Above, stock.BestAbove(), stock.Limits, PriceAbove);
    return &book;
}

// From the best price to the tenth that has a quantity, or to the limit.
void Books::Bring(BookSide& side, int32_t best, const DailyLimits& limits, Outward outward) {
    std::vector<PriceLevel> levels;
    int32_t sum = 0;
    int32_t price = best;
    for (; price != 0 && levels.size() < kBookLevels; price = outward(price, limits)) {
        const int32_t quantity = NextQuantity(QuantityAt(side.Levels, price), price == best);
        if (quantity != 0) {
            levels.push_back({price, quantity});
            sum += quantity;
        }
    }
    const int32_t beyond = price == 0 ? 0 : static_cast<int32_t>(m_Dice.Between(0, sum / 5));
    side = {std::move(levels), sum + beyond};
}

// Most quantities stay. 0: nothing at this price.
int32_t Books::NextQuantity(int32_t former, bool isBest) {
    constexpr int kPercentEnter = 70;
    constexpr int kPercentLeave = 4;
    constexpr int kPercentChange = 35;
    constexpr int32_t kLargest = 900;
    if (former == 0) {
        return isBest || m_Dice.Chance(kPercentEnter) ? static_cast<int32_t>(m_Dice.Between(5, kLargest)) : 0;
    }
    if (!isBest && m_Dice.Chance(kPercentLeave)) {
        return 0;
    }
    if (!m_Dice.Chance(kPercentChange)) {
        return former;
    }
    return static_cast<int32_t>(m_Dice.Between((former + 1) / 2, former / 2 + kLargest / 2));
}

}  // namespace tools
