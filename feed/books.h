// The books of the market's stocks: ten prices on each side of the latest one, with quantities that come and
// go. It knows nothing of packets.
#ifndef TICKMUX_FEED_BOOKS_H
#define TICKMUX_FEED_BOOKS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "feed/market.h"
#include "feed/random.h"

namespace tools {

inline constexpr std::size_t kBookLevels = 10;

struct PriceLevel {
    int32_t Price;
    int32_t Quantity;
};

struct BookSide {
    std::vector<PriceLevel> Levels;  // best first; fewer than ten where a daily limit ends them
    int32_t Total = 0;               // with what waits at prices beyond the tenth
};

struct Book {
    const Stock* Of;
    BookSide Below;
    BookSide Above;
};

// Has dice of its own, so that books leave the market as it is.
class Books {
public:
    // As many books for each 100 packets of the market, whose stocks these are.
    Books(const std::vector<Stock>& stocks, uint64_t seed, int percent);

    // The book, if one comes, behind a packet of the market: mostly that of the stock which has just traded,
    // now and then another. `traded` is null behind a packet that is no trade.
    const Book* Next(const Stock* traded);

private:
    using Outward = int32_t (*)(int32_t price, const DailyLimits& limits);

    void Bring(BookSide& side, int32_t best, const DailyLimits& limits, Outward outward);
    int32_t NextQuantity(int32_t former, bool isBest);

    const std::vector<Stock>& m_Stocks;
    const int m_nPercent;
    Random m_Dice;
    std::vector<Book> m_Books;  // of each stock
};

}  // namespace tools

#endif
