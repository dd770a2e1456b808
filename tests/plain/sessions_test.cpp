// The module against its plain form: a generated session through every map, the same with broken packets, and
// order notices at random.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "layouts/RSNOCH21.h"
#include "layouts/RSORDE22.h"
#include "tests/plain/both_forms.h"
#include "tests/support/orders.h"
#include "tests/support/scratch_folder.h"
#include "tools/feed.h"
#include "tools/screens/screen.h"
#include "tools/workspace.h"

namespace {

using tools::Random;

struct ScreenToOpen {
    std::string Map;
    std::string Init;
};
using Screens = std::vector<ScreenToOpen>;

template <class Item, std::size_t N>
Item OneOf(const Item (&items)[N], Random& dice) {
    return items[dice.Below(N)];
}

std::string Number(int64_t first, int64_t last, Random& dice) {
    return std::to_string(dice.Between(first, last));
}

// Few, so that notices meet.
std::string OrderNumber(Random& dice) {
    return "000000" + Number(1, 9, dice);
}

// ------------------------------------------------------------------ screens

Screens SampleScreens() {
    Screens screens;
    for (const tools::WorkspaceLine& line :
         tools::ReadWorkspace(SOURCE_DIR "/tools/samples/sample.workspace")) {
        const tools::ScreenKind& kind = tools::FindScreenKind(line.Map);
        tools::InitText init = kind.MakeInit(line.Key, {"20261120"});
        for (const auto& [name, value] : line.Fields) {
            init.Set(name, value);
        }
        kind.Complete(init);
        screens.push_back({line.Map, std::string(init.Bytes())});
    }
    return screens;
}

// Each period of the stock or the index, on a newest candle that may be finished, of another day, or missing.
void AddCharts(const std::string& map, const std::string& key, Random& dice, Screens& screens) {
    for (const char period : std::string("ABCEGHIJKLABCEGHIJKL")) {
        const tools::ScreenKind& kind = tools::FindScreenKind(map);
        tools::InitText init = kind.MakeInit(key, {"20261120"});
        init.Set("Period", std::string(1, period));
        init.Set("Head.Price", Number(0, 2000, dice));
        init.Set("Head.Quantity", Number(0, 100000, dice));
        if (dice.Chance(70)) {
            const char* const times[] = {"090000", "090130", "090300", "085930",
                                         "093000", "100000", "200030"};
            init.Set("Row.Date", dice.Chance(70) ? "20261120" : "20261119");
            init.Set("Row.Time", OneOf(times, dice));
            init.Set("Row.Open", Number(900, 1100, dice));
            init.Set("Row.High", dice.Chance(80) ? Number(900, 1100, dice) : "");
            init.Set("Row.Low", Number(900, 1100, dice));
            init.Set("Row.Volume", Number(0, 100000, dice));
        }
        kind.Complete(init);
        screens.push_back({map, std::string(init.Bytes())});
    }
}

std::string OrderRows(Random& dice) {
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
        ExpectedRow row(OrderNumber(dice));
        row.Ordered(Number(0, 9, dice)).Open(Number(0, 9, dice)).Status(OneOf(words, dice));
        if (dice.Chance(50)) {
            row.Filled(Number(0, 9, dice), Number(900, 1100, dice));
        }
        rows.push_back(row);
    }
    return BlockOf(rows, "171");
}

void AddOrderLists(Random& dice, Screens& screens) {
    for (int i = 0; i < 3; ++i) {
        screens.push_back({"RSNOCH21_R", std::string("O1") + kUserField + "0" + OrderRows(dice)});
        screens.push_back({"RSORDE21_R", "O2" + Left(kUserField, 7) + OrderRows(dice)});
    }
    const char* const codes[] = {"", "All x", "ALL ", "ASII"};
    const char* const groups[] = {"", "", "GROUP01", "GROUP02"};
    const char* const boards[] = {"", "All", "RG", "NG", "TN"};
    for (int i = 0; i < 20; ++i) {
        screens.push_back({"RSORDE22_R", "O3" + Left(OneOf(groups, dice), 8) + Left(kUserField, 6) +
                                             Left(OneOf(codes, dice), 12) + std::to_string(i % 5) +
                                             OneOf({'2', '2', ' ', '0', '1'}, dice) +
                                             Left(OneOf(boards, dice), 5) + std::string(32, ' ') +
                                             OrderRows(dice)});
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
void TroubleScreen(const Screens& screens, Random& dice, Steps& steps) {
    const auto screen = static_cast<std::size_t>(dice.Below(static_cast<int64_t>(screens.size())));
    const auto other = static_cast<std::size_t>(dice.Below(static_cast<int64_t>(screens.size())));
    const Step::What what = OneOf({Step::Init, Step::Init, Step::Stop, Step::Release}, dice);
    const bool ofOther = screens[screen].Map == screens[other].Map;
    steps.push_back({what, screen, screens[ofOther ? other : screen].Init});
    if (what != Step::Init && dice.Chance(80)) {
        steps.push_back({Step::Init, screen, screens[screen].Init});
    }
}

// Extreme numbers, and digits, blanks or zero bytes where they don't belong.
void Spoil(std::string& packet, Random& dice) {
    const int32_t number = OneOf({INT32_MAX, INT32_MIN, 0, -1, 100}, dice);
    const char letter = OneOf({'0', '1', '2', '3', '5', '9', ' ', '\0'}, dice);
    const auto place = static_cast<std::size_t>(dice.Between(1, static_cast<int64_t>(packet.size()) - 1));
    if (dice.Chance(50) && place + sizeof(number) <= packet.size()) {
        std::memcpy(&packet[place], &number, sizeof(number));
    } else {
        packet[place] = letter;
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

    Random dice(5);
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
        std::string packet(record.Bytes, static_cast<std::size_t>(record.Length));
        if (dice.Chance(broken)) {
            Spoil(packet, dice);
        }
        steps.push_back({Step::Packet, 0, packet});
    }
    return steps;
}

std::string RandomNotice(const std::string& user, Random& dice) {
    Notice notice(OrderNumber(dice));
    notice.Code(OneOf({'1', '2', '2', '2', '2', '3'}, dice), OneOf({'0', '1', '1', '2', '2', '3'}, dice),
                OneOf({'1', '1', '2', '3', '3', '4', '5'}, dice));
    notice.Result(dice.Chance(85) ? '0' : OneOf({'1', '1', '2'}, dice));
    notice.User(dice.Chance(95) ? user : "SOMEONE").Record(dice.Chance(97) ? "01" : "02");
    notice.Parent(dice.Chance(60) ? OrderNumber(dice) : "").Quantity(dice.Between(0, 6));
    notice.Price(Number(0, 2000, dice)).Side(OneOf({'1', '2', '1', '2', '3'}, dice));
    notice.Time(Number(90000, 160000, dice))
        .Text(Number(0, 9, dice) + (dice.Chance(5) ? std::string(1, 0) : ""));
    const char* const boards[] = {"RG", "RG", "TN", "NG", "ADV", "", "XADVY"};
    const char* const lots[] = {"", "", "100", "00000", "1"};
    const char* const channels[] = {"33", "M1", "M2", "M3", "00", "03", "21", "T1", "??"};
    notice.Board(OneOf(boards, dice)).Lot(OneOf(lots, dice)).Channel(OneOf(channels, dice));
    return notice.Group(dice.Chance(70) ? "GROUP01" : "GROUP02")
        .Item(dice.Chance(80) ? "ASII" : "BCDE")
        .Bytes();
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
        Random dice(7);
        AddCharts("RSCAND11_R", "1ASII", dice, m_Screens);
        AddCharts("RICAND11_R", "COMP", dice, m_Screens);
        AddOrderLists(dice, m_Screens);
        const std::string row = "1" + Left("ASII", 128) + Right("1000", 15) + std::string(34, ' ');
        m_Screens.push_back({"RSFLDN01_R", "M1unread.."});
        m_Screens.push_back({"RSITST01_R", "S1  7" + BlockOf({row}, "178")});
        m_Screens.push_back({"RSODER01_R", "B1" + Left("1ASII", 19) + Block("0", "108")});
    }

    Screens m_Screens = SampleScreens();
};

TEST_F(Sessions, AGeneratedDay) {
    EXPECT_GT(ExpectSame(GeneratedSession(m_Screens, 0), LoggedIn(kUser)), 10000U);
}

TEST_F(Sessions, BrokenPackets) {
    EXPECT_GT(ExpectSame(GeneratedSession(m_Screens, 30), LoggedIn(kUser)), 10000U);
}

TEST(OrderNotices, AtRandom) {
    for (uint64_t seed = 1; seed <= 20; ++seed) {
        Random dice(seed);
        const std::string user = seed % 2 == 0 ? "3BRANCH" : kUser;
        Screens screens;
        AddOrderLists(dice, screens);
        Steps steps = Opened(screens);
        for (int left = 400; left > 0; --left) {
            steps.push_back({Step::Packet, 0, RandomNotice(user, dice)});
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
