#include "feed/derived_feed.h"

#include <algorithm>

namespace tools {

namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;

template <class Packet>
std::string BytesOf(const WholePacket<Packet>& packet) {
    return {reinterpret_cast<const char*>(&packet), sizeof(packet)};
}

}  // namespace

DerivedFeed::DerivedFeed(const Market& market, uint64_t seed, const BarFaults& faults)
    : m_Stocks(market.Stocks()),
      m_Faults(faults),
      m_Dice(~seed),
      m_Indices(IndicesOf(m_Stocks)),
      m_BarredVolumes(m_Indices.size()),
      m_Bars(m_Stocks.size()) {}

void DerivedFeed::Advance(Timestamp now) {
    if (m_UpdateDue && *m_UpdateDue <= now) {
        UpdateIndices(*m_UpdateDue);
        m_UpdateDue.reset();
    }
    if (m_MinuteEnd && *m_MinuteEnd <= now) {
        CloseMinute(*m_MinuteEnd);
        m_MinuteEnd.reset();
    }
}

void DerivedFeed::Take(const Deal& deal, Timestamp now) {
    if (deal.Volume == 0) {
        return;
    }
    const auto number = static_cast<std::size_t>(deal.Of - m_Stocks.data());
    if (m_Bars[number].Volume == 0) {
        m_Traded.push_back(number);
    }
    m_Bars[number].Add(deal.Of->Price, deal.Volume);
    m_MinuteEnd = std::chrono::floor<minutes>(now) + minutes(1);
    if (!m_UpdateDue) {
        m_UpdateDue = std::min<Timestamp>(now + Moment(1000, 3000), *m_MinuteEnd);
    }
}

void DerivedFeed::UpdateIndices(Timestamp now) {
    for (Index& index : m_Indices) {
        if (index.Update(m_Stocks)) {
            m_Waiting.emplace(now, BytesOf(MakeIndex(index, now)));
        }
    }
}

void DerivedFeed::CloseMinute(Timestamp end) {
    for (const std::size_t number : m_Traded) {
        AddBar(end, BytesOf(MakeBar(m_Stocks[number], m_Bars[number], end)));
        m_Bars[number] = {};
    }
    m_Traded.clear();
    for (std::size_t number = 0; number < m_Indices.size(); ++number) {
        const Index& index = m_Indices[number];
        const int32_t volume = index.TotalVolume - m_BarredVolumes[number];
        if (volume > 0) {
            AddBar(end, BytesOf(MakeIndexBar(index, volume, end)));
            m_BarredVolumes[number] = index.TotalVolume;
        }
    }
}

// All dice are thrown for each bar, so that one fault leaves the others' bars as they are.
void DerivedFeed::AddBar(Timestamp end, const std::string& bar) {
    const milliseconds usual = Moment(200, 3000);
    const milliseconds late = Moment(10'000, 90'000);
    const milliseconds again = Moment(1, 2000);
    const bool isLate = m_Dice.Chance(m_Faults.Late);
    const bool isDoubled = m_Dice.Chance(m_Faults.Doubled);
    if (m_Dice.Chance(m_Faults.Missing)) {
        return;
    }
    const Timestamp comes = end + (isLate ? late : usual);
    m_Waiting.emplace(comes, bar);
    if (isDoubled) {
        m_Waiting.emplace(comes + again, bar);
    }
}

milliseconds DerivedFeed::Moment(int from, int to) {
    return milliseconds(m_Dice.Between(from, to));
}

}  // namespace tools
