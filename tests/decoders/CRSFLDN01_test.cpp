#include "layouts/RSFLDN01.h"
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

class TradeMonitor : public ScreenTest {
protected:
    TradeMonitor() : ScreenTest("RSFLDN01_R") {
        tickhost_set_text("UserDir", m_Folder.Path("").c_str());
        Master(0, {{"ASII", ""}, {"FULLLENGTH", ""}});
        Master(3, {{"AB", "0"}, {"WXYZ", "1x"}, {"C", "2"}, {"D", "3"}, {"E", ""}});
    }

    // Codes with their marks.
    static void Master(int kind, const std::vector<std::pair<const char*, const char*>>& entries) {
        std::vector<const char*> codes;
        std::vector<const char*> marks;
        for (const auto& [code, mark] : entries) {
            codes.push_back(code);
            marks.push_back(mark);
        }
        tickhost_set_master(kind, static_cast<int>(codes.size()), codes.data(), codes.data(), marks.data());
    }
    void Settings(const std::string& text) { m_Folder.Write("TradeMonEnv.ini", text); }
    void OpenGroups(const std::string& numbers, const std::string& more = "") {
        m_Folder.Write("Interest.ini",
                       "[GROUP007]\nITEM001=1ZZZZ      The last first\nITEM002=1ASII      A stock\n"
                       "[GROUP012]\nITEM001=2ASII      Once more\nITEM002=1BBBB      Another\n");
        Settings("[FAVOURITES]\nSELECTEDGROUP=" + numbers + "\n[TRADE_MONITOR]\nALL=0\n" + more);
        Open(kInquiry);
    }
    // How many rows the packets make.
    template <class... Packets>
    std::size_t RowsOf(const Packets&... packets) {
        Feed(packets...);
        return Silent() ? 0 : (m_Screen->Next().size() - sizeof(PlainRows)) / sizeof(MonitorRow);
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
    const std::string sent =
        "M1" +
        BlockOf({Row("00000042", "ASII.TS", '1', "1020", '2', "20", "2.00", "-3") + "4 F0 AB  1 D4 WXYZ",
                 Row("", "BBBB", '4', "980", '5', "20", "-2.00", "1") + "  x1 C   1 D  D   ",
                 Row("", "BBBB.NG", '1', "20", '1', "20", "0.00", "1") + "     E        ?   "},
                "98");
    EXPECT_TRUE((ShowsRows<PlainRows, MonitorRow>(m_Screen->Next(), sent)));
    // One group alone, given without its last character.
    Settings("[FAVOURITES]\nSELECTEDGROUP=12\n[TRADE_MONITOR]\nALL=0\n");
    Told();
    EXPECT_EQ(Init(kInquiry), 1);
    EXPECT_EQ(Told()[0], Listed({"1ASII", "2ASII", "3ASII", "1BBBB", "2BBBB", "3BBBB"}));
    EXPECT_EQ(RowsOf(Trade("1ZZZZ")), 0U);
}

TEST_F(TradeMonitor, TheWholeMarketsFeedIsOnFromTheFirstMonitorToTheLast) {
    Open(kInquiry);
    EXPECT_EQ(Told(), Events{kMarketOn});
    EXPECT_EQ(RowsOf(Trade("1ASII"), CompactTrade("1BBBB"), CompactTrade("1ASII").Volume(0),
                     CompactTrade("1ASII").Volume(-1)),
              0U);
    Batch(CompactTrade("2FULLLENGTH"));
    EXPECT_TRUE((ShowsRows<PlainRows, MonitorRow>(
        m_Screen->Next(),
        "M1" + BlockOf({Row("", "FULLLENGTH.TN", '1', "1000", '2', "10", "1.01", "1") + std::string(18, ' ')},
                       "98"))));
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
    const auto passes = [this](int32_t price, char sign, int32_t change, int32_t volume) {
        return RowsOf(Trade("1ASII").Price(price).Change(sign, change).Volume(volume)) == 1;
    };
    EXPECT_TRUE(passes(1030, '2', 30, 10)) << "exactly 3 per cent";
    EXPECT_FALSE(passes(1031, '2', 31, 10) || passes(1030, '2', 29, 10) || passes(1030, '2', 30, 9));
    EXPECT_TRUE(passes(105, '2', 5, 10)) << "exactly 5 per cent";
    EXPECT_FALSE(passes(106, '2', 6, 10) || passes(89, '2', 3, 10) || passes(1030, '5', 30, 10));
    Settings("[FAVOURITES]\nSELECTEDGROUP=007\n[TRADE_MONITOR]\nALL=0\nCHANGE%=1\n[PRICE]\nTO=1\n");
    EXPECT_EQ(Init(kInquiry), 1);
    EXPECT_TRUE(passes(20, '2', 20, 1)) << "without a base the rate is 0";
}

TEST_F(TradeMonitor, WithoutMasterDataTheFormerStocksStayAskedFor) {
    OpenGroups("012");
    Feed(Trade("1ASII"));
    Told();
    tickhost_set_master(3, -1, nullptr, nullptr, nullptr);
    EXPECT_EQ(Init(kInquiry), 0);
    m_Screen->Release();
    EXPECT_EQ(Told(), Events{});
}

}  // namespace
