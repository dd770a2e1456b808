// The module against its plain form: every screen but charts and orders, asked and fed with figures and texts
// at random, some of them at the limits of their fields.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <map>
#include <span>

#include "host/tickhost.h"
#include "layouts/RITRDE01.h"
#include "layouts/RSTRDE01.h"
#include "tests/plain/both_forms.h"
#include "tests/support/inquiries.h"
#include "tests/support/market.h"
#include "tests/support/scratch_folder.h"

namespace {

constexpr const char* kMaps[] = {"RDUMMY01_R", "RINTIK01_R", "RINTIK11_R", "RITRDE01_R", "RITRDE02_R",
                                 "RRNEWS01_R", "RRPASS01_R", "RSBRSM01_R", "RSDONE01_R", "RSETFNAV_R",
                                 "RSFLDN01_R", "RSITST01_R", "RSODER01_R", "RSTICK11_R", "RSTRBK01_R",
                                 "RSTRDE01_R", "RSFLDN01_R"};
constexpr std::size_t kKeyEnd = 12;  // of a packet

class Figures : private Market {
public:
    using Market::Market;

    Steps Session() {
        Steps steps;
        for (std::size_t i = 0; i < std::size(kMaps); ++i) {
            steps.push_back({Step::Open, i, kMaps[i]});
            steps.push_back({Step::Init, i, Inquiry(kMaps[i])});
        }
        for (int left = 1500; left > 0; --left) {
            std::string packet = Packet();
            for (std::size_t spoilt = Below(6); spoilt > 0; --spoilt) {
                packet = Spoilt(packet, *this, kKeyEnd);
            }
            steps.push_back({Step::Packet, 0, packet});
            if (Chance(30)) {
                steps.push_back({Step::EndBatch, 0, ""});
            }
            if (Chance(5)) {
                const std::size_t screen = Below(std::size(kMaps));
                const Step::What what = Chance(30) ? Step::Stop : Step::Release;
                steps.push_back({Chance(70) ? Step::Init : what, screen, Inquiry(kMaps[screen])});
            }
        }
        return steps;
    }

private:
    std::size_t Below(std::size_t limit) {
        return static_cast<std::size_t>(Random::Below(static_cast<int64_t>(limit)));
    }
    template <class... Texts>
    std::string OneOf(const Texts&... texts) {
        const std::string all[] = {texts...};
        return Dice::OneOf(all);
    }
    std::string Stock() { return Left(OneOf("1ASII", "1ASII", "1BBBB", "2ASII", "4TEN CHARS!", ""), 11); }
    std::string Index() { return OneOf("COMP", "COMP", "MAIN", "0001", "    "); }

    // Mostly a fair number, else whatever may stand in one.
    std::string Digits(std::size_t width) {
        constexpr char kLetters[] = "0123456789 0123456789 -+.12345678x";
        const bool fair = Chance(80);
        std::string text;
        for (std::size_t left = fair ? std::min(width, Below(7)) : width; left > 0; --left) {
            text += kLetters[Below(fair ? 10 : sizeof(kLetters) - 1)];
        }
        return Right(text, width);
    }
    std::string Numbers(std::size_t width) {
        return width <= 12 ? Digits(width) : Digits(12) + Numbers(width - 12);
    }
    std::string NumberRows(std::size_t rows, std::size_t size) {
        return Block(std::to_string(rows), std::to_string(size), Numbers(rows * size));
    }

    std::string Items(std::size_t count) {
        const std::string key = OneOf(Stock(), Left(Index(), 11), Left("", 11));
        const std::string item = OneOf("1", "1", "A", "N", "M", "@", "/", "x") + key;
        return count == 0 ? "" : item + OneOf("1111....", "1...1111", "01 10000") + Items(count - 1);
    }
    std::string Range(std::span<const PanelField> table, int digits) {
        const auto last = static_cast<int>(table.size() - 1);
        const int from = Chance(50) ? 0 : static_cast<int>(Below(table.size()));
        const int to = Chance(50) ? last : static_cast<int>(Below(table.size()));
        char numbers[8];
        snprintf(numbers, sizeof(numbers), "%0*d%0*d", digits, from, digits, to);
        return numbers + Numbers(static_cast<std::size_t>(WidthOf(table, from, std::max(from, to + 1))));
    }
    std::string Board(const std::string& map) {
        Rows rows;
        for (std::size_t left = Chance(95) ? 1 + Below(3) * 60 : 0; left > 0; --left) {
            rows.push_back(map == "RITRDE02_R"
                               ? Numbers(130) + Index()
                               : OneOf("1", "1", "2", "3", " ") + Stock().substr(1) + Numbers(167));
        }
        return BlockOf(rows, map == "RITRDE02_R" ? "134" : "178");
    }

    // One in thirty is cut short, or a byte too long.
    std::string Inquiry(const std::string& map) {
        const std::size_t items = 1 + Below(9);
        const std::size_t one = Chance(70) ? 1 : 0;
        const std::string head = Numbers(sizeof(DisplayHead));
        const std::string board = map == "RITRDE02_R" || map == "RSITST01_R" ? Board(map) : "";
        const std::string range = map == "RITRDE01_R" ? Range(kIndexPanel, 2) : Range(kStockPanel, 3);
        const std::map<std::string, std::string> texts = {
            {"RDUMMY01_R", "D1" + Block(std::to_string(items), "", Items(items))},
            {"RINTIK01_R", "I1" + Index() + Digits(7) + Digits(15) + Digits(8)},
            {"RINTIK11_R", "J1" + Index() + Digits(6) + OneOf("A", "H", "I") + head + NumberRows(one, 44)},
            {"RITRDE01_R", "Q1" + Left(Index(), 11) + range},
            {"RITRDE02_R", "X1" + board},
            {"RRNEWS01_R", "N1" + Left("", 20) + OneOf("0", "0", "1", "2", "9", "5", " ") + " "},
            {"RRPASS01_R", Right(std::to_string(items), 4) + Items(items)},
            {"RSBRSM01_R", "B1" + Stock()},
            {"RSDONE01_R", "F1" + Stock() + OneOf(Digits(12), Left("", 12)) + NumberRows(one, 79)},
            {"RSETFNAV_R", "E1" + Stock() + Digits(17) + Digits(22) + Digits(22)},
            {"RSFLDN01_R", "M1unread.."},
            {"RSITST01_R", "S1  7" + board},
            {"RSODER01_R", "O1" + Left(Stock(), 19) + NumberRows(11, 108)},
            {"RSTICK11_R", "T1" + Stock() + head + NumberRows(one, 38)},
            {"RSTRBK01_R", "V1" + Left(Stock(), 19) + NumberRows(Below(3), 62)},
            {"RSTRDE01_R", "P1" + Stock() + range}};
        const std::string& text = texts.at(map);
        return Chance(97) ? text : OneOf(text + "x", text.substr(0, Below(text.size())));
    }

    std::string Packet() {
        const auto price = [this] {
            const int64_t step = Chance(50) ? 2 : 50;  // many of them the same
            return static_cast<int32_t>(Between(1000 - step, 1000 + step));
        };
        const auto sign = static_cast<char>('0' + Below(10));
        const auto few = Number(int64_t{50});
        Trade trade(Stock());
        trade.Price(price()).Volume(few - 5).Change(sign, few).Best(price(), price());
        trade.Day(price(), price(), price())
            .Brokers(OneOf("D", "F", "x")[0], OneOf("D", "F", "x")[0], "AB", OneOf("WXYZ", "CC", "DD"));
        Book book(Stock());
        book.Base(price()).Side1(price(), few, price()).Level(1, price(), few, price(), price());
        IndexUpdate index(Index());
        index.Index(price() * 10000 + few).Change(sign, few * 1000).Day(price(), price(), price());
        News news(OneOf("1x", "20", "21", "27", "9a", "3b"), OneOf("  Title", "", std::string(80, 'T')));
        news.Code(OneOf("", "ASII"));
        Nav nav(Stock());
        nav.Kind(OneOf("0", "1", "2")).Value1(Digits(22)).Value2(Digits(22));
        return OneOf(trade.Bytes(), trade.Bytes(), book.Bytes(), index.Bytes(), index.Bytes(), news.Bytes(),
                     nav.Bytes(), Brokers(Stock(), "091500").Bytes(), Accepted("1", 5).Bytes(),
                     CompactTrade(Stock()).Volume(few - 5).Bytes(), Coded<MarketPacket>(Index()).Bytes(),
                     Coded<SpecialPacket>(Stock()).Bytes());
    }
};

// The user's files, and what the terminal knows.
void MakeSettings(const ScratchFolder& folder, uint64_t seed) {
    folder.Write("TradeMonEnv.ini",
                 "[TRADE_MONITOR]\nALL=" + std::to_string(seed % 3) +
                     (seed / 3 % 2 == 0 ? "\n" : "\nPRICE=1\nCHANGE%=1\nVOLUME=1\n") +
                     "[PRICE]\nFROM=960\nTO=1040\n[CHANGE%]\nFROM=-3\nTO=2.5\n[VOLUME]\nFROM=3\n"
                     "[FAVOURITES]\nSELECTEDGROUP=012,007,099\n");
    folder.Write("Interest.ini",
                 "[GROUP007]\nITEM001=1TEN CHARS!Last\nITEM002=1ASII      A\n"
                 "[GROUP012]\nITEM001=2ASII      B\nITEM002=1BBBB      C\n");
    std::string alarms = "[ALL_FOCUS_GROUP]\nALARMSOUND=" + std::to_string(seed % 2) + "\n";
    for (int row = 1; row < 60; ++row) {
        const bool prices = row % 3 == 0;
        char text[200];
        snprintf(text, sizeof(text),
                 "[ALARM  7-%03d]\nBasis price=1000\nprice=%d\ncomparison=%d\ndecreased price=%s\n%s%s", row,
                 row % 3, row / 3 % 4, prices ? "1020" : "2",
                 prices         ? "increased price=980\n"
                 : row % 2 == 0 ? "increased price=-2.5\n"
                                : "",
                 row % 5 == 0 ? "Volume=500\n" : "");
        alarms += text;
    }
    folder.Write("InterestAlarm.ini", alarms);
    const char* const stocks[] = {"ASII", "BBBB", "TEN CHARS!"};
    const char* const brokers[] = {"AB", "WXYZ", "CC"};
    const char* const marks[] = {"0x", "1", "2"};
    tickhost_set_text("UserDir", folder.Path("").c_str());
    tickhost_set_text("UserID", kUser);
    tickhost_set_industry(1, 2, stocks, stocks);
    tickhost_set_tobrin_account(seed % 2 == 0 ? 1 : 0);
    tickhost_set_master(0, 3, stocks, stocks, stocks);
    tickhost_set_master(3, 3, brokers, brokers, marks);
}

TEST(Figures, AtRandom) {
    const ScratchFolder folder;
    for (uint64_t seed = 1; seed <= 30; ++seed) {
        const auto prepare = [&] { MakeSettings(folder, seed); };
        ASSERT_GT(ExpectSame(Figures(seed).Session(), prepare), 500U) << "seed " << seed;
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

}  // namespace
