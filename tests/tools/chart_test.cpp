// Charts: how candles are drawn, and whether a replay's candles are those of the feed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/sessions.h"
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
}

class ChartReplay : public FeedSession {
protected:
    using Candle = std::vector<std::string>;  // time, open, high, low, close, volume

    // What the charts' tables hold, chart by chart.
    std::vector<std::vector<Candle>> Replay(const std::string& workspace) const {
        const std::string files = m_Folder.Write("charts", workspace) + " " + m_Folder.Path("session.pcap");
        std::istringstream lines(RunTool("tickreplay", "--rows 1000 " + files).Text);
        std::vector<std::vector<Candle>> charts;
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
};

std::string Thousandths(int32_t value) {
    char text[16];
    std::snprintf(text, sizeof(text), "%.3f", value / kIndexScale);
    return text;
}

TEST_F(ChartReplay, CandlesAreTheBars) {
    std::vector<Candle> minutes;
    std::vector<Candle> values;
    std::size_t ticks = 0;
    Each("--minutes 30", [&](const tools::CaptureRecord& record) {
        if (const auto* bar = As<BarPacket>(record); bar != nullptr && Text(bar->Key.Code) == "ASII      ") {
            Candle candle = {Text(bar->Time)};
            for (const int32_t figure : {bar->Open, bar->High, bar->Low, bar->Close, bar->Volume}) {
                candle.push_back(std::to_string(figure));
            }
            minutes.push_back(candle);
        } else if (const auto* value = As<IndexBarPacket>(record);
                   value != nullptr && Text(value->Key.IndexCode) == "COMP") {
            const std::string index = Thousandths(value->Index);
            values.push_back({Text(value->Time), index, index, index, std::to_string(value->Volume)});
        } else if (const auto* trade = As<TradePacket>(record);
                   trade != nullptr && Text(trade->Key.Code) == "ASII      ") {
            ticks += trade->Volume == 0 ? 0 : 1;
        }
    });
    ASSERT_EQ(minutes.size(), 30U);
    auto charts = Replay("RSCAND11_R 1ASII\nRICAND11_R COMP\nRSCAND11_R 1ASII Period=A\n");
    ASSERT_EQ(charts.size(), 3U);
    EXPECT_EQ(charts[0], minutes);
    for (Candle& sent : charts[1]) {
        sent.erase(sent.begin() + 4);  // the close is the latest update's
    }
    EXPECT_EQ(charts[1], values);
    EXPECT_EQ(charts[2].size(), std::min<std::size_t>(ticks, 1000));
}

}  // namespace
