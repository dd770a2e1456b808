// Do minute bars and index updates agree with the trades around them?
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "tests/tools/sessions.h"
#include "tools/indices.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using tools::Timestamp;

// Keeps the trades of each stock and minute until the minute's bar comes.
class BarAudit {
public:
    void Take(const TradePacket& trade, Timestamp time) {
        if (trade.Volume != 0) {
            const Timestamp end = std::chrono::floor<minutes>(time) + minutes(1);
            Minute& minute = m_Open[{Text(trade.Key.Code), tools::TimeText(end)}];
            minute.End = end;
            minute.Prices.push_back(trade.Price);
            minute.Volume += trade.Volume;
        }
    }
    void Take(const BarPacket& bar, Timestamp time) {
        const auto found = m_Open.extract({Text(bar.Key.Code), Text(bar.Time)});
        ASSERT_FALSE(found.empty()) << "a bar without trades at " << Text(bar.Time);
        const auto& [end, prices, volume] = found.mapped();
        const auto [low, high] = std::minmax_element(prices.begin(), prices.end());
        EXPECT_EQ((std::vector<int32_t>{bar.Open, bar.High, bar.Low, bar.Close, bar.Volume}),
                  (std::vector<int32_t>{prices.front(), *high, *low, prices.back(), volume}));
        EXPECT_TRUE(time - end >= milliseconds(200) && time - end <= seconds(3));
        ++Bars;
    }

    int Bars = 0;
    std::size_t MinutesWithoutBar() const { return m_Open.size(); }

private:
    struct Minute {
        Timestamp End;
        std::vector<int32_t> Prices;
        int32_t Volume = 0;
    };
    std::map<std::pair<std::string, std::string>, Minute> m_Open;
};

// Follows one index. Its updates count all trades before them, its bars what the minute's last update says.
class IndexAudit {
public:
    explicit IndexAudit(std::string code) : m_Code(std::move(code)) {}

    void Take(const IndexPacket& update) {
        if (Text(update.Key.IndexCode) != m_Code) {
            return;
        }
        Values.push_back(update.Index);
        Volume += update.Volume;
        Value += update.Value;
        m_ByTime[Text(update.Time)] = {update.Index, update.TotalVolume};
        EXPECT_GT(update.Volume, 0);
        EXPECT_EQ(update.TotalVolume, Volume);
        EXPECT_EQ(update.TotalValue, Value);
        EXPECT_TRUE(m_Bases.insert(ToldBase(update, update.Index)).second == (Values.size() == 1));
        const auto [low, high] = std::minmax_element(Values.begin(), Values.end());
        EXPECT_EQ((std::vector<int32_t>{update.Open, update.High, update.Low}),
                  (std::vector<int32_t>{Values.front(), *high, *low}));
    }
    void Take(const IndexBarPacket& bar) {
        if (Text(bar.Key.IndexCode) == m_Code) {
            m_Bars[Text(bar.Time)] = {bar.Index, bar.Volume};
        }
    }
    // Bars may overtake each other, so that they are added up at the end.
    void CheckBars() const {
        int32_t volume = 0;
        for (const auto& [time, bar] : m_Bars) {
            volume += bar.second;
            EXPECT_EQ(std::pair(bar.first, volume), std::prev(m_ByTime.upper_bound(time))->second) << time;
        }
        EXPECT_EQ(volume, Volume);
    }

    std::vector<int32_t> Values;
    int32_t Volume = 0;
    int64_t Value = 0;

private:
    const std::string m_Code;
    std::set<int32_t> m_Bases;
    std::map<std::string, std::pair<int32_t, int32_t>> m_ByTime;  // index and total
    std::map<std::string, std::pair<int32_t, int32_t>> m_Bars;    // index and quantity
};

using DerivedFeed = FeedSession;

TEST_F(DerivedFeed, BarsAndIndicesAgreeWithTheTradesOfAWholeDay) {
    BarAudit bars;
    IndexAudit all("COMP");
    IndexAudit main("MAIN");
    int32_t volume = 0;
    int64_t value = 0;
    Each("--packets 20000 --stocks 12", [&](const tools::CaptureRecord& record) {
        if (const auto* trade = As<TradePacket>(record)) {
            bars.Take(*trade, record.Time);
            volume += trade->Volume;
            value += trade->Value;
        } else if (const auto* bar = As<BarPacket>(record)) {
            bars.Take(*bar, record.Time);
        } else if (const auto* update = As<IndexPacket>(record)) {
            EXPECT_EQ(Text(update->Time), tools::TimeText(record.Time));
            all.Take(*update);
            main.Take(*update);
            EXPECT_TRUE(Text(update->Key.IndexCode) == "MAIN" || all.Volume == volume);
        } else if (const auto* indexBar = As<IndexBarPacket>(record)) {
            all.Take(*indexBar);
            main.Take(*indexBar);
        }
    });
    all.CheckBars();
    main.CheckBars();
    EXPECT_EQ(bars.MinutesWithoutBar(), 0U);
    EXPECT_GT(bars.Bars, 2000);
    EXPECT_GT(all.Values.size(), 2000U);
    EXPECT_EQ(all.Volume, volume);
    EXPECT_EQ(all.Value, value);
    EXPECT_LT(main.Volume, volume);
}

TEST_F(DerivedFeed, FaultsTakeTheirShareOfTheBarsAndLeaveTheRest) {
    struct Session {
        std::string Others;                                  // all that is no bar
        std::map<std::string, std::vector<Timestamp>> Bars;  // the times at which each came
    };
    const auto read = [this](const std::string& options) {
        Session session;
        Each("--minutes 60 --seed 3 " + options, [&session](const tools::CaptureRecord& record) {
            const std::string bytes(record.Bytes, static_cast<std::size_t>(record.Length));
            if (As<BarPacket>(record) != nullptr || As<IndexBarPacket>(record) != nullptr) {
                session.Bars[bytes].push_back(record.Time);
            } else if (!record.EndsBatch()) {
                session.Others += tools::ClockText(record.Time) + bytes;
            }
        });
        return session;
    };
    const Session usual = read("");
    const Session faulty = read("--late-bars 20 --missing-bars 30");
    EXPECT_TRUE(usual.Others == faulty.Others);
    double late = 0;
    for (const auto& [bar, times] : faulty.Bars) {
        ASSERT_TRUE(usual.Bars.contains(bar));
        const auto delay = times.front() - usual.Bars.at(bar).front();
        EXPECT_TRUE(delay == seconds(0) || (delay >= seconds(7) && delay <= seconds(90)));
        late += delay > seconds(0) ? 1 : 0;
    }
    const auto came = static_cast<double>(faulty.Bars.size());
    EXPECT_GT(usual.Bars.size(), 1000U);
    EXPECT_NEAR(came / static_cast<double>(usual.Bars.size()), 0.7, 0.05);
    EXPECT_NEAR(late / came, 0.2, 0.05);
}

TEST(Index, IsTheMeanOfItsMembersAgainstTheirBases) {
    std::vector<tools::Stock> stocks = {
        {"UP", 1000, {}, 1100}, {"DOWN", 200, {}, 190}, {"OUT", 100, {}, 130}};
    tools::Index index{"TWO", 7000'0000, 2};
    EXPECT_FALSE(index.Update(stocks));
    stocks[0].TradeCount = stocks[1].TradeCount = 1;
    stocks[0].TotalVolume = 4;
    EXPECT_TRUE(index.Update(stocks));
    EXPECT_EQ(index.Value, 7175'0000);
    EXPECT_EQ((std::vector<int32_t>{index.Rising, index.Falling, index.Volume}),
              (std::vector<int32_t>{1, 1, 4}));
}

}  // namespace
