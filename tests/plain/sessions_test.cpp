// The module against its plain form: a generated session through every map, the same with broken packets, and
// order notices at random.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "layouts/RICAND11.h"
#include "layouts/RSCAND11.h"
#include "tests/plain/both_forms.h"
#include "tests/support/market.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/workspace.h"
#include "tools/feed.h"

namespace {

using Screens = std::vector<ScreenToOpen>;

// Each period of the stock or the index, on a newest candle that may be finished, of another day, or missing.
template <class Row>
void AddCharts(const std::string& map, const std::string& key, Dice& dice, Screens& screens) {
    for (const char period : std::string("ABCEGHIJKLABCEGHIJKL")) {
        CandleInquiry init(key, period);
        init.Figures(dice.Digits(0, 2000), dice.Digits(0, 100000));
        if (dice.Chance(70)) {
            const std::string date = dice.Chance(70) ? "20261120" : "20261119";
            const char* const time =
                dice.OneOf({"090000", "090130", "090300", "085930", "093000", "100000", "200030"});
            init.Row(
                RowOf<Row>({date, time, dice.Digits(900, 1100), dice.Chance(80) ? dice.Digits(900, 1100) : "",
                            dice.Digits(900, 1100), "1000", dice.Digits(0, 100000)}));
        }
        screens.push_back({map, init});
    }
}

Rows OrderRows(Dice& dice) {
    const char* const words[] = {"Open",
                                 "Partial",
                                 "Done",
                                 "Sending",
                                 "Withdrawing",
                                 "Amended",
                                 "Reject",
                                 "",
                                 kAcceptedWord,
                                 kAmendUnconfirmedWord,
                                 kCancelUnconfirmedWord,
                                 kAmendConfirmedWord,
                                 kCancelConfirmedWord,
                                 kBeingFilledWord,
                                 kBeingSentWord,
                                 kAcceptanceRefusedWord};
    Rows rows;
    for (int64_t left = dice.Below(6); left > 0; --left) {
        ExpectedRow row(RandomOrder(dice));
        row.Ordered(dice.Digits(0, 9)).Open(dice.Digits(0, 9)).Status(dice.OneOf(words));
        if (dice.Chance(50)) {
            row.Filled(dice.Digits(0, 9), dice.Digits(900, 1100));
        }
        rows.push_back(row);
    }
    return rows;
}

void AddOrderLists(Dice& dice, Screens& screens) {
    for (int i = 0; i < 3; ++i) {
        screens.push_back({"RSNOCH21_R", OrdersInquiry(OrderRows(dice))});
        screens.push_back({"RSORDE21_R", OrdersInquiry(OrderRows(dice))});
    }
    for (int i = 0; i < 20; ++i) {
        FilteredInquiry init;
        init.Group(dice.OneOf({"", "", "GROUP01", "GROUP02"}))
            .Code(dice.OneOf({"", "All x", "ALL ", "ASII"}));
        init.Status(static_cast<char>('0' + i % 5)).Side(dice.OneOf({'2', '2', ' ', '0', '1'}));
        init.Board(dice.OneOf({"", "All", "RG", "NG", "TN"}));
        for (const std::string& row : OrderRows(dice)) {
            init.With(row);
        }
        screens.push_back({"RSORDE22_R", init});
    }
}

// ------------------------------------------------------------------ sessions

Steps Opened(const Screens& screens) {
    Steps steps;
    for (std::size_t i = 0; i < screens.size(); ++i) {
        steps.push_back({Step::Open, i, screens[i].Map});
        steps.push_back({Step::Init, i, screens[i].Init});
    }
    return steps;
}

// Now and then a screen asks anew, or for what another one had, stops, or ends.
void TroubleScreen(const Screens& screens, Dice& dice, Steps& steps) {
    const auto screen = static_cast<std::size_t>(dice.Below(static_cast<int64_t>(screens.size())));
    const auto other = static_cast<std::size_t>(dice.Below(static_cast<int64_t>(screens.size())));
    const Step::What what = dice.OneOf({Step::Init, Step::Init, Step::Stop, Step::Release});
    const bool ofOther = screens[screen].Map == screens[other].Map;
    steps.push_back({what, screen, screens[ofOther ? other : screen].Init});
    if (what != Step::Init && dice.Chance(80)) {
        steps.push_back({Step::Init, screen, screens[screen].Init});
    }
}

// In tenths of a second, so that it meets the charts' throttle exactly; it wraps on the way.
uint32_t TickCount(tools::Timestamp time) {
    const auto morning = tools::ParseDate("20261120") + tools::kSessionOpen + std::chrono::minutes(20);
    return static_cast<uint32_t>((time - morning) / std::chrono::milliseconds(100) * 100);
}

Steps GeneratedSession(const Screens& screens, int broken) {
    const ScratchFolder folder;
    tools::FeedOptions options;
    options.Packets = 3000;
    options.Minutes = 40;
    options.Orders = 50;
    options.Stocks = 4;
    options.Bars = {10, 10, 10};
    tools::CaptureWriter writer(folder.Path("session.pcap"));
    tools::Feed feed(options, writer);
    while (feed.WriteBatch()) {
    }
    writer.Close();

    Dice dice(5);
    Steps steps = Opened(screens);
    tools::CaptureReader reader(folder.Path("session.pcap"));
    tools::CaptureRecord record{};
    while (reader.Next(record)) {
        steps.push_back({Step::Clock, 0, "", TickCount(record.Time)});
        if (record.EndsBatch()) {
            steps.push_back({Step::EndBatch, 0, ""});
            if (dice.Chance(5)) {
                TroubleScreen(screens, dice, steps);
            }
            continue;
        }
        const std::string packet(record.Bytes, static_cast<std::size_t>(record.Length));
        steps.push_back({Step::Packet, 0, dice.Chance(broken) ? Spoilt(packet, dice) : packet});
    }
    return steps;
}

std::function<void()> LoggedIn(const std::string& user) {
    return [user] {
        tickhost_set_text("UserID", user.c_str());
        tickhost_set_text("MenuGrade", "1");
        const char* const stocks[] = {"ASII"};
        tickhost_set_tobrin_account(1);
        tickhost_set_industry(1, 1, stocks, stocks);
        tickhost_set_master(3, 1, stocks, stocks, stocks);
    };
}

// ------------------------------------------------------------------ the comparison

class Sessions : public testing::Test {
protected:
    Sessions() {
        Dice dice(7);
        AddCharts<StockCandleRow>("RSCAND11_R", "1ASII", dice, m_Screens);
        AddCharts<IndexCandleRow>("RICAND11_R", "COMP", dice, m_Screens);
        AddOrderLists(dice, m_Screens);
        m_Screens.push_back({"RSFLDN01_R", "M1unread.."});
        m_Screens.push_back({"RSITST01_R", InterestInquiry({"ASII"})});
        m_Screens.push_back({"RSODER01_R", BookInquiry("1ASII")});
    }

    Screens m_Screens = ScreensOf(SOURCE_DIR "/tools/samples/sample.workspace");
};

TEST_F(Sessions, AGeneratedDayWholeAndBroken) {
    for (const int broken : {0, 30}) {
        EXPECT_GT(ExpectSame(GeneratedSession(m_Screens, broken), LoggedIn(kUser)), 10000U) << broken;
    }
}

TEST(OrderNotices, AtRandom) {
    for (uint64_t seed = 1; seed <= 20; ++seed) {
        Dice dice(seed);
        const std::string user = seed % 2 == 0 ? "3BRANCH" : kUser;
        Screens screens;
        AddOrderLists(dice, screens);
        Steps steps = Opened(screens);
        for (int left = 400; left > 0; --left) {
            steps.push_back({Step::Packet, 0, RandomNotice(user, dice).Bytes()});
            if (dice.Chance(3)) {
                steps.push_back(steps.back());  // a repeated notice
            }
            if (dice.Chance(30)) {
                steps.push_back({Step::EndBatch, 0, ""});
            }
            if (dice.Chance(1)) {
                TroubleScreen(screens, dice, steps);
            }
        }
        ASSERT_GT(ExpectSame(steps, LoggedIn(user)), 1000U) << "seed " << seed;
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

}  // namespace
