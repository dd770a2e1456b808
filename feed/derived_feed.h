// What an exchange makes of its trades: closed minute bars of stocks and indices, and index updates. Each
// packet waits here for the time at which it comes.
//
// A minute's bars carry its end as their time and come a little later. An index update follows the first
// trade that it tells of within a few seconds, and not behind the minute's end, so that updates and bars
// agree.
#ifndef TICKMUX_FEED_DERIVED_FEED_H
#define TICKMUX_FEED_DERIVED_FEED_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "feed/emitters.h"
#include "feed/indices.h"
#include "feed/market.h"
#include "terminal/times.h"

namespace tools {

// How many of 100 bars go wrong.
struct BarFaults {
    int Late = 0;     // 10 to 90 seconds behind their time
    int Doubled = 0;  // come again a moment later
    int Missing = 0;
};

// Has dice of its own, so that faults leave the market as it is. Times are on the exchange's clock.
class DerivedFeed {
public:
    DerivedFeed(const Market& market, uint64_t seed, const BarFaults& faults);

    // All trades before `now` are in the market's figures, and none of `now` or later.
    void Advance(Timestamp now);

    // A trade at `now`, which is in the market's figures already.
    void Take(const Deal& deal, Timestamp now);

    // Whole packets by the time at which they come; to be taken out as they are written.
    using Packets = std::multimap<Timestamp, std::string>;
    Packets& Waiting() { return m_Waiting; }
    bool IsDue(Timestamp now) const { return !m_Waiting.empty() && m_Waiting.begin()->first <= now; }

private:
    void UpdateIndices(Timestamp now);
    void CloseMinute(Timestamp end);
    void AddBar(Timestamp end, const std::string& bar);
    std::chrono::milliseconds Moment(int from, int to);

    const std::vector<Stock>& m_Stocks;
    const BarFaults m_Faults;
    Random m_Dice;
    std::vector<Index> m_Indices;
    std::vector<int32_t> m_BarredVolumes;  // of each index, what its bars have told
    std::vector<MinuteBar> m_Bars;         // of each stock
    std::vector<std::size_t> m_Traded;     // the stocks of this minute
    std::optional<Timestamp> m_MinuteEnd;  // none: no trade since the last one
    std::optional<Timestamp> m_UpdateDue;
    Packets m_Waiting;
};

}  // namespace tools

#endif
