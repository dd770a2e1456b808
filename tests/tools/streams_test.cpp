// Streams that come on top of the market: do they leave the rest alone, and do broker summaries and headlines
// hold what they should?
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/tools/sessions.h"
#include "tools/code_page.h"
#include "tools/text.h"

namespace {

template <std::size_t N>
std::string Trimmed(const char (&field)[N]) {
    return std::string(tools::Trim({field, N}));
}

using Streams = FeedSession;

TEST_F(Streams, LeaveTheOthersAsTheyAre) {
    struct Session {
        std::string Others;  // with times and batch ends
        std::size_t Own = 0;
        std::size_t Market = 0;
    };
    const auto read = [this](const std::string& types, const std::string& options) {
        Session session;
        Each("--minutes 10 --seed 5 " + options, [&](const tools::CaptureRecord& record) {
            const char type = record.EndsBatch() ? ' ' : record.Bytes[0];
            session.Market += type == TradePacket::kType || type == NavPacket::kType ? 1 : 0;
            if (types.find(type) != std::string::npos) {
                ++session.Own;
                return;
            }
            session.Others += tools::ClockText(record.Time);
            session.Others.append(record.Bytes, static_cast<std::size_t>(record.Length));
        });
        return session;
    };
    const struct {
        const char* Option;
        const char* Types;
        const char* Default;
    } streams[] = {{"--books ", "B", "20"},  {"--compact ", "R", "100"}, {"--orders ", "0", "3"},
                   {"--brokers ", "C", "3"}, {"--news ", "T", "1"},      {"--others ", "M@", "1"}};
    for (const auto& [option, types, usual] : streams) {
        const Session none = read(types, option + std::string("0"));
        const Session all = read(types, option + std::string("100"));
        EXPECT_EQ(none.Own, 0U) << option;
        EXPECT_GE(all.Own, all.Market * 91 / 100) << option;
        EXPECT_TRUE(all.Others == none.Others) << option;
        EXPECT_EQ(read(types, "").Own, read(types, option + std::string(usual)).Own) << option;
    }
}

// Each summary against sums over the trades before it.
TEST_F(Streams, BrokerSummariesAddUpTheTrades) {
    using Totals = std::map<std::string, int64_t>;
    std::map<std::string, std::pair<Totals, Totals>> stocks;
    int full = 0;
    int shorter = 0;
    const auto check = [&](const Totals& totals,
                           const std::vector<std::pair<std::string, std::string>>& rows) {
        std::multiset<int64_t, std::greater<>> sums;
        for (const auto& [broker, sum] : totals) {
            sums.insert(sum);
        }
        auto expected = sums.begin();
        for (const auto& [broker, quantity] : rows) {
            if (expected == sums.end()) {
                EXPECT_EQ(broker + quantity, "");
                ++shorter;
                continue;
            }
            EXPECT_EQ(quantity.size(), sizeof(BrokerRow::Qty1));
            EXPECT_EQ(std::stoll(quantity), totals.at(broker));
            EXPECT_EQ(totals.at(broker), *expected++);
        }
        full += expected == sums.end() ? 0 : 1;
    };
    Each("--packets 4000 --brokers 30", [&](const tools::CaptureRecord& record) {
        if (const auto* trade = As<TradePacket>(record); trade != nullptr && trade->Volume != 0) {
            auto& [first, second] = stocks[Text(trade->Key.Code)];
            first[Trimmed(trade->Broker1)] += trade->Volume;
            second[Trimmed(trade->Broker2)] += trade->Volume;
        } else if (const auto* summary = As<BrokerPacket>(record)) {
            EXPECT_EQ(Text(summary->Time), tools::TimeText(record.Time));
            std::vector<std::pair<std::string, std::string>> sides[2];
            for (const BrokerRow& row : summary->Rows) {
                sides[0].emplace_back(Trimmed(row.Broker1), Trimmed(row.Qty1));
                sides[1].emplace_back(Trimmed(row.Broker2), Trimmed(row.Qty2));
            }
            const auto& [first, second] = stocks[Text(summary->Key.Code)];
            check(first, sides[0]);
            check(second, sides[1]);
        }
    });
    EXPECT_GT(full, 500);
    EXPECT_GT(shorter, 100);
}

TEST_F(Streams, HeadlinesOfAllDesks) {
    std::set<std::string> categories;
    std::map<std::string, int> seen;
    Each("--packets 3000 --news 40", [&](const tools::CaptureRecord& record) {
        if (As<NewsPacket>(record) == nullptr) {
            return;
        }
        const NewsPacket& news = *As<NewsPacket>(record);
        EXPECT_EQ(Trimmed(news.Date) + Trimmed(news.Time), "20261120" + tools::TimeText(record.Time));
        EXPECT_EQ(std::string(news.RelatedCount(), NewsPacket::kRelatedCountWidth), "00");
        const std::string title(news.Title, std::find(news.Title, std::end(news.Title), '\0'));
        EXPECT_LE(title.size(), 77U);
        const std::string shown = tools::ShownText(title);
        EXPECT_EQ(shown.find('\\'), std::string::npos) << shown;
        categories.insert(Trimmed(news.Category));
        ++seen["all"];
        seen["Korean"] += shown.size() > title.size() ? 1 : 0;
        if (!Trimmed(news.Code).empty()) {
            ++seen["stock"];
            EXPECT_NE(shown.find(Trimmed(news.Code)), std::string::npos) << shown;
        }
    });
    EXPECT_EQ(categories, (std::set<std::string>{"10", "11", "12", "20", "21", "22", "23", "24", "25", "26",
                                                 "27", "30", "90", "91"}));
    EXPECT_NEAR(seen["all"], 1200, 100);
    for (const char* kind : {"Korean", "stock"}) {
        EXPECT_TRUE(seen[kind] > 20 && seen[kind] < 600) << kind << " " << seen[kind];
    }
}

}  // namespace
