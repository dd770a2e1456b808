// Charts: how candles are drawn, and whether a replay's candles are those of the feed.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "framework/packets.h"
#include "tests/tools/tool_runs.h"
#include "tools/capture.h"
#include "tools/screens/candle_chart.h"
#include "tools/text.h"

namespace {

using tools::ChartText;

TEST(CandleChart, DrawsBodiesRangesScaleAndTimes) {
    EXPECT_EQ(ChartText({{"090100", 1000, 1015, 995, 1010},
                         {"090200", 1010, 1012, 1000, 1000},
                         {"090300", 1000, 1003, 1000, 1000},
                         {"090317", 1000, 1020, 1000, 1020}},
                        0),
              "  1020 |   o\n"
              "  1015 ||  o\n"
              "  1010 |o# o\n"
              "  1005 |o#|o\n"
              "  1000 |o#-o\n"
              "   995 ||\n"
              "       +----\n"
              "        09:01:00\n");
    EXPECT_EQ(ChartText({}, 0), "");
    EXPECT_EQ(ChartText({{"090100", 7, 7, 7, 7}}, 0), "  7 |-\n    +-\n     09:01:00\n");
    EXPECT_EQ(ChartText({{"\x1B"
                          "90100",
                          -5, -5, -5, -5}},
                        0),
              "  -5 |-\n     +-\n      \\x1b9:01:00\n");
}

// An index closes where its latest update stands, which may lie outside of the bar's range.
TEST(CandleChart, DecimalsAndAColumnForEachTime) {
    std::vector<tools::Candle> candles(11, {"090100", 7000'000, 7000'000, 7000'000, 7000'000});
    candles[10] = {"091100", 7000'000, 7000'000, 7000'000, 6999'998};
    EXPECT_EQ(ChartText(candles, 3),
              "  7000.000 |----------#\n"
              "  6999.999 |          #\n"
              "  6999.998 |          #\n"
              "           +-----------\n"
              "            09:01:00  09:11:00\n");
    candles[0].High = 999'999'999'999;
    candles[1].Low = -99'999'999'999;
    const std::string text = ChartText(candles, 3);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 14) << text;
}

class ChartReplay : public testing::Test {
protected:
    using Candle = std::vector<std::string>;  // time, open, high, low, close, volume

    // What the charts' tables hold, chart by chart.
    std::vector<std::vector<Candle>> Replay(const std::string& workspace) const {
        const Outcome outcome =
            RunTool("tickreplay", "--rows 1000 " + m_Folder.File("charts", workspace) + " " + m_Capture);
        EXPECT_EQ(outcome.Status, 0) << outcome.Text;
        std::vector<std::vector<Candle>> charts;
        std::istringstream lines(outcome.Text);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string date;
            Candle candle(6);
            words >> date;
            std::for_each(candle.begin(), candle.end(), [&words](std::string& word) { words >> word; });
            if (date == "Date") {
                charts.emplace_back();
            } else if (date == "20261120") {
                charts.back().push_back(candle);
            }
        }
        return charts;
    }

    // Calls `take` for each packet of a type with a key.
    template <class Packet, class Take>
    void Each(const std::string& key, Take take) const {
        tools::CaptureReader capture(m_Capture);
        tools::CaptureRecord record;
        while (capture.Next(record)) {
            if (!record.EndsBatch() && record.Bytes[0] == Packet::kType &&
                std::string_view(record.Bytes + 1, key.size()) == key) {
                take(*reinterpret_cast<const Packet*>(record.Bytes + 1));
            }
        }
    }

    const ScratchFolder m_Folder;
    const std::string m_Capture = m_Folder.Path("c.pcap");
    const Outcome m_Made = RunTool("feedgen", "--minutes 30 --output " + m_Capture);
};

TEST_F(ChartReplay, CandlesAreTheBars) {
    struct Bar {
        int32_t Open;
        int32_t High;
        int32_t Low;
        int32_t Close;
        int32_t Volume;
    };
    std::vector<Candle> minutes;
    std::vector<Candle> threes;
    const auto candle = [](const std::string& time, const Bar& bar) {
        return Candle{time,
                      std::to_string(bar.Open),
                      std::to_string(bar.High),
                      std::to_string(bar.Low),
                      std::to_string(bar.Close),
                      std::to_string(bar.Volume)};
    };
    Bar three{};
    Each<BarPacket>("1ASII ", [&](const BarPacket& bar) {
        const std::string time(bar.Time, sizeof(bar.Time));
        minutes.push_back(candle(time, {bar.Open, bar.High, bar.Low, bar.Close, bar.Volume}));
        if (minutes.size() % 3 == 1) {
            three = {bar.Open, bar.High, bar.Low, 0, 0};
        }
        three.High = std::max<int32_t>(three.High, bar.High);
        three.Low = std::min<int32_t>(three.Low, bar.Low);
        three.Close = bar.Close;
        three.Volume += bar.Volume;
        if (minutes.size() % 3 == 0) {
            threes.push_back(candle(time, three));
        }
    });
    std::vector<Candle> values;
    Each<IndexBarPacket>("COMP", [&](const IndexBarPacket& bar) {
        char value[16];
        std::snprintf(value, sizeof(value), "%.3f", bar.Index / kIndexScale);
        values.push_back(
            {std::string(bar.Time, sizeof(bar.Time)), value, value, value, std::to_string(bar.Volume)});
    });
    ASSERT_EQ(minutes.size(), 30U);
    ASSERT_EQ(values.size(), 30U);

    auto charts =
        Replay("RSCAND11_R 1ASII\nRSCAND11_R 1ASII Period=E\nRICAND11_R COMP\nRSCAND11_R 1ASII Period=A\n");
    ASSERT_EQ(charts.size(), 4U);
    EXPECT_EQ(charts[0], minutes);
    EXPECT_EQ(charts[1], threes);
    for (Candle& sent : charts[2]) {
        sent.erase(sent.begin() + 4);  // the close is the latest update's
    }
    EXPECT_EQ(charts[2], values);
    int ticks = 0;
    Each<TradePacket>("1ASII ", [&ticks](const TradePacket& trade) { ticks += trade.Volume == 0 ? 0 : 1; });
    EXPECT_EQ(charts[3].size(), static_cast<std::size_t>(std::min(ticks, 1000)));
}

}  // namespace
