// The module against its plain form: every screen but charts and orders, asked and fed with figures and texts
// at random, some at the limits of their fields.
#include <gtest/gtest.h>

#include <cstring>

#include "host/tickhost.h"
#include "layouts/RITRDE01.h"
#include "layouts/RSTRDE01.h"
#include "tests/plain/both_forms.h"
#include "tests/support/inquiries.h"
#include "tests/support/orders.h"
#include "tests/support/scratch_folder.h"
#include "tools/random.h"

namespace {

class Figures {
public:
    explicit Figures(uint64_t seed) : m_Dice(seed) {}

    Steps Session() {
        Steps steps;
        for (std::size_t i = 0; i < std::size(kMaps); ++i) {
            steps.push_back({Step::Open, i, kMaps[i]});
            steps.push_back({Step::Init, i, Inquiry(kMaps[i])});
        }
        for (int left = 1500; left > 0; --left) {
            steps.push_back({Step::Packet, 0, Packet()});
            if (m_Dice.Chance(30)) {
                steps.push_back({Step::EndBatch, 0, ""});
            }
            if (m_Dice.Chance(5)) {
                const auto screen = static_cast<std::size_t>(m_Dice.Below(std::size(kMaps)));
                const Step::What what = m_Dice.Chance(30) ? Step::Stop : Step::Release;
                steps.push_back({m_Dice.Chance(70) ? Step::Init : what, screen, Inquiry(kMaps[screen])});
            }
        }
        return steps;
    }

private:
    static constexpr const char* kMaps[] = {
        "RDUMMY01_R", "RINTIK01_R", "RINTIK11_R", "RITRDE01_R", "RITRDE02_R", "RRNEWS01_R",
        "RRPASS01_R", "RSBRSM01_R", "RSDONE01_R", "RSETFNAV_R", "RSFLDN01_R", "RSITST01_R",
        "RSODER01_R", "RSTICK11_R", "RSTRBK01_R", "RSTRDE01_R", "RSFLDN01_R"};

    template <class... Texts>
    std::string OneOf(const Texts&... texts) {
        const std::string all[] = {texts...};
        return all[m_Dice.Below(sizeof...(texts))];
    }

    std::string Stock() {
        return Left(OneOf("1ASII", "1ASII", "1BBBB", "2ASII", "4TEN CHARS!", "1FUND01"), 11);
    }
    std::string Index() { return OneOf("COMP", "COMP", "MAIN", "0001", "    "); }

    // A field of what a number is made of, mostly a fair number.
    std::string Noise(std::size_t width) {
        constexpr char kChars[] = "0123456789 0123456789 -+.12345678x";
        const std::size_t figures = std::min<std::size_t>(width, static_cast<std::size_t>(m_Dice.Below(7)));
        std::string text(width - figures, ' ');
        for (std::size_t left = figures; left > 0; --left) {
            text += static_cast<char>('0' + m_Dice.Below(10));
        }
        if (m_Dice.Chance(20)) {
            for (char& letter : text) {
                letter = kChars[m_Dice.Below(sizeof(kChars) - 1)];
            }
        }
        return text;
    }

    // A field of noise behind another.
    std::string Fields(std::size_t width) {
        std::string text;
        while (text.size() < width) {
            text += Noise(std::min<std::size_t>(width - text.size(), 12));
        }
        return text;
    }

    std::string Block(std::size_t rows, std::size_t size) {
        Rows all;
        for (; rows > 0; --rows) {
            all.push_back(Fields(size));
        }
        return BlockOf(all, std::to_string(size));
    }

    std::string Item() {
        return OneOf("1", "1", "A", "N", "M", "@", "/", "x") +
               OneOf(Stock(), Left(Index(), 11), Left("", 11)) + OneOf("1111....", "1...1111", "01 10000");
    }

    std::string Items(int count) {
        std::string text;
        for (; count > 0; --count) {
            text += Item();
        }
        return text;
    }

    template <std::size_t N>
    std::string Panel(const PanelField (&table)[N], std::size_t digits) {
        const int from = m_Dice.Chance(50) ? 0 : static_cast<int>(m_Dice.Below(N));
        const int to = m_Dice.Chance(50) ? static_cast<int>(N - 1) : static_cast<int>(m_Dice.Below(N));
        const auto number = [&](int value) {
            return std::string(digits - std::to_string(value).size(), '0') + std::to_string(value);
        };
        return number(from) + number(to) +
               (from > to ? "" : Fields(static_cast<std::size_t>(WidthOf(table, from, to + 1))));
    }

    std::string Inquiry(const std::string& map) {
        std::string text = InquiryBody(map);
        if (m_Dice.Chance(3)) {
            text.resize(static_cast<std::size_t>(m_Dice.Below(static_cast<int64_t>(text.size()))));
        }
        return m_Dice.Chance(2) ? text + "x" : text;
    }

    std::string InquiryBody(const std::string& map) {
        const auto rows = static_cast<std::size_t>(m_Dice.Below(3));
        const std::size_t one = m_Dice.Chance(70) ? 1 : 0;
        const int items = static_cast<int>(m_Dice.Between(1, 9));
        const std::string head = Fields(sizeof(DisplayHead));
        if (map == "RDUMMY01_R")
            return "D1" + ::Block(std::to_string(items), "", Items(items));
        if (map == "RRPASS01_R")
            return Right(std::to_string(items), 4) + Items(items);
        if (map == "RRNEWS01_R")
            return "N1" + Left("", 20) + OneOf("0", "0", "1", "2", "9", "5", " ") + " ";
        if (map == "RSETFNAV_R")
            return "E1" + Stock() + Noise(17) + Noise(22) + Noise(22);
        if (map == "RSTICK11_R")
            return "T1" + Stock() + head + Block(one, 38);
        if (map == "RINTIK01_R")
            return "I1" + Index() + Noise(7) + Noise(15) + Noise(8);
        if (map == "RINTIK11_R")
            return "J1" + Index() + "      " + OneOf("A", "C", "H", "I") + head + Block(one, 44);
        if (map == "RSDONE01_R")
            return "F1" + Stock() + OneOf(Noise(12), Left("", 12)) + Block(one, 79);
        if (map == "RSBRSM01_R")
            return "B1" + Stock();
        if (map == "RSTRDE01_R")
            return "P1" + Stock() + Panel(kStockPanel, 3);
        if (map == "RITRDE01_R")
            return "Q1" + Left(Index(), 11) + Panel(kIndexPanel, 2);
        if (map == "RSTRBK01_R")
            return "V1" + Stock() + Left("", 8) + Block(rows, 62);
        if (map == "RSODER01_R")
            return "O1" + Left(Stock(), 19) + Block(11, 108);
        Rows board;
        for (std::size_t row = 0; row < 60 * rows + 1; ++row) {
            board.push_back(map == "RITRDE02_R"
                                ? Fields(130) + Index()
                                : OneOf("1", "1", "2", "3", " ") + Stock().substr(1) + Fields(167));
        }
        if (map == "RITRDE02_R")
            return "X1" + BlockOf(board, "134");
        if (map == "RSITST01_R")
            return "S1" + OneOf("  7", "012") + BlockOf(board, "178");
        return "M1unread..";
    }

    std::string Packet() {
        std::string packet = PacketBody();
        for (int64_t left = m_Dice.Below(6); left > 0; --left) {
            const auto place =
                static_cast<std::size_t>(m_Dice.Between(1, static_cast<int64_t>(packet.size()) - 1));
            const int32_t limits[] = {INT32_MAX, INT32_MIN, 0, -1, 100};
            const auto number =
                m_Dice.Chance(20) ? limits[m_Dice.Below(5)] : static_cast<int32_t>(m_Dice.Below(2000));
            if (m_Dice.Chance(60) && place + sizeof(number) <= packet.size() && place > 11) {
                std::memcpy(&packet[place], &number, sizeof(number));
            } else {
                packet[place] = OneOf("1", "2", "3", "5", "9", "0", " ", "F")[0];
            }
        }
        return packet;
    }

    std::string PacketBody() {
        const auto price = [this] { return static_cast<int32_t>(m_Dice.Between(950, 1050)); };
        const auto sign = static_cast<char>('0' + m_Dice.Below(10));
        const auto change = static_cast<int32_t>(m_Dice.Below(50));
        switch (m_Dice.Below(10)) {
            case 0:
                return Book(Stock())
                    .Base(price())
                    .Level(1, price(), price(), price(), price())
                    .Side1(price(), price(), price())
                    .Bytes();
            case 1:
                return Brokers(Stock(), "091500").Bytes();
            case 2:
            case 3:
                return IndexUpdate(Index())
                    .Index(price() * 10000 + change)
                    .Change(sign, change * 1000)
                    .Day(price(), price(), price())
                    .Bytes();
            case 4:
                return CompactTrade(Stock()).Volume(change - 5).Bytes();
            case 5:
                return News(OneOf("1x", "20", "21", "27", "9a", "3b"),
                            OneOf("  Title", "", std::string(80, 'T')))
                    .Code(OneOf("", "ASII"))
                    .Bytes();
            case 6:
                return Nav("1FUND01").Kind(OneOf("0", "1", "2")).Value1(Noise(22)).Value2(Noise(22)).Bytes();
            case 7:
                return m_Dice.Chance(50)   ? Coded<MarketPacket>("COMP ").Bytes()
                       : m_Dice.Chance(50) ? Coded<SpecialPacket>("1ASII").Bytes()
                                           : Accepted("1", 5).Bytes();
            default:
                return Trade(Stock())
                    .Price(price())
                    .Volume(change - 5)
                    .Change(sign, change)
                    .Best(price(), price())
                    .Day(price(), price(), price())
                    .Brokers(OneOf("D", "F", "x")[0], OneOf("D", "F", "x")[0], "AB",
                             OneOf("WXYZ", "CC", "DD"))
                    .Bytes();
        }
    }

    tools::Random m_Dice;
};

void PutInFile(const ScratchFolder& folder, uint64_t seed) {
    const std::string filters[] = {"", "PRICE=1\nCHANGE%=1\nVOLUME=1\n"};
    const std::string bounds = "[PRICE]\nFROM=960\nTO=1040\n[CHANGE%]\nFROM=-3\nTO=2.5\n[VOLUME]\nFROM=3\n";
    folder.Write("TradeMonEnv.ini", "[TRADE_MONITOR]\nALL=" + std::to_string(seed % 3) + "\n" +
                                        filters[seed / 3 % 2] + bounds +
                                        "[FAVOURITES]\nSELECTEDGROUP=012,007,099\n");
    folder.Write("Interest.ini",
                 "[GROUP007]\nITEM001=1TEN CHARS!Last\nITEM002=1ASII      A\n[GROUP012]\nITEM001=2ASII      "
                 "B\nITEM002=1BBBB      C\n");
    std::string alarms = "[ALL_FOCUS_GROUP]\nALARMSOUND=" + std::to_string(seed % 2) + "\n";
    for (int row = 1; row < 60; ++row) {
        const std::string number = std::to_string(row);
        alarms += "[ALARM  7-" + std::string(3 - number.size(), '0') + number +
                  "]\nBasis price=1000\nprice=" + std::to_string(row % 3) +
                  "\ncomparison=" + std::to_string(row / 3 % 4) +
                  "\ndecreased price=" + (row % 3 == 0 ? "1020" : "2") +
                  "\nincreased price=" + (row % 3 == 0 ? "980" : "-2.5") + "\n" +
                  (row % 5 == 0 ? "Volume=500\n" : "");
    }
    folder.Write("InterestAlarm.ini", alarms);
    const char* const codes[] = {"ASII", "BBBB", "TEN CHARS!"};
    const char* const brokers[] = {"AB", "WXYZ", "CC"};
    const char* const marks[] = {"0x", "1", "2"};
    tickhost_set_text("UserDir", folder.Path("").c_str());
    tickhost_set_text("UserID", kUser);
    tickhost_set_industry(1, 2, codes, codes);
    tickhost_set_tobrin_account(seed % 2 == 0 ? 1 : 0);
    tickhost_set_master(0, 3, codes, codes, codes);
    tickhost_set_master(3, 3, brokers, brokers, marks);
}

TEST(Figures, AtRandom) {
    const ScratchFolder folder;
    for (uint64_t seed = 1; seed <= 30; ++seed) {
        const Steps steps = Figures(seed).Session();
        ASSERT_GT(ExpectSame(steps, [&] { PutInFile(folder, seed); }), 500U) << "seed " << seed;
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

}  // namespace
