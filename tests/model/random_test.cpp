// Random lives of the screens whose state is hard: inquiries, packets around every edge, batch ends, stops
// and releases. The module, driven through its exported functions, must send what the reference forms send.
//
// TICKMUX_SEED=N repeats one life of each map.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "module/layouts/RICAND11.h"
#include "module/layouts/RSCAND11.h"
#include "module/layouts/RSFLDN01.h"
#include "module/layouts/RSITST01.h"
#include "module/layouts/RSODER01.h"
#include "module/layouts/RSTRBK01.h"
#include "tests/model/RSFLDN01.h"
#include "tests/model/RSITST01.h"
#include "tests/model/RSNOCH21.h"
#include "tests/model/RSODER01.h"
#include "tests/model/RSORDE21.h"
#include "tests/model/RSORDE22.h"
#include "tests/model/RSTRBK01.h"
#include "tests/model/candles.h"
#include "tests/support/inquiries.h"
#include "tests/support/market.h"
#include "tests/support/orders.h"
#include "tests/support/samples.h"
#include "tests/support/terminal.h"

namespace {

// ------------------------------------------------------------------ what happens

struct Life : Dice {
    using Dice::Dice;

    std::string Of(const std::vector<std::string>& texts) {
        return texts[static_cast<std::size_t>(Below(std::ssize(texts)))];
    }
    char Char(const std::string& letters) {
        return letters[static_cast<std::size_t>(Below(std::ssize(letters)))];
    }

    // Mostly prices close together, or few; now and then the ends of the range.
    int32_t Figure() {
        const int64_t edge = OneOf({0, -1, 100, 1000, 123456789, 1234567890, INT32_MAX, INT32_MIN});
        return static_cast<int32_t>(OneOf({Between(995, 1005), Between(995, 1005), Between(900, 1100),
                                           Between(-2, 30), Between(0, 3), edge}));
    }
    // Fields of such widths: numbers, or a letter where there is room for no more; now and then what is no
    // number.
    std::string Fields(const std::vector<std::size_t>& widths) {
        std::string all;
        for (const std::size_t width : widths) {
            std::string text =
                Chance(3) ? Of({"x1", "-", "1 2", "+5", "99999999999999999"}) : std::to_string(Figure());
            text = width < 3 ? Of({"", "1", "4", "5", "+", "-"}) : Chance(10) ? "" : text;
            text = text.substr(0, width);
            all += width < 3 || Chance(5) ? Left(text, width) : Right(text, width);
        }
        return all;
    }
    std::string Time() {
        const std::string minutes =
            Of({"00", "00", "01", "02", "03", "04", "05", "09", "10", "15", "29", "30", "59"});
        const std::string time =
            Of({"09", "09", "09", "10", "23"}) + minutes + Of({"00", "00", "01", "29", "30", "31", "59"});
        return Chance(3) ? Of({"235959", "000000", "999999", "      ", "1x3000"}) : time;
    }
    std::string Stock() {
        return Of({"1ASII", "1ASII", "1ASII", "1BBCA", "2ASII", "3ASII", "4TEN CHARS!", "5ASII", "1"});
    }
    std::string Index() { return Of({"COMP", "COMP", "MAIN", "    "}); }
    // Few, so that notices meet.
    std::string OrderNo() { return Chance(4) ? Of({"", "000000x"}) : "000000" + Digits(1, 7); }

    std::string OrderRow() {
        ExpectedRow row(OrderNo());
        row.Ordered(Of({"", "3", "9", "50"})).Open(Of({"", "0", "1", "3", "9", "99999999999"}));
        row.Filled(Of({"", "0", "2", "9"}), Of({"", "1000", "995.5"})).Side(Of({"2", "4", ""}), Char("10x"));
        return row.Status(
            Of({"Open", "Partial", "Done", "Sending", "Withdrawing", "Withdrawn", "Amended", "Reject", "",
                "Opening", "abcd\xB0\xC5\xBA\xCE", kAcceptedWord, kAmendUnconfirmedWord,
                kCancelUnconfirmedWord, kAmendConfirmedWord, kCancelConfirmedWord, kBeingFilledWord,
                kBeingSentWord, kAcceptanceRefusedWord}));
    }

    // So many rows, each made for itself.
    template <class MakeRow>
    static std::string BlockOfSome(int64_t count, const std::string& size, const MakeRow& make) {
        Rows rows(static_cast<std::size_t>(count));
        std::generate(rows.begin(), rows.end(), make);
        return BlockOf(rows, size);
    }
    std::string Orders() {
        return BlockOfSome(Chance(60) ? Below(6) : 0, "171", [this] { return OrderRow(); });
    }
    std::string OpenOrders() {
        return "O" + Of({"1", "2"}) + Of({"ACC0010", "ACC0010", "ACC0020"}) + Orders();
    }
    std::string FilteredOrders() {
        return "O1" + Left(Of({"", "", "", "", "", "GROUP1", "GROUP002"}), 8) + kUserField +
               Left(Of({"", "All x", "ALL", "", "ASII", "ALLX"}), 12) + Char("0011223344444457 ") +
               Char("2222  01") + Left(Of({"", "", "All", "ALL", "RG", "NG", "TNX"}), 5) +
               std::string(32, '.') + Orders();
    }
    std::string Chart(const std::string& key, const std::vector<std::size_t>& widths) {
        CandleInquiry inquiry(key, Char("AABCEEGHIJKKLLD"));
        inquiry.Figures(Fields({12}), Fields({15})).Dates(Of({"20261120", "20261121"}), "20261120");
        return Chance(25) ? inquiry : inquiry.Row(Of({"20261120", "20261119"}) + Time() + Fields(widths));
    }
    std::string StockChart() { return Chart(Of({"1ASII", "1ASII", "1BBCA"}), {8, 8, 8, 8, 10, 10}); }
    std::string IndexChart() { return Chart(Index(), {12, 12, 12, 12, 15, 18}); }
    std::string OrderBook() {
        return BookInquiry(
            Of({"1ASII", "1ASII", "1BBCA"}), BlockOfSome(Chance(60) ? 11 : Below(13), "108", [this] {
                return Fields({2, 1, 2, 10, 2, 15, 2, 6, 2, 12, 2, 1, 2, 10, 2, 15, 2, 6, 2, 12});
            }));
    }
    std::string InterestBoard() {
        const int64_t count = Chance(90) ? Between(1, 4) : OneOf({0, 52, 200, 201});
        return "I1" + Of({"  7", "012"}) + BlockOfSome(count, "178", [this] {
                   return Char("1112 3x") + Left(Stock().substr(1), 10) +
                          Fields({2, 12, 1, 2, 9, 2, 9, 2, 15, 2, 15, 15, 15, 15, 2, 15, 2, 15, 2, 15});
               });
    }
    std::string PriceTable() {
        return "V1" + Left(Of({"1ASII", "1ASII", "1BBCA"}), 19) +
               BlockOfSome(Below(5), Chance(95) ? "62" : "60", [this] {
                   return Fields({2, 15, 15, 15, 15});
               });
    }
    std::string Monitor() { return "M1unread.."; }

    std::string Packet(const std::string& types) {
        const std::string key = Stock();
        const std::string index = Index();
        const char classes[] = {Char("DFx"), Char("DFx")};
        switch (Char(types)) {
            case 'A':
                return Figures({40, 100}, Trade(key)
                                              .Time(Time())
                                              .Change(Char("0123456789 "), 0)
                                              .Brokers(classes[0], classes[1], Of({"AB", "WXYZ"}),
                                                       Of({"AB", "CC", "DD", "  "}))
                                              .Ref(Of({"12345678", "", "ab"}))
                                              .Bytes());
            case 'B':
                return Figures({20, 192}, Book(key).Bytes());
            case 'D':
                return Figures({20, 40}, Bar(key, Time()).Bytes());
            case 'E':
                return Figures({12, 80}, IndexUpdate(index).Time(Time()).Bytes());
            case 'F':
                return Figures({12, 20}, IndexBar(index, Time(), 0, 0).Bytes());
            case 'R':
                return Figures({32, 40}, Figures({27, 31}, CompactTrade(key).Bytes()));
            default:
                return OrderNotice();
        }
    }
    // All figures of the payload from there to there are others.
    std::string Figures(std::pair<std::size_t, std::size_t> range, std::string packet) {
        for (std::size_t at = 1 + range.first; at < 1 + range.second; at += sizeof(int32_t)) {
            const int32_t number = Figure();
            std::memcpy(&packet[at], &number, sizeof(number));
        }
        return packet;
    }

    std::string OrderNotice() {
        const std::string own = OrderNo();
        const std::string parent = Chance(60) ? OrderNo() : "";  // no order amends itself
        Notice notice(own);
        notice.Code(Char("1222223"), Char("0011223"), Char("1122334 ")).Result(Char("00000000112"));
        notice.Parent(parent == own ? "" : parent).Quantity(Chance(60) ? Between(0, 4) : Between(5, 40));
        notice.User(Chance(95) ? User : "SOMEONE").Record(Chance(97) ? "01" : "02");
        notice.Field(Chance(95) ? kUserField : "ACC002").Price(Of({"", "995", "1000", "1005", "10.5"}));
        notice.Text(Of({"Astra", "Other", std::string("A\0B", 3)})).Side(Char("12123")).Time(Time());
        notice.Board(Of({"RG", "RG", "TN", "NG", "ADV", "", "XADVY"})).Lot(Of({"", "", "100", "00000", "7"}));
        notice.Channel(Of({"33", "M1", "M2", "M3", "00", "03", "21", "T1", "??"}));
        notice.Group(Of({"GROUP1", "GROUP1", "GROUP002"})).Item(Of({"ASII", "ASII", "ALLX"}));
        return notice.Bytes();
    }

    std::string User = kUser;
};

// ------------------------------------------------------------------ the world around

// Sets the host and the reference forms to the same.
struct SameWorld : World {
    explicit SameWorld(Life& life) {
        UserId = Left(life.User = life.Of({kUser, "3BRANCH"}), 19);
        MenuGrade = life.Char("12");
        UseHogaRect = life.Chance(80);
        OwnIndustry = life.Chance(40);
        tickhost_set_text("UserID", UserId.c_str());
        tickhost_set_text("MenuGrade", std::string(1, MenuGrade).c_str());
        tickhost_set_tick_count(1, TickCount);
        tickhost_set_tobrin_account(OwnIndustry ? 1 : 0);
        Write("EnvVar.ini", {{"USER_TABLE_HOGARECT", {{"USE", UseHogaRect ? "" : "0"}}}});
        ChangeSettings(life);
    }

    void ChangeSettings(Life& life) {
        const auto some = [&](const std::vector<std::string>& values) { return life.Of(values); };
        Alarms.clear();
        Alarms["ALL_FOCUS_GROUP"]["ALARMSOUND"] = some({"0", "1", ""});
        for (const std::string row :
             {"  7-001", "  7-002", "  7-003", "  7-050", "  7-051", "012-001", "012-002"}) {
            Alarms["ALARM" + row] = {{"Basis price", some({"1000", "1000", "0", ""})},
                                     {"comparison", some({"0", "0", "1", "2", "3", "-1", ""})},
                                     {"price", some({"0", "0", "1", "1", "2", "-1"})},
                                     {"decreased price", some({"1003", "1003", "0.3", "0.5", "0", ""})},
                                     {"increased price", some({"998", "998", "-0.2", "-1", "0.9", ""})},
                                     {"Volume", some({"", "", "0.5", "1003"})}};
        }
        Monitor["TRADE_MONITOR"] = {{"ALL", some({"", "1", "0", "0"})},
                                    {"PRICE", some({"0", "1"})},
                                    {"CHANGE%", some({"", "1"})},
                                    {"VOLUME", some({"0", "2"})}};
        Monitor["FAVOURITES"] = {{"SELECTEDGROUP", some({"001,002", "002", "099,1", ""})}};
        Monitor["PRICE"] = {{"FROM", some({"995", "", "-5"})}, {"TO", some({"1005", "2000000000"})}};
        Monitor["CHANGE%"] = {{"FROM", some({"-3", "0", "0.1", "0.2", "0.3", "-0.1"})},
                              {"TO", some({"100", "1.5", "0.3"})}};
        Monitor["VOLUME"] = {{"FROM", some({"3", "", "1000"})}};
        Write("InterestAlarm.ini", Alarms);
        Write("TradeMonEnv.ini", Monitor);
    }

    // A new file each time, since some file systems wait where one is emptied.
    void Write(const std::string& file, const Settings& settings) {
        std::string text;
        for (const auto& [section, keys] : settings) {
            text += "[" + section + "]\n";
            for (const auto& [key, value] : keys) {
                text += value.empty() ? "" : key + "=" + value + "\n";
            }
        }
        std::filesystem::remove(Services.Folder().Path(file));
        Services.Folder().Write(file, text);
    }

    SampleWorld Services;
};

// ------------------------------------------------------------------ the comparison

struct MapForm {
    std::string Map;
    std::string Types;  // of its packets
    std::string (Life::*Inquiry)();
    std::unique_ptr<Model> (*Make)(const World&);
    testing::AssertionResult (*Shows)(const std::string& actual, const std::string& expected);
};

template <class Form>
std::unique_ptr<Model> Make(const World& world) {
    return std::make_unique<Form>(world);
}

const MapForm kMaps[] = {
    {"RICAND11_R", "EEEEF", &Life::IndexChart, Make<Candles<kIndexChart>>,
     ShowsRows<HeadedRows, IndexCandleRow>},
    {"RSCAND11_R", "AAAAD", &Life::StockChart, Make<Candles<kStockChart>>,
     ShowsRows<HeadedRows, StockCandleRow>},
    {"RSFLDN01_R", "AR", &Life::Monitor, Make<RSFLDN01>, ShowsRows<PlainRows, MonitorRow>},
    {"RSITST01_R", "AAB", &Life::InterestBoard, Make<RSITST01>, ShowsRows<PlainRows, InterestRow>},
    {"RSNOCH21_R", "0", &Life::OpenOrders, Make<RSNOCH21>, ShowsRows<OrderMessage, OrderRow>},
    {"RSODER01_R", "AB", &Life::OrderBook, Make<RSODER01>, ShowsRows<PlainRows, BookRow>},
    {"RSORDE21_R", "0", &Life::OpenOrders, Make<RSORDE21>, ShowsRows<OrderMessage, OrderRow>},
    {"RSORDE22_R", "0", &Life::FilteredOrders, Make<RSORDE22>, ShowsRows<OrderMessage, OrderRow>},
    {"RSTRBK01_R", "A", &Life::PriceTable, Make<RSTRBK01>, ShowsRows<PlainRows, PriceRow>},
};

void PrintTo(const MapForm& form, std::ostream* out) {
    *out << form.Map;
}

class RandomLives : public testing::TestWithParam<MapForm> {
protected:
    // Gives the number of buffers that were sent.
    static int Compare(const MapForm& map, uint64_t seed) {
        Life life(seed);
        Terminal terminal;
        SameWorld world(life);
        const auto screen = terminal.Open(map.Map);
        const std::unique_ptr<Model> model = map.Make(world);
        std::string packet;
        int buffers = 0;
        for (int step = 0; step < 400 && !HasFailure(); ++step) {
            const int64_t what = step == 0 ? 100 : life.Below(103);
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) + ", what " +
                         std::to_string(what));
            if (what < 68) {
                packet = packet.empty() || !life.Chance(4) ? life.Packet(map.Types) : packet;  // or once more
                packet = life.Chance(5) ? Spoilt(packet, life, 18) : packet;
                terminal.Feed(packet);
                model->Packet(packet);
            } else if (what < 98) {
                world.TickCount += life.OneOf({0U, 100U, 200U, 300U, 301U, 1000U, 0xFFFFFC00U});
                tickhost_set_tick_count(1, world.TickCount);
                terminal.EndBatch();
                model->EndBatch();
            } else if (what < 101) {
                if (life.Chance(30)) {
                    world.ChangeSettings(life);
                }
                std::string text = (life.*map.Inquiry)();
                text = life.Chance(85) ? text
                       : life.Chance(20)
                           ? text + "x"
                           : text.substr(0, static_cast<std::size_t>(life.Below(std::ssize(text))));
                EXPECT_EQ(screen->Init(text) != 0, model->Init(text)) << text;
            } else if (what == 101) {
                screen->Stop();
                model->Stop();
            } else {
                screen->Release();
                model->Release();
            }
            tickhost_pump_messages();
            for (const std::string& expected : model->TakeSent()) {
                EXPECT_TRUE(map.Shows(screen->Next(), expected));
                ++buffers;
            }
            EXPECT_TRUE(screen->Empty()) << "and " << screen->Next();
        }
        return buffers;
    }
};

TEST_P(RandomLives, SendWhatTheReferenceFormSends) {
    const char* one = std::getenv("TICKMUX_SEED");
    const uint64_t first = one == nullptr ? 1 : std::strtoull(one, nullptr, 10);
    const uint64_t seeds = one != nullptr ? 1 : std::getenv("TICKMUX_LONG_TESTS") == nullptr ? 150 : 3000;
    int buffers = 0;
    for (uint64_t seed = first; seed < first + seeds && !HasFailure(); ++seed) {
        buffers += Compare(GetParam(), seed);
    }
    EXPECT_GT(buffers, static_cast<int>(seeds)) << "hardly anything was compared";
}

INSTANTIATE_TEST_SUITE_P(Maps, RandomLives, testing::ValuesIn(kMaps),
                         [](const auto& map) { return map.param.Map; });

}  // namespace
