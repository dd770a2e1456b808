// Is the generated session one that a market could have had?
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

#include "tests/tools/sessions.h"
#include "tools/market.h"

namespace {

using tools::Timestamp;

// Follows every trade of a capture with running figures of its own.
class TradeAudit {
public:
    void Check(const TradePacket& trade) {
        Figures& day = m_Days[Text(trade.Key.Code)];
        const int32_t base = ToldBase(trade, trade.Price);
        if (day.Count == 0) {
            day = {base, trade.Price, trade.Price, trade.Price, 0, 0, 0};
        }
        day.Count += trade.Volume == 0 ? 0 : 1;
        day.Volume += trade.Volume;
        day.Value += int64_t{trade.Price} * trade.Volume * trade.LotSize;
        day.High = std::max<int32_t>(day.High, trade.Price);
        day.Low = std::min<int32_t>(day.Low, trade.Price);
        EXPECT_EQ(base, day.Base);
        EXPECT_EQ(trade.Value, int64_t{trade.Price} * trade.Volume * trade.LotSize);
        EXPECT_EQ((std::array<int64_t, 6>{trade.Open, trade.High, trade.Low, trade.TradeCount,
                                          trade.TotalVolume, trade.TotalValue}),
                  (std::array<int64_t, 6>{day.Open, day.High, day.Low, day.Count, day.Volume, day.Value}));
        CheckPrices(trade, base);
        m_nWithoutCompact += trade.Volume == 0 ? 0 : 1;
        m_Latest = trade;
    }
    // Is the latest trade once more.
    void Check(const CompactTradePacket& trade) {
        --m_nWithoutCompact;
        const auto words = [](const auto& packet) {
            return Text(packet.Time) + Text(packet.Key.Code) + Text(packet.Broker1) + Text(packet.Broker2) +
                   packet.Broker1Class + packet.Broker2Class + packet.Sign;
        };
        EXPECT_EQ(words(trade), words(m_Latest));
        EXPECT_EQ((std::array<int32_t, 3>{trade.Price, trade.Change, trade.Volume}),
                  (std::array<int32_t, 3>{m_Latest.Price, m_Latest.Change, m_Latest.Volume}));
    }
    int WithoutCompact() const { return m_nWithoutCompact; }

    std::size_t Stocks() const { return m_Days.size(); }

private:
    struct Figures {
        int32_t Base, Open, High, Low;
        int64_t Count, Volume, Value;
    };

    static void CheckPrices(const TradePacket& trade, int32_t base) {
        const tools::DailyLimits limits = tools::LimitsOf(base);
        EXPECT_EQ(trade.Price % tools::TickSize(trade.Price), 0);
        EXPECT_TRUE(trade.Price >= limits.Lowest && trade.Price <= limits.Highest);
        // A side that a limit has emptied shows 0.
        if (trade.Best1Price != 0) {
            EXPECT_EQ(trade.Best1Price + tools::TickSize(trade.Best1Price), trade.Price);
        }
        if (trade.Best2Price != 0) {
            EXPECT_EQ(trade.Best2Price, trade.Price + tools::TickSize(trade.Price));
        }
    }

    std::map<std::string, Figures> m_Days;
    TradePacket m_Latest{};
    int m_nWithoutCompact = 0;
};

void CheckFund(const NavPacket& nav) {
    const std::string kind = Text(nav.Kind);
    EXPECT_TRUE(kind == "0         " || kind == "1         ");
    EXPECT_NEAR(std::strtod(nav.Value1, nullptr), 1000, 100);
    EXPECT_EQ(IsBlank(nav.Value2), kind[0] == '0');
}

using FeedGen = FeedSession;

TEST_F(FeedGen, FiguresOfAWholeDayAgree) {
    TradeAudit audit;
    int packets = 0;
    int funds = 0;
    int inBatch = 0;
    Timestamp last = tools::ParseDate("20261120") + std::chrono::hours(9);
    Timestamp lastOfMarket;
    const Timestamp close = tools::ParseDate("20261120") + std::chrono::hours(16);
    Each("--packets 60000 --stocks 12 --date 20261120", [&](const tools::CaptureRecord& record) {
        EXPECT_GE(record.Time, last);
        last = record.Time;
        if (record.EndsBatch()) {
            EXPECT_TRUE(inBatch >= 1 && inBatch <= 60);
            inBatch = 0;
            return;
        }
        ++inBatch;
        const auto* const trade = As<TradePacket>(record);
        const auto* const nav = As<NavPacket>(record);
        if (trade != nullptr) {
            EXPECT_EQ(Text(trade->Time), tools::TimeText(record.Time));
            audit.Check(*trade);
        } else if (nav != nullptr) {
            ++funds;
            CheckFund(*nav);
        } else if (const auto* compact = As<CompactTradePacket>(record)) {
            audit.Check(*compact);
        }
        if (trade != nullptr || nav != nullptr) {  // the others follow from the trades
            ++packets;
            lastOfMarket = record.Time;
        }
    });
    EXPECT_EQ(inBatch, 0);
    EXPECT_EQ(packets, 60000);
    EXPECT_GT(funds, 1000);
    EXPECT_EQ(audit.Stocks(), 12U);
    EXPECT_EQ(audit.WithoutCompact(), 0);
    EXPECT_TRUE(lastOfMarket < close && lastOfMarket > close - std::chrono::minutes(1));
    EXPECT_LT(last, close + std::chrono::seconds(4));
}

TEST_F(FeedGen, TheSameOptionsGiveTheSameBytes) {
    const auto generate = [this](const std::string& options) {
        return ReadFile(Generate("--minutes 2 " + options));
    };
    const std::string session = generate("--seed 7");
    EXPECT_EQ(session, generate("--seed 7"));
    EXPECT_NE(session, generate("--seed 8"));
    const std::string piped = m_Folder.Path("piped.pcap");
    EXPECT_EQ(RunTool("feedgen", "--output - --minutes 2 --seed 7 >" + piped).Text, "");
    EXPECT_EQ(session, ReadFile(piped));

    // Another clock moves the records' times only.
    tools::CaptureReader here(piped);
    tools::CaptureRecord a;
    Each("--minutes 2 --seed 7 --utc-offset +07:30", [&](const tools::CaptureRecord& b) {
        ASSERT_TRUE(here.Next(a));
        ASSERT_EQ(a.Time - b.Time, std::chrono::minutes(450));
        ASSERT_EQ(std::string(a.Bytes, static_cast<std::size_t>(a.Length)),
                  std::string(b.Bytes, static_cast<std::size_t>(b.Length)));
    });
    EXPECT_FALSE(here.Next(a));
}

// Where the step of prices changes, and where limits fall between two steps.
TEST(Market, TicksAndLimitsAtTheirBorders) {
    const int32_t ticks[][2] = {{199, 1},  {200, 2},   {499, 2},   {500, 5},
                                {1999, 5}, {2000, 10}, {4990, 10}, {5000, 25}};
    for (const auto& [price, tick] : ticks) {
        EXPECT_EQ(tools::TickSize(price), tick) << price;
    }
    const int32_t limits[][3] = {
        {148, 97, 199}, {200, 130, 270}, {310, 234, 386}, {1985, 1490, 2480}, {8725, 7000, 10450}};
    for (const auto& [base, lowest, highest] : limits) {
        EXPECT_EQ(tools::LimitsOf(base).Lowest, lowest) << base;
        EXPECT_EQ(tools::LimitsOf(base).Highest, highest) << base;
    }
}

}  // namespace
