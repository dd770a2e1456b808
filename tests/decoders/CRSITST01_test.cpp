#include "layouts/RSITST01.h"
#include "tests/support/inquiries.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/terminal.h"

namespace {

constexpr char kTradesAndBook[] = "a0000000";

// Figures are dots until a packet writes them; the base is 1000.
std::string RowText(const std::string& alarm, const std::string& code,
                    const std::string& figures = std::string(116, '.'), const std::string& base = "1000",
                    const std::string& day = std::string(34, '.')) {
    return alarm + Left(code, 10) + figures + ".." + Right(base, 15) + day;
}

std::string Inquiry(const Rows& rows, const std::string& size = "178") {
    return "I1 07" + BlockOf(rows, size);
}

class InterestBoard : public ScreenTest {
protected:
    InterestBoard() : ScreenTest("RSITST01_R") { tickhost_set_text("UserDir", m_Folder.Path("").c_str()); }

    // Alarms by row number, in group 07.
    void Alarms(const std::string& sound, const std::vector<std::pair<int, std::string>>& alarms) {
        std::string text = "[ALL_FOCUS_GROUP]\nALARMSOUND=" + sound + "\n";
        for (const auto& [row, keys] : alarms) {
            const std::string number = std::to_string(row);
            text += "[ALARM 07-" + std::string(3 - number.size(), '0') + number + "]\n" + keys;
        }
        m_Folder.Write("InterestAlarm.ini", text);
    }
    // The alarm chars of the rows that the packets change.
    template <class... Packets>
    std::string States(const Packets&... packets) {
        Feed(packets...);
        if (Silent()) {
            return "nothing";
        }
        const std::string sent = m_Screen->Next();
        std::string states;
        for (std::size_t at = sizeof(PlainRows); at < sent.size(); at += sizeof(InterestRow)) {
            states += sent[at];
        }
        return states;
    }

    ScratchFolder m_Folder;
};

TEST_F(InterestBoard, ChangedRowsLeaveInBoardOrderWithWhatTheInquiryGave) {
    Open(Inquiry({RowText(" ", "AAAA"), RowText("x", "BBBB"), RowText(" ", "CCCC"), RowText(" ", "BBBB")}));
    EXPECT_EQ(Told(), (Events{Added('1', "1AAAA", kTradesAndBook), Added('1', "1BBBB", kTradesAndBook),
                              Added('1', "1CCCC", kTradesAndBook), Added('1', "1BBBB", kTradesAndBook)}));
    Feed(Book("1CCCC").Side1(999, 12, 0).Side2(1001, 34, 0), Trade("2AAAA"), Book("3BBBB"), Trade("1DDDD"));
    Feed(Trade("1BBBB"));
    Batch(Trade("1BBBB").Price(1005).Change('5', 7).Best(1000, 1010).Totals(1, 77, 0).Day(0, 1020, 980));
    const std::string second =
        RowText("x", "BBBB",
                "4 " + Right("1005", 12) + "54 " + Right("7", 9) + "4 " + Right("0.50", 9) + "1 " +
                    Right("1010", 15) + "5 " + Right("1000", 15) + std::string(30, '.') + Right("77", 15),
                "1000", "1 " + Right("1020", 15) + "4 " + Right("980", 15));
    const std::string third =
        RowText(" ", "CCCC",
                std::string(37, '.') + "1 " + Right("1001", 15) + "4 " + Right("999", 15) + Right("34", 15) +
                    Right("12", 15) + std::string(15, '.'));
    EXPECT_TRUE(
        (ShowsRows<PlainRows, InterestRow>(m_Screen->Next(), "I1" + BlockOf({second, third}, "178"))));
    EXPECT_TRUE(Silent());
}

TEST_F(InterestBoard, AlarmStatesFollowTheConditionOfTheirRow) {
    const std::string limits = "decreased price=1100\nincreased price=900\n";
    const std::string percent = "price=1\nBasis price=10000\ndecreased price=5\n";
    Alarms("1", {{1, limits},
                 {2, "comparison=1\n" + percent + "increased price=-5\n"},
                 {3, "comparison=2\n" + percent},
                 {4, "comparison=3\nVolume=1\n"},
                 {5, "price=2\nVolume=500.5\n"},
                 {6, limits}});
    const std::string states = "222223";  // in state 1 they would be tested at once
    Rows rows;
    for (std::size_t number = 0; number < states.size(); ++number) {
        rows.push_back(RowText(states.substr(number, 1), "R" + std::to_string(number + 1)));
    }
    Open(Inquiry(rows));
    const auto state = [this](int row, int32_t price, int32_t best1, int32_t best2, int32_t volume) {
        return States(Trade("1R" + std::to_string(row)).Price(price).Best(best1, best2).TotalVolume(volume));
    };
    std::string seen;
    for (const auto& [price, best] :
         {std::pair(1099, 10499), {1100, 10500}, {901, 9501}, {900, 9500}, {1000, 10000}}) {
        seen += state(1, price, 0, 0, 0) + state(2, 20000, best, 20000, 0);
    }
    EXPECT_EQ(seen, "1122112211") << "two prices, and per cent of the basis";
    EXPECT_EQ(state(3, 0, 0, 9900, 0) + state(3, 0, 0, 1, 0) + state(3, 0, 0, 10500, 0), "112")
        << "-1 is no lower bound";
    EXPECT_EQ(state(4, 1, 1, 1, 10), "1") << "a comparison that names nothing";
    EXPECT_EQ(state(5, 1, 1, 1, 500) + state(5, 1, 1, 1, 501), "12") << "volume alone";
    EXPECT_EQ(state(6, 2000, 0, 0, 0), "1") << "a row that came silent has no record";
}

TEST_F(InterestBoard, StoredRowsAreTestedAtInitAndWaitForAPacket) {
    const auto row = [](char state, const std::string& code, const std::string& price) {
        return RowText(std::string(1, state), code,
                       ".." + Right(price, 12) + std::string(87, '.') + Right("500", 15));
    };
    const std::string limits = "decreased price=1100\nincreased price=900\n";
    Alarms("0", {{1, limits}, {2, limits}, {3, "price=2\nVolume=1\n"}, {4, limits}, {5, "Volume=500\n"}});
    const std::string text = Inquiry({row('1', "R1", "1000"), row('1', "R2", "1100"), row('1', "R3", "1100"),
                                      row('2', "R4", "1100"), row('1', "R5", "1000")});
    Open(text);
    EXPECT_TRUE(Silent());
    EXPECT_EQ(States(Book("1R4")), "323") << "the two that hold, and the row that no test touches";
    EXPECT_EQ(States(Trade("1R4").Price(1000)), "1");
    Alarms("0", {});
    EXPECT_EQ(Init(text), 1);
    EXPECT_EQ(States(Trade("1R2").Price(2000)), "1") << "the file is read anew";
}

TEST_F(InterestBoard, FiftyRowsHaveAlarmsAndTwoHundredARow) {
    const std::string always = "decreased price=1\nincreased price=1\n";
    Alarms("0", {{50, always}, {51, always}, {200, always}});
    Rows rows;
    for (int number = 1; number <= 200; ++number) {
        rows.push_back(RowText("1", "R" + std::to_string(number)));
    }
    Open(Inquiry(rows));
    EXPECT_EQ(States(Trade("1R200"), Trade("1R51"), Trade("1R50")), "311");
    rows.push_back(RowText("1", "R201"));
    EXPECT_EQ(Init(Inquiry(rows)), 0);
}

TEST_F(InterestBoard, AnotherInquiryForgetsTheChangesAndARefusedOneAsksForNothing) {
    Open(Inquiry({RowText(" ", "AAAA"), RowText(" ", "BBBB")}));
    Feed(Trade("1AAAA"));
    Told();
    EXPECT_EQ(Init(Inquiry({})) + Init(Inquiry({RowText(" ", "BBBB")}, "177")), 0);
    EXPECT_EQ(Told(), Events{});
    EXPECT_EQ(Init(Inquiry({RowText(" ", "BBBB")})), 1);
    EXPECT_TRUE(Silent());
}

}  // namespace
