#include "module/layouts/RSITST01.h"
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

struct InterestBoard : ScreenTest {
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
    Expect<PlainRows, InterestRow>("I1", {second, third});
    EXPECT_TRUE(Silent());
}

TEST_F(InterestBoard, AlarmStatesFollowTheConditionOfTheirRow) {
    const std::string limits = "decreased price=1100\nincreased price=900\n";
    Alarms("1", {{1, limits},
                 {2, "comparison=2\nprice=1\nBasis price=10000\ndecreased price=5\n"},
                 {3, "price=2\nVolume=500.5\n"},
                 {4, limits},
                 {5, "decreased price=1100\nincreased price=0.9\n"},
                 {6, "decreased price=0.9\nincreased price=900\n"},
                 {7, "price=1\ndecreased price=5\nVolume=900\n"}});
    // In state 1 they would be tested at once.
    const std::string inquiry =
        Inquiry({RowText("2", "R1"), RowText("2", "R2"), RowText("2", "R3"), RowText("3", "R4"),
                 RowText("2", "R5"), RowText("2", "R6"), RowText("2", "R7")});
    Open(inquiry);
    const auto state = [this](const std::string& code, int32_t price, int32_t best2, int32_t volume) {
        return States(Trade("1" + code).Price(price).Best(0, best2).TotalVolume(volume));
    };
    std::string seen;
    for (const int32_t price : {1099, 1100, 901, 900, 1000}) {
        seen += state("R1", price, 0, 0);
    }
    EXPECT_EQ(seen, "12121") << "two prices";
    EXPECT_EQ(state("R2", 0, 10499, 0) + state("R2", 0, 1, 0) + state("R2", 0, 10500, 0), "112")
        << "per cent of the basis; -1 is no lower bound";
    EXPECT_EQ(state("R3", 1, 1, 500) + state("R3", 1, 1, 501), "12") << "volume alone";
    EXPECT_EQ(state("R4", 2000, 0, 0), "1") << "a row that came silent has no record";
    EXPECT_EQ(state("R5", 1100, 0, 0) + state("R6", 900, 0, 0), "11") << "one limit switches the other off";
    EXPECT_EQ(state("R7", 1000, 0, 899) + state("R7", 1, 0, 900), "12") << "without a basis volume alone";
    Alarms("0", {{1, limits}});
    EXPECT_EQ(Init(inquiry), 1);
    EXPECT_EQ(state("R1", 1100, 0, 0) + state("R3", 1, 1, 501), "31") << "sound and alarms are read anew";
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
    EXPECT_EQ(Init(Inquiry(rows)) + Init(Inquiry({})) + Init(Inquiry({RowText("1", "R1")}, "177")), 0);
}

}  // namespace
