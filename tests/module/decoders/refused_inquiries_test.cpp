// What an inquiry that is refused leaves of what waits for the batch end.
#include "tests/support/orders.h"
#include "tests/support/samples.h"
#include "tests/support/terminal.h"

namespace {

struct Refusal {
    std::string Map;
    std::string First;
    Rows Packets;  // what waits when the next text comes
    std::string Refused;
    std::string Sent;  // how the buffer of the batch end begins; "": there is none
};

const Rows kTrade = {Trade("1ASII").Bytes()};
const Rows kUpdate = {IndexUpdate("COMP").Bytes()};
const Rows kNav = {Nav("1FUND").Value1("1002").Bytes()};
const Rows kBook = {Book("1ASII").Bytes()};
const Rows kFill = {Accepted("0000011", 100).Bytes(), Filled("0000011", 30, "995").Bytes()};
const std::string kStock = Left("1ASII", 11);
const std::string kIndex = Left("COMP", 11);

std::string FilledOrder(const std::string& tag) {
    const ExpectedRow row = ExpectedRow("0000011").Filled("30", "995").Open("70").Status("Partial");
    return tag + Message("U  -13", {row}).substr(2);
}

std::vector<Refusal> Refusals() {
    const std::string interestRow = "-" + Left("ASII", 177);
    const std::string bookSide = "1 +1 " + Right("10", 10) + "1 " + Right("10", 15) + "1   0.501 ";
    CandleInquiry laterChart("1OTHER", 'E');
    laterChart.Tag("C2").Dates("20261119", "20261120");
    const std::string noRow = "O2ACC0010" + Block("1", "171");
    const std::string lessThanNone = "O2ACC0010" + Block("-1", "171");
    return {
        {"RDUMMY01_R", "H1" + BlockOf({Item('1', "1ASII", "1")}, "20"), kTrade, "H2", ""},
        {"RICAND11_R", CandleInquiry("COMP", 'E'), kUpdate, laterChart, "C1" + Head("E2", "7000.000", "100")},
        {"RINTIK01_R", "X1COMP" + std::string(30, ' '), kUpdate, "X2", "X2" + Block("1", "67", "090000")},
        {"RINTIK11_R", "X1COMP......A" + Head("..") + Block("0", "44"), kUpdate, "X2", ""},
        {"RITRDE01_R", "P1" + kIndex + "1717......", kUpdate, "P2" + kIndex + "0018", "P1090000"},
        {"RITRDE02_R", IndexBoardInquiry({"COMP"}), kUpdate,
         "B2" + IndexBoardInquiry({"MAIN"}, "133").substr(2), ""},
        {"RRNEWS01_R", "N1" + Left("", 20) + "0.", {News("20").Bytes()}, "N2", ""},
        {"RRPASS01_R", PassThroughInquiry({Item('1', "1ASII", "1")}), kTrade, "   2", kTrade[0]},
        {"RSBRSM01_R", "S1" + kStock, {Brokers("1ASII", "090000").Bytes()}, "S2", Left("S2", 454)},
        {"RSCAND11_R", CandleInquiry("1ASII", 'E'), kTrade, laterChart, "C1" + Head("E2", "1000", "100")},
        {"RSCAND11_R", CandleInquiry("1ASII", 'A'), kTrade, "C2", "C2" + Head("A2", "1000", "100")},
        {"RSCAND11_R", CandleInquiry("1ASII", 'A'), kTrade, CandleInquiry("1ASII", 'F').Tag("C2"), ""},
        {"RSDONE01_R", "F1" + kStock + Left("", 12) + Block("0", "79"), kTrade, "F2",
         "F2" + Block("1", "79", "090000")},
        {"RSETFNAV_R", NavInquiry("1FUND"), kNav, "N2", Left("N1", 13) + "1 " + Right("1002.00", 22)},
        {"RSFLDN01_R", "M1unread..", kTrade, "M2unread.",
         "M2" + Block("1", "98", Left("090000", 14) + "ASII   ")},
        {"RSITST01_R", "I1 07" + BlockOf({interestRow}, "178"), kTrade,
         "I2 07" + BlockOf({interestRow}, "177"), ""},
        {"RSNOCH21_R", OrdersInquiry(), kFill, lessThanNone, FilledOrder("O2")},
        {"RSNOCH21_R", OrdersInquiry(), kFill, noRow, ""},
        {"RSODER01_R", BookInquiry("1ASII"), kBook, "O2", "O2" + Block("11", "108", bookSide)},
        {"RSORDE21_R", OrdersInquiry(), kFill, lessThanNone, FilledOrder("O2")},
        {"RSORDE22_R", FilteredInquiry(), kFill, "O2", ""},
        {"RSORDE22_R", FilteredInquiry(), kFill, Left("O2", 67) + Block("-1", "171"), ""},
        {"RSTICK11_R", TickInquiry("1ASII"), kTrade, TickInquiry("1BBCA").Tag("T2").Dates({"", ""}),
         "T2" + Head("..") + Block("1", "38", "20261120090000" + Right("1000", 12))},
        {"RSTRBK01_R", "V1" + Left("1ASII", 19) + Block("0", "62"), kTrade, "V2", ""},
        {"RSTRDE01_R", "P1" + kStock + "011011........", kTrade, "P2" + kStock + "000056", "P1       7"},
    };
}

TEST(RefusedInquiries, KeepOrDropWhatWaitsUnderTheTagThatEachMapTakes) {
    const SampleWorld world;
    Terminal terminal;
    for (const Refusal& refusal : Refusals()) {
        SCOPED_TRACE(refusal.Map + ": " + refusal.Sent);
        tickhost_set_tick_count(1, 0);
        const auto screen = terminal.Open(refusal.Map, refusal.First);
        for (const std::string& packet : refusal.Packets) {
            terminal.Feed(packet);
        }
        while (!screen->Empty()) {
            screen->Next();  // what leaves at once
        }
        EXPECT_EQ(screen->Init(refusal.Refused), 0);
        tickhost_set_tick_count(1, 1000);
        terminal.EndBatch();
        if (!refusal.Sent.empty()) {
            EXPECT_EQ(screen->Next().substr(0, refusal.Sent.size()), refusal.Sent);
        }
        EXPECT_TRUE(screen->Empty());
    }
}

}  // namespace
