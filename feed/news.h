// Invented headlines. They know nothing of packets.
#ifndef TICKMUX_FEED_NEWS_H
#define TICKMUX_FEED_NEWS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "feed/market.h"
#include "feed/random.h"

namespace tools {

struct Headline {
    int64_t Number;        // of the session's headlines
    const char* Category;  // two characters, the desk's and its subject
    const Stock* Of;       // null: it concerns no one stock
    std::string Title;     // UTF-8, now and then with blanks in front
};

class NewsWire {
public:
    // As many headlines for each 100 packets of the market, whose stocks these are.
    NewsWire(const std::vector<Stock>& stocks, uint64_t seed, int percent);

    // The headline, if one comes behind a packet of the market.
    std::optional<Headline> Next();

private:
    const std::vector<Stock>& m_Stocks;
    const int m_nPercent;
    Random m_Dice;
    int64_t m_nHeadlines = 0;
};

}  // namespace tools

#endif
