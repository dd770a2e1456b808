#include "module/layouts/RSFLDN01.h"
#include "tests/support/inquiries.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/terminal.h"

namespace {

constexpr char kTrades[] = "80000000";
constexpr char kInquiry[] = "M1unread..";
const std::string kMarketOn = "function A K11OI031 [10001520001*|$]";
const std::string kMarketOff = "function A K11OI031 [20001520001*|$]";

// The list request of these stock keys.
std::string Listed(const Rows& keys) {
    std::string text = "function A K11OI060 [" + Right(std::to_string(keys.size()), 4);
    for (const std::string& key : keys) {
        text += "1" + Left(key, 11) + std::string("\x80\0\0\0", 4);
    }
    return text + "]";
}

// The shown fields in front of the brokers.
std::string Row(const std::string& ref, const std::string& code, char tag, const std::string& price,
                char sign, const std::string& change, const std::string& rate, const std::string& volume) {
    const std::string color{tag, ' '};
    return "090000" + Left(ref, 8) + Left(code, 15) + color + Right(price, 12) + sign + color +
           Right(change, 12) + color + Right(rate, 6) + "  " + Right(volume, 12);
}

struct TradeMonitor : ScreenTest {
    TradeMonitor() : ScreenTest("RSFLDN01_R") {
        tickhost_set_text("UserDir", m_Folder.Path("").c_str());
        Master(0, {"ASII", "FULLLENGTH"}, {"", ""});
        Master(3, {"AB", "WXYZ", "C", "D", "E"}, {"0", "1x", "2", "3", ""});
    }

    static void Master(int kind, const std::vector<const char*>& codes,
                       const std::vector<const char*>& marks) {
        tickhost_set_master(kind, static_cast<int>(codes.size()), codes.data(), codes.data(), marks.data());
    }
    void Watch(const std::string& numbers, const std::string& filters = "") {
        m_Folder.Write("TradeMonEnv.ini",
                       "[FAVOURITES]\nSELECTEDGROUP=" + numbers + "\n[TRADE_MONITOR]\nALL=0\n" + filters);
    }
    void OpenGroups(const std::string& numbers, const std::string& filters = "") {
        m_Folder.Write("Interest.ini",
                       "[GROUP007]\nITEM001=1ZZZZ      The last first\nITEM002=1ASII      A stock\n"
                       "[GROUP012]\nITEM001=2ASII      Once more\nITEM002=1BBBB      Another\n");
        Watch(numbers, filters);
        Open(kInquiry);
    }
    // How many rows the packets make.
    template <class... Packets>
    std::size_t RowsOf(const Packets&... packets) {
        Feed(packets...);
        return Silent() ? 0 : (m_Screen->Next().size() - sizeof(PlainRows)) / sizeof(MonitorRow);
    }
    bool Passes(int32_t price, char sign, int32_t change, int32_t volume) {
        return RowsOf(Trade("1ASII").Price(price).Change(sign, change).Volume(volume)) == 1;
    }

    ScratchFolder m_Folder;
};

TEST_F(TradeMonitor, SelectedGroupsAreSubscribedOnThreeBoardsInTheirOrder) {
    OpenGroups("007,099,012");
    const Rows keys = {"1ZZZZ", "2ZZZZ", "3ZZZZ", "1ASII", "2ASII", "3ASII", "1BBBB", "2BBBB", "3BBBB"};
    Events expected = {Listed(keys)};
    for (const std::string& key : keys) {
        expected.push_back(Added('1', key, kTrades));
    }
    EXPECT_EQ(Told(), expected);
    const Trade rise =
        Trade("4ASII").Price(1020).Change('2', 20).Volume(-3).Ref("00000042").Brokers('F', 'D', "AB", "WXYZ");
    Feed(Trade("5ASII"), Trade("1CCCC"), Trade("1BBBB").Volume(0), CompactTrade("1BBBB"), rise);
    Feed(Trade("1BBBB").Price(980).Change('5', 20).Brokers('x', 'D', "C", "D"));
    Batch(Trade("3BBBB").Price(20).Change('1', 20).Brokers(' ', ' ', "E", "?"));
    Expect<PlainRows, MonitorRow>(
        "M1", {Row("00000042", "ASII.TS", '1', "1020", '2', "20", "2.00", "-3") + "4 F0 AB  1 D4 WXYZ",
               Row("", "BBBB", '4', "980", '5', "20", "-2.00", "1") + "  x1 C   1 D  D   ",
               Row("", "BBBB.NG", '1', "20", '1', "20", "0.00", "1") + "     E        ?   "});
    // One group alone, given without its last character. Its stocks and the file's place are still those of
    // the opening.
    Watch("12");
    m_Folder.Write("Interest.ini", "[GROUP012]\nITEM001=1CCCC      Since then\n");
    tickhost_set_text("UserDir", "elsewhere");
    Told();
    EXPECT_EQ(Init(kInquiry), 1);
    EXPECT_EQ(Told().at(0), Listed({"1ASII", "2ASII", "3ASII", "1BBBB", "2BBBB", "3BBBB"}));
    EXPECT_EQ(RowsOf(Trade("1ZZZZ")), 0U);
}

TEST_F(TradeMonitor, TheWholeMarketsFeedIsOnFromTheFirstMonitorToTheLast) {
    Open(kInquiry);
    EXPECT_EQ(Told(), Events{kMarketOn});
    EXPECT_EQ(RowsOf(Trade("1ASII"), CompactTrade("1BBBB"), CompactTrade("1ASII").Volume(0),
                     CompactTrade("1ASII").Volume(-1)),
              0U);
    Batch(CompactTrade("2FULLLENGTH"));
    Expect<PlainRows, MonitorRow>(
        "M1", {Row("", "FULLLENGTH.TN", '1', "1000", '2', "10", "1.01", "1") + std::string(18, ' ')});
    {
        const auto second = m_Terminal.Open("RSFLDN01_R", kInquiry);
        EXPECT_EQ(Init(kInquiry), 1);
        m_Screen->Release();
        EXPECT_EQ(Told(), Events{"view"}) << "between the first and the last they only count";
    }
    EXPECT_EQ(Told(), Events{kMarketOff}) << "a map that goes without a release";
}

TEST_F(TradeMonitor, FiltersHaveInclusiveBoundsAndAreReadAnew) {
    OpenGroups("007",
               "PRICE=1\nCHANGE%=1\nVOLUME=1\n[PRICE]\nFROM=90\nTO=1030\n"
               "[CHANGE%]\nFROM=3\nTO=5\n[VOLUME]\nFROM=10\n");
    EXPECT_TRUE(Passes(1030, '2', 30, 10)) << "exactly 3 per cent";
    EXPECT_FALSE(Passes(1031, '2', 31, 10) || Passes(1030, '2', 29, 10) || Passes(1030, '2', 30, 9));
    EXPECT_TRUE(Passes(105, '2', 5, 10)) << "exactly 5 per cent";
    EXPECT_FALSE(Passes(106, '2', 6, 10) || Passes(89, '2', 3, 10) || Passes(1030, '5', 30, 10));
    Watch("007", "CHANGE%=1\n[CHANGE%]\nFROM=-5\nTO=-3\n[PRICE]\nTO=1\n");
    EXPECT_EQ(Init(kInquiry), 1);
    EXPECT_TRUE(Passes(950, '5', 50, 1)) << "exactly -5 per cent";
    EXPECT_FALSE(Passes(970, '5', 30, 1)) << "-3, moved towards zero; the upper bound is not";
    Watch("007", "CHANGE%=1\n");
    EXPECT_EQ(Init(kInquiry), 1);
    EXPECT_TRUE(Passes(20, '2', 20, 1)) << "without a base the rate is 0";
}

TEST_F(TradeMonitor, LongTextsOfTheSettingsAreCut) {
    // The last two characters of each are beyond what is read.
    const std::string from(29, '0');
    const std::string to(1021, '0');
    OpenGroups(Joined(Rows(255, "099,")) + "007,012", "PRICE=1\nCHANGE%=1\nVOLUME=1\n[PRICE]\nFROM=" + from +
                                                          "1199\nTO=" + to + "1199\n[CHANGE%]\nFROM=" + from +
                                                          "1099\nTO=" + to + "1099\n[VOLUME]\nFROM=" + from +
                                                          "1399\n");
    EXPECT_EQ(Told().at(0), Listed({"1ZZZZ", "2ZZZZ", "3ZZZZ", "1ASII", "2ASII", "3ASII"}));
    EXPECT_TRUE(Passes(11, '2', 1, 13)) << "11, 10 per cent, 13";
    EXPECT_FALSE(Passes(22, '2', 2, 13) || Passes(11, '2', 2, 13) || Passes(11, '2', 1, 12));
}

TEST_F(TradeMonitor, AnIndustrysAccountWatchesItsListAsFarAsTheTerminalHasTheData) {
    const char* code = "ASII";
    tickhost_set_tobrin_account(1);
    tickhost_set_industry(1, 1, &code, &code);
    Open(kInquiry);
    EXPECT_EQ(Told().at(0), Listed({"1ASII", "2ASII", "3ASII"}));
    tickhost_set_master(3, -1, nullptr, nullptr, nullptr);
    EXPECT_EQ(Init(kInquiry), 0);
    m_Screen->Release();
    EXPECT_EQ(Told(), Events{}) << "without brokers the former stocks stay asked for";
    Master(3, {}, {});
    tickhost_set_industry(0, 1, &code, &code);
    EXPECT_EQ(Init(kInquiry), 1);
    EXPECT_EQ(RowsOf(Trade("1ASII")), 0U);
}

}  // namespace
