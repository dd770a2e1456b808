// What screens rely on in a generated session: its streams agree with each other, and its options with its
// bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "module/wire/packets.h"
#include "terminal/capture.h"
#include "terminal/code_page.h"
#include "terminal/text.h"
#include "tests/programs/tool_runs.h"
#include "tests/support/text.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using tools::Timestamp;

std::string Bytes(const tools::CaptureRecord& record) {
    return {record.Bytes, static_cast<std::size_t>(record.Length)};
}

// The base that the packet's change tells.
template <class Packet>
int32_t ToldBase(const Packet& packet, int32_t price) {
    return price - (packet.Sign == '2' ? 1 : packet.Sign == '5' ? -1 : 0) * packet.Change;
}

template <std::size_t N>
std::string Trimmed(const char (&field)[N]) {
    return std::string(tools::Trim({field, N}));
}

// Follows the market's packets with sums of its own.
class MarketAudit {
public:
    // The record's packet, if it has this type.
    template <class Packet>
    void TakeA(const tools::CaptureRecord& record) {
        if (record.Bytes[0] == Packet::kType) {
            EXPECT_EQ(record.Length, 1 + static_cast<int>(sizeof(Packet)));
            Take(*reinterpret_cast<const Packet*>(record.Bytes + 1), record.Time);
        }
    }
    template <class... Packets>
    void TakeAny(const tools::CaptureRecord& record) {
        (TakeA<Packets>(record), ...);
    }
    void Take(const TradePacket& trade, Timestamp time) {
        EXPECT_EQ(Text(trade.Time), tools::TimeText(time));
        Stock& stock = m_Stocks[Text(trade.Key.Code)];
        const int32_t base = ToldBase(trade, trade.Price);
        stock.Base = stock.Base == 0 ? base : stock.Base;
        const int64_t value = int64_t{trade.Price} * trade.Volume * trade.LotSize;
        stock.Count += trade.Volume == 0 ? 0 : 1;
        stock.Value += value;
        stock.Day.Take(trade.Price, trade.Volume);
        EXPECT_EQ((std::array<int64_t, 8>{base, trade.Value, trade.Open, trade.High, trade.Low,
                                          trade.TradeCount, trade.TotalVolume, trade.TotalValue}),
                  (std::array<int64_t, 8>{stock.Base, value, stock.Day.Open, stock.Day.High, stock.Day.Low,
                                          stock.Count, stock.Day.Volume, stock.Value}));
        EXPECT_TRUE(trade.Best1Price < trade.Price &&
                    (trade.Best2Price == 0 || trade.Best2Price > trade.Price));
        if (trade.Volume != 0) {
            const Timestamp end = std::chrono::floor<minutes>(time) + minutes(1);
            stock.Minutes[tools::TimeText(end)].Take(trade.Price, trade.Volume);
            stock.Brokers[0][Trimmed(trade.Broker1)] += trade.Volume;
            stock.Brokers[1][Trimmed(trade.Broker2)] += trade.Volume;
            ++Seen["compact due"];
        }
        m_Latest = trade;
        m_nVolume += trade.Volume;
        m_nValue += trade.Value;
    }
    void Take(const CompactTradePacket& trade, Timestamp /*time*/) {
        const auto shared = [](const auto& of) {
            return Text(of.Time) + Text(of.Key) + Text(of.Broker1) + Text(of.Broker2) + of.Sign +
                   Text(of.Price) + Text(of.Change) + Text(of.Volume);
        };
        EXPECT_EQ(shared(trade), shared(m_Latest));
        --Seen["compact due"];
    }
    void Take(const BarPacket& bar, Timestamp time) {
        const auto minute = m_Stocks[Text(bar.Key.Code)].Minutes.extract(Text(bar.Time));
        ASSERT_FALSE(minute.empty()) << "a bar without trades at " << Text(bar.Time);
        const Bar told{bar.Open, bar.High, bar.Low, bar.Close, bar.Volume};
        EXPECT_TRUE(told == minute.mapped()) << Text(bar.Key.Code) << Text(bar.Time);
        EXPECT_TRUE(tools::TimeText(time - milliseconds(200)) >= Text(bar.Time) &&
                    tools::TimeText(time - seconds(3)) <= Text(bar.Time));
        ++Seen["bars"];
    }
    // COMP has all trades before it, MAIN some of them.
    void Take(const IndexPacket& update, Timestamp /*time*/) {
        Index& index = m_Indices[Text(update.Key.IndexCode)];
        index.Day.Take(update.Index, update.Volume);
        index.Value += update.Value;
        index.Base = index.Base == 0 ? ToldBase(update, update.Index) : index.Base;
        index.ByTime[Text(update.Time)] = {update.Index, update.TotalVolume};
        EXPECT_EQ((std::array<int64_t, 6>{update.Open, update.High, update.Low, update.TotalVolume,
                                          update.TotalValue, ToldBase(update, update.Index)}),
                  (std::array<int64_t, 6>{index.Day.Open, index.Day.High, index.Day.Low, index.Day.Volume,
                                          index.Value, index.Base}));
        if (Text(update.Key.IndexCode) == "COMP") {
            EXPECT_EQ(std::pair(index.Day.Volume, index.Value), std::pair(m_nVolume, m_nValue));
        }
    }
    // Bars may overtake each other, so that they are added up at the end.
    void Take(const IndexBarPacket& bar, Timestamp /*time*/) {
        m_Indices[Text(bar.Key.IndexCode)].Bars[Text(bar.Time)] = {bar.Index, bar.Volume};
    }
    // Levels go outwards from the latest trade's best prices, and then there are none.
    void Take(const BookPacket& book, Timestamp /*time*/) {
        int64_t last1 = INT32_MAX, last2 = 0, sum1 = 0, sum2 = 0;
        for (const auto& [price1, quantity1, price2, quantity2] : book.Levels) {
            EXPECT_TRUE((price1 == 0) == (quantity1 == 0) && (price2 == 0) == (quantity2 == 0));
            EXPECT_TRUE(price1 < last1 || (price1 == 0 && last1 == 0));
            EXPECT_TRUE(price2 > last2 || price2 == 0);
            last1 = price1;
            last2 = price2 == 0 ? INT32_MAX : int32_t{price2};
            sum1 += quantity1;
            sum2 += quantity2;
        }
        EXPECT_TRUE(book.Side1Total >= sum1 && book.Side2Total >= sum2);
        if (Text(book.Key.Code) == Text(m_Latest.Key.Code)) {
            EXPECT_EQ(book.BasePrice, ToldBase(m_Latest, m_Latest.Price));
            EXPECT_EQ(book.Levels[0].Side1Price, m_Latest.Best1Price);
            EXPECT_EQ(book.Levels[0].Side2Price, m_Latest.Best2Price);
            ++Seen["books"];
        }
    }
    // Sums over the trades before.
    void Take(const BrokerPacket& summary, Timestamp /*time*/) {
        const auto& brokers = m_Stocks[Text(summary.Key.Code)].Brokers;
        int64_t last[2] = {INT64_MAX, INT64_MAX};
        const auto check = [&](int side, const std::string& broker, const std::string& quantity) {
            const int64_t sum = broker.empty() ? 0 : brokers[side].at(broker);
            EXPECT_EQ(quantity, sum == 0 ? "" : std::to_string(10'000'000'000 + sum).substr(1));
            EXPECT_LE(sum, std::exchange(last[side], sum)) << "the largest come first";
        };
        for (const BrokerRow& row : summary.Rows) {
            check(0, Trimmed(row.Broker1), Trimmed(row.Qty1));
            check(1, Trimmed(row.Broker2), Trimmed(row.Qty2));
        }
        ++Seen["summaries"];
    }
    void Take(const NewsPacket& news, Timestamp time) {
        EXPECT_EQ(Trimmed(news.Date) + Trimmed(news.Time), "20261120" + tools::TimeText(time));
        const std::string shown =
            tools::ShownText({news.Title, std::find(news.Title, std::end(news.Title), '\0')});
        EXPECT_EQ(shown.find('\\'), std::string::npos) << "half a syllable: " << shown;
        EXPECT_NE(shown.find(Trimmed(news.Code)), std::string::npos) << shown;
        m_Categories.insert(news.Category[0]);
    }

    void CheckEnd() const {
        for (const auto& [code, stock] : m_Stocks) {
            EXPECT_TRUE(stock.Minutes.empty()) << "a minute without its bar";
        }
        for (const auto& [code, index] : m_Indices) {
            int64_t volume = 0;
            for (const auto& [time, bar] : index.Bars) {
                volume += bar.second;
                EXPECT_EQ(std::pair(bar.first, volume), std::prev(index.ByTime.upper_bound(time))->second)
                    << time;
            }
            EXPECT_EQ(volume, index.Day.Volume);
        }
        EXPECT_LT(m_Indices.at("MAIN").Day.Volume, m_nVolume);
        EXPECT_EQ(m_Categories, (std::set<char>{'1', '2', '3', '9'}));
    }

    std::map<std::string, int> Seen;

private:
    struct Bar {
        int64_t Open = 0, High = 0, Low = 0, Close = 0, Volume = 0;

        void Take(int64_t price, int64_t volume) {
            Open = Open == 0 ? price : Open;
            High = std::max(High, price);
            Low = Low == 0 ? price : std::min(Low, price);
            Close = price;
            Volume += volume;
        }
        bool operator==(const Bar&) const = default;
    };
    struct Stock {
        int32_t Base = 0;
        int64_t Count = 0, Value = 0;
        Bar Day;
        std::map<std::string, Bar> Minutes;
        std::map<std::string, int64_t> Brokers[2];
    };
    struct Index {
        int64_t Base = 0, Value = 0;
        Bar Day;
        std::map<std::string, std::pair<int32_t, int64_t>> ByTime, Bars;  // value; total, or of the bar
    };

    std::map<std::string, Stock> m_Stocks;
    std::map<std::string, Index> m_Indices;
    std::set<char> m_Categories;  // by their first digit, which selects a screen's headlines
    TradePacket m_Latest{};
    int64_t m_nVolume = 0, m_nValue = 0;
};

class Session : public testing::Test {
protected:
    // Gives the session's file; each takes the place of the former one.
    std::string Generate(const std::string& options) const {
        std::string path = m_Folder.Path("session.pcap");
        EXPECT_EQ(RunTool("feedgen", "--output " + path + " " + options).Status, 0);
        return path;
    }
    template <class Take>
    void Each(const std::string& options, Take take) const {
        tools::CaptureReader capture(Generate(options));
        for (tools::CaptureRecord record; capture.Next(record) && !HasFailure();) {
            take(record);
        }
    }

    const ScratchFolder m_Folder;
};

TEST_F(Session, StreamsOfAWholeDayAgree) {
    MarketAudit market;
    int packets = 0, inBatch = 0;
    Timestamp last = tools::ParseDate("20261120") + std::chrono::hours(9);
    const Timestamp close = last + std::chrono::hours(7);
    Each("--packets 30000 --stocks 12 --brokers 20 --news 5", [&](const tools::CaptureRecord& record) {
        EXPECT_GE(record.Time, std::exchange(last, record.Time));
        if (record.EndsBatch()) {
            EXPECT_TRUE(inBatch >= 1 && inBatch <= 80) << inBatch;
            inBatch = 0;
            return;
        }
        ++inBatch;
        packets += record.Bytes[0] == TradePacket::kType || record.Bytes[0] == NavPacket::kType ? 1 : 0;
        market.TakeAny<TradePacket, CompactTradePacket, BarPacket, IndexPacket, IndexBarPacket, BookPacket,
                       BrokerPacket, NewsPacket>(record);
    });
    market.CheckEnd();
    EXPECT_EQ(inBatch, 0);
    EXPECT_EQ(packets, 30000);
    EXPECT_EQ(market.Seen["compact due"], 0);
    EXPECT_TRUE(last > close - minutes(1) && last < close + seconds(4));
    for (const char* kind : {"bars", "books", "summaries"}) {
        EXPECT_GT(market.Seen[kind], 1000) << kind;
    }
}

TEST_F(Session, TheSameOptionsGiveTheSameBytes) {
    const auto generate = [this](const std::string& options) {
        return ReadFile(Generate("--minutes 2 " + options));
    };
    const std::string session = generate("--seed 7");
    EXPECT_EQ(session, generate("--seed 7 --master " + m_Folder.Path("master")));
    EXPECT_EQ(ReadFile(m_Folder.Path("master")), ReadFile(SOURCE_DIR "/terminal/samples/sample.master"));
    EXPECT_NE(session, generate("--seed 8"));
    // A name of standard output is written through; no other file takes its place.
    const std::string piped = m_Folder.Write("piped", "before ");
    std::filesystem::create_symlink("/proc/self/fd/1", m_Folder.Path("out"));
    EXPECT_EQ(
        RunTool("feedgen", "--minutes 2 --seed 7 --output " + m_Folder.Path("out") + " >>" + piped).Text, "");
    EXPECT_EQ("before " + session, ReadFile(piped));

    // Another clock moves the records' times only.
    tools::CaptureReader here(m_Folder.Write("here", session));
    tools::CaptureRecord a;
    Each("--minutes 2 --seed 7 --utc-offset +07:30", [&](const tools::CaptureRecord& b) {
        ASSERT_TRUE(here.Next(a));
        ASSERT_EQ(a.Time - b.Time, minutes(450));
        ASSERT_EQ(Bytes(a), Bytes(b));
    });
    EXPECT_FALSE(here.Next(a));
}

// A stream of its own leaves the others alone, and bars that fail leave the rest of them.
TEST_F(Session, OptionsChangeTheirOwnStreamOnly) {
    constexpr std::size_t kMarketPackets = 20UL * 30 * 8;  // of a minute and stock
    struct Streams {
        std::string Others;  // with times
        std::map<std::string, std::vector<Timestamp>> Own;
        std::size_t Count = 0;  // of own packets
    };
    const auto read = [this](const std::string& types, const std::string& options) {
        Streams streams;
        Each("--minutes 30 --seed 5 --stocks 8 " + options, [&](const tools::CaptureRecord& record) {
            const char type = record.EndsBatch() ? ' ' : record.Bytes[0];
            if (types.find(type) != std::string::npos) {
                streams.Own[Bytes(record)].push_back(record.Time);
                ++streams.Count;
            } else if (type != ' ') {
                streams.Others += tools::ClockText(record.Time) + Bytes(record);
            }
        });
        return streams;
    };
    const std::map<std::string, std::string> typesOf = {{"--books ", "B"},  {"--compact ", "R"},
                                                        {"--orders ", "0"}, {"--brokers ", "C"},
                                                        {"--news ", "T"},   {"--others ", "M@"}};
    for (const auto& [option, types] : typesOf) {
        const Streams none = read(types, option + "0");
        const Streams all = read(types, option + "100");
        EXPECT_EQ(none.Count, 0U) << option;
        EXPECT_GE(all.Count, kMarketPackets * 91 / 100) << option;
        EXPECT_TRUE(all.Others == none.Others) << option;
    }
    const Streams usual = read("DF", "");
    const Streams faulty = read("DF", "--late-bars 20 --missing-bars 30");
    EXPECT_TRUE(usual.Others == faulty.Others);
    double late = 0;
    for (const auto& [bar, times] : faulty.Own) {
        ASSERT_TRUE(usual.Own.contains(bar));
        const auto delay = times.front() - usual.Own.at(bar).front();
        EXPECT_TRUE(delay == seconds(0) || (delay >= seconds(7) && delay <= seconds(90)));
        late += delay > seconds(0) ? 1 : 0;
    }
    const auto came = static_cast<double>(faulty.Own.size());
    EXPECT_NEAR(came / static_cast<double>(usual.Own.size()), 0.7, 0.1);
    EXPECT_NEAR(late / came, 0.2, 0.1);
}

}  // namespace
