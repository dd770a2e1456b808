#include "tests/support/samples.h"

#include <algorithm>

#include "host/tickhost.h"
#include "module/layouts/RITRDE01.h"
#include "module/layouts/RITRDE02.h"
#include "module/layouts/RSCAND11.h"
#include "module/layouts/RSITST01.h"
#include "module/layouts/RSODER01.h"
#include "module/layouts/RSTRBK01.h"
#include "module/layouts/RSTRDE01.h"
#include "tests/support/inquiries.h"
#include "tests/support/orders.h"
#include "tests/support/packets.h"

namespace {

// ------------------------------------------------------------------ Init texts

std::string IndexChart(const std::string& code, char period) {
    return "X1" + Left(code, 10) + period + Head("..") + BlockOf({Left("20261119", 44)}, "44");
}

const std::string kOpenOrder = ExpectedRow("0000001");
const Rows kPriceRows = {RowOf<PriceRow>({"1 ", "1010", "3", "30", "30"}),
                         RowOf<PriceRow>({"4 ", "1000", "2", "20", "20"})};
const std::string kCandle =
    RowOf<StockCandleRow>({"20261120", "090130", "1000", "1010", "990", "1005", "40"});
const std::string kIndexCandle = "20261120090130" + Right("7000.000", 12) + Right("7010.000", 12) +
                                 Right("6990.000", 12) + Right("7005.000", 12) + Right("40", 15) +
                                 std::string(18, ' ');

std::vector<Sample> MakeSamples() {
    return {
        {"RDUMMY01_R", "", "H1" + BlockOf({Item('1', "1ASII", "1111"), Item('A', "COMP", "1  1")}, "20"),
         "H1" + BlockOf({Item('1', "1BBCA", " 1"), Item('1', "1ASII", "1")}, "20")},
        {"RICAND11_R", "EF", CandleInquiry("COMP", 'C').Row(kIndexCandle), CandleInquiry("MAIN", 'E')},
        {"RINTIK01_R", "E", "X1COMP......." + Right("7000.00", 15) + "........",
         "X1MAIN......." + Right("", 15) + "........"},
        {"RINTIK11_R", "E", IndexChart("COMP", 'H'), IndexChart("MAIN", 'A')},
        {"RITRDE01_R", "E", PanelInquiry("COMP", "0017", WidthOf(kIndexPanel)),
         PanelInquiry("MAIN", "0003", 43)},
        {"RITRDE02_R", "E", IndexBoardInquiry({"COMP", "MAIN"}), IndexBoardInquiry({"MAIN", "XXXX", "COMP"})},
        {"RRNEWS01_R", "T", "N1" + std::string(20, '.') + "0.", "N1" + std::string(20, '.') + "2."},
        {"RRPASS01_R", "ABCDEFMN@T0",
         PassThroughInquiry({Item('1', "1ASII", "1111"), Item('A', "COMP", "1  1"), Item('M', "CODE1", "1"),
                             Item('@', "SESSION", "1"), Item('N', "1ASII", "1"), Item('/', "", "11")}),
         PassThroughInquiry({Item('1', "1BBCA", "1"), Item('/', "", "1"), Item('N', "1BBCA", "1")})},
        {"RSBRSM01_R", "C", "S1" + Left("1ASII", 11), "S1" + Left("1BBCA", 11)},
        {"RSCAND11_R", "AD", CandleInquiry("1ASII", 'C').Row(kCandle), CandleInquiry("1BBCA", 'E')},
        {"RSDONE01_R", "A", "F1" + Left("1ASII", 11) + Right("1000", 12) + BlockOf({}, "79"),
         "F1" + Left("1BBCA", 11) + Right("0", 12) + BlockOf({}, "79")},
        {"RSETFNAV_R", "N", NavInquiry("1ASII"), NavInquiry("1BBCA").Base("900")},
        {"RSFLDN01_R", "AR", "M1unread..", "M2unread.."},
        {"RSITST01_R", "AB", InterestInquiry({"ASII", "BBCA"}), InterestInquiry({"BBCA", "XXXX", "ASII"})},
        {"RSNOCH21_R", "0", OrdersInquiry(), OrdersInquiry({kOpenOrder})},
        {"RSODER01_R", "AB", BookInquiry("1ASII"),
         BookInquiry("1BBCA", BlockOf({std::string(sizeof(BookRow), '1')}, "108"))},
        {"RSORDE21_R", "0", OrdersInquiry(), OrdersInquiry({kOpenOrder})},
        {"RSORDE22_R", "0", FilteredInquiry(), FilteredInquiry().Status('1').With(kOpenOrder)},
        {"RSTICK11_R", "A", TickInquiry("1ASII"), TickInquiry("1BBCA").Tag("T2")},
        {"RSTRBK01_R", "A", PriceTableInquiry("1ASII"), PriceTableInquiry("1BBCA", kPriceRows)},
        {"RSTRDE01_R", "AB", PanelInquiry("1ASII", "000055", WidthOf(kStockPanel)),
         PanelInquiry("1BBCA", "003003", 14)},
    };
}

// ------------------------------------------------------------------ packets

void AddStock(Rows& packets, const std::string& key) {
    packets.push_back(Trade(key).Time("090135").Brokers('F', 'D', "AB", "WXYZ").Bytes());
    packets.push_back(Trade(key).Time("090140").Price(1010).Change('3', 20).Volume(-3).Bytes());
    packets.push_back(Trade(key).Time("090400").Price(995).Change('5', 5).Volume(7).TotalVolume(900).Bytes());
    packets.push_back(Book(key).Level(1, 985, 5, 1010, 6).Bytes());
    packets.push_back(Brokers(key, "090200").Bytes());
    packets.push_back(Bar(key, "090200").Prices(1000, 1010, 995, 1005).Volume(30).Bytes());
    packets.push_back(Bar(key, "090300").Prices(1005, 1020, 1000, 1015).Volume(50).Bytes());
    packets.push_back(CompactTrade(key).Volume(5).Bytes());
    packets.push_back(Nav(key).Value1("1001.5").Bytes());
    packets.push_back(Nav(key).Kind("1").Value1("1002.5").Value2("999.25").Bytes());
    packets.push_back(Coded<SpecialPacket>(key).Bytes());
}

void AddIndex(Rows& packets, const std::string& code) {
    packets.push_back(IndexUpdate(code).Time("090135").Change('2', 100000).Bytes());
    packets.push_back(
        IndexUpdate(code).Time("090400").Index(69000000).Change('6', 1234).Day(1, 2, 3).Value(5).Bytes());
    packets.push_back(IndexBar(code, "090200", 70001234, 10).Bytes());
    packets.push_back(IndexBar(code, "090300", 70101234, 20).Bytes());
}

// Two orders: one is filled in part, amended and cancelled; a fill comes before its order.
void AddOrders(Rows& packets) {
    for (const Notice& notice :
         {Notice("0000011").Code('1', '0', '1'), Accepted("0000011", 100), Filled("0000011", 30, "995"),
          Filled("0000012", 10, "990"), Accepted("0000012", 50), Amendment("0000013", "0000011", 70, '0'),
          Amendment("0000013", "0000011", 70, '2'), Cancellation("0000014", "0000013", 70, '0'),
          Cancellation("0000014", "0000013", 70, '2'), Accepted("0000015", 5).User("TRADER02"),
          Notice("0000016").Code('2', '0', '1').Result('1'), Filled("0000012", 40, "1000")}) {
        packets.push_back(notice.Bytes());
    }
}

Rows MakePackets() {
    Rows packets;
    for (const char* key : {"1ASII", "1BBCA", "2ZZZZ"}) {
        AddStock(packets, key);
    }
    for (const char* code : {"COMP", "MAIN", "ZZZZ"}) {
        AddIndex(packets, code);
    }
    packets.push_back(Coded<MarketPacket>("CODE1").Bytes());
    packets.push_back(Coded<MarketPacket>("CODE2").Bytes());
    packets.push_back(News("20").Bytes());
    packets.push_back(News("12", "Of one stock").Code("ASII").Bytes());
    packets.push_back(News("21", std::string(80, 'x')).Related("00").Bytes());
    AddOrders(packets);
    return packets;
}

void Master(int kind, const std::vector<const char*>& codes, const std::vector<const char*>& marks) {
    tickhost_set_master(kind, static_cast<int>(codes.size()), codes.data(), codes.data(), marks.data());
}

}  // namespace

const std::vector<std::string>& SamplePackets() {
    static const Rows packets = MakePackets();
    return packets;
}

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = [] {
        std::vector<Sample> made = MakeSamples();
        for (Sample& sample : made) {
            std::copy_if(SamplePackets().begin(), SamplePackets().end(), std::back_inserter(sample.Packets),
                         [&sample](const std::string& packet) {
                             return sample.Types.find(packet[0]) != std::string::npos;
                         });
        }
        return made;
    }();
    return samples;
}

const Sample& SampleOf(const std::string& map) {
    return *std::find_if(Samples().begin(), Samples().end(),
                         [&map](const Sample& sample) { return sample.Map == map; });
}

SampleWorld::SampleWorld() {
    tickhost_set_text("UserID", kUser);
    tickhost_set_text("UserDir", m_Folder.Path("").c_str());
    tickhost_set_text("DataDir", m_Folder.Path("").c_str());
    tickhost_set_text("DriveC", m_Folder.Path("").c_str());
    Master(0, {"ASII", "BBCA"}, {"", ""});
    Master(3, {"AB", "WXYZ"}, {"0", "1"});
    const char* industry[] = {"ASII"};
    tickhost_set_industry(1, 1, industry, industry);
    m_Folder.Write("EnvVar.ini", "[USER_TABLE_HOGARECT]\nUSE=1\n");
    m_Folder.Write("Interest.ini",
                   "[GROUP001]\nITEM001=1ASII      A stock\n[GROUP002]\nITEM001=1BBCA      Another\n");
    m_Folder.Write(
        "InterestAlarm.ini",
        "[ALL_FOCUS_GROUP]\nALARMSOUND=1\n[ALARM 07-001]\ndecreased price=1005\nincreased price=1\n"
        "[ALARM 07-002]\nVolume=50\n");
    WatchGroups();
}

void SampleWorld::Watch(bool market) {
    if (market != m_bMarket) {
        m_bMarket = market;
        m_Folder.Write("TradeMonEnv.ini",
                       market ? "[TRADE_MONITOR]\nALL=1\n"
                              : "[FAVOURITES]\nSELECTEDGROUP=001,002\n[TRADE_MONITOR]\nALL=0\nPRICE=1\n"
                                "[PRICE]\nFROM=1\nTO=9999\n");
    }
}
