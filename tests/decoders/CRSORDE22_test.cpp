#include "layouts/RSORDE22.h"
#include "tests/decoders/orders_fixture.h"

namespace {

// The filters of the inquiry; blank lets everything through, and so does '0' for the status.
class Inquiry {
public:
    Inquiry() { FillBlank(m_Init), Fill(m_Init.UserField, kUserField), Status('0'); }
    Inquiry& Group(const std::string& filter) { return Fill(m_Init.GroupFilter, filter), *this; }
    Inquiry& Code(const std::string& filter) { return Fill(m_Init.CodeFilter, filter), *this; }
    Inquiry& Status(char filter) { return m_Init.StatusFilter = filter, *this; }
    Inquiry& Side(char filter) { return m_Init.SideFilter = filter, *this; }
    Inquiry& Board(const std::string& filter) { return Fill(m_Init.BoardFilter, filter), *this; }
    Inquiry& With(const std::string& row) { return m_Rows.push_back(row), *this; }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        FilteredOrdersInit init = m_Init;
        Fill(init.Repeat.Count, Right(std::to_string(m_Rows.size()), 4));
        return "O1" + Text(init) + Joined(m_Rows);
    }

private:
    FilteredOrdersInit m_Init;
    Rows m_Rows;
};

// Channel "00" is a screen's.
ExpectedRow Row(const std::string& orderNo) {
    return ExpectedRow(orderNo).Channel('H');
}

Notice Sending(const std::string& orderNo, int64_t quantity, char action = '1') {
    return Notice(orderNo).Code('1', '0', action).Quantity(quantity);
}

std::string Average(const std::string& price) {
    return Right(price, 15);
}

class FilteredOrders : public OrderScreen {
protected:
    FilteredOrders() : OrderScreen("RSORDE22_R") {}
};

TEST_F(FilteredOrders, AnOrderIsFollowedFromItsSendingWithItsAveragePrice) {
    const auto row = [](const std::string& open) {
        return Row("0000001").Named("Accepted").Channel('T').Ordered("300").Open(open);
    };
    Open(Inquiry());
    Feed(Sending("0000001", 300));
    ExpectNew(Row("0000001").Ordered("300").Open("300").Status("Sending"));
    Feed(Accepted("0000001", 300).Text("Accepted").Channel("T1"));
    ExpectChanged({row("300")});
    Feed(Accepted("0000001", 300).Text("Again"));
    EXPECT_TRUE(Silent()) << "not in transit any more";

    Feed(Filled("0000001", 0, "10"));
    ExpectChanged({row("300").Filled("0", "")});
    Feed(Filled("0000001", 100, "10"), Filled("0000001", 100, "20"));
    ExpectChanged({row("100").Filled("200", Average("15")).Status("Partial")});
    Feed(Filled("0000001", 100, "21"));
    ExpectChanged({row("0").Filled("300", Average("17")).Status("Done")});
    Feed(Filled("0000001", 300, "1000"));  // 508.5
    ExpectChanged({row("0").Filled("300", Average("508")).Status("")});
    EXPECT_EQ(Told(), Events(6, "view")) << "this list never tells that it has changed";
}

TEST_F(FilteredOrders, AnAmendmentMakesItsRowWithItsConfirmation) {
    Open(Inquiry());
    Feed(Sending("0000001", 100), Accepted("0000001", 100));
    Skip();
    Feed(Sending("0000002", 80, '2').Parent("0000001"), Amendment("0000002", "0000001", 80, '0'));
    EXPECT_TRUE(Silent());
    const auto amended = [] { return Row("0000002").Ordered("80").Open("80"); };
    Feed(Amendment("0000002", "0000001", 80, '2'));
    ExpectNew(amended());
    ExpectChanged({Row("0000001").Open("0").Status("Amended")});
    Feed(Amendment("0000002", "0000001", 80, '2').Time("090001"));
    ExpectChanged({Row("0000001").Open("0").Status("Amended")});

    Feed(Sending("0000003", 80, '3').Parent("0000002"), Cancellation("0000003", "0000002", 80, '2'));
    ExpectChanged({amended().Open("0").Status("Withdrawn")});
    Feed(Cancellation("0000003", "0000002", 80, '2').Time("090001"));
    Feed(Amendment("0000004", "0000002", 80, '2'), Notice("0000004").Parent("0000002"));
    EXPECT_TRUE(Silent()) << "a withdrawn order stays so";
    Feed(Filled("0000004", 5, "7").Parent("0000002"));
    ExpectChanged({amended().Open("0").Filled("5", Average("7")).Status("")});
}

TEST_F(FilteredOrders, OrdersWithoutParentShowWhatIsKnown) {
    Open(Inquiry());
    const auto row = [](const std::string& number, const std::string& status) {
        return Row(number).Status(status);
    };
    for (const auto& [notice, shown] : std::vector<std::pair<Notice, ExpectedRow>>{
             {Sending("0000001", 100, '2'), row("0000001", "Amending").Open("100")},
             {Sending("0000002", 100, '3'), row("0000002", "Withdrawing")},
             {Accepted("0000003", 100), row("0000003", "Open").Open("100")},
             {Amendment("0000004", "0000009", 100, '2'), row("0000004", "Open").Open("100")},
             {Cancellation("0000005", "0000009", 100, '2'), row("0000005", "Withdrawn")},
             {Amendment("0000006", "0000009", 100, '0'), row("0000006", "")},
             {Notice("0000007").Result('1'), row("0000007", "Reject")}}) {
        Feed(notice);
        ExpectNew(shown);
    }
    Feed(Notice("0000003").Result('1'), Amendment("0000001", "0000009", 100, '2'));
    Feed(Cancellation("0000002", "0000009", 100, '2'));
    ExpectChanged({row("0000003", "Reject").Open("0"), row("0000002", "Withdrawn"),
                   row("0000001", "Open").Open("100")});
}

TEST_F(FilteredOrders, AFillWithoutItsOrderShowsAndWaits) {
    Open(Inquiry());
    Feed(Filled("0000001", 30, "995"));
    ExpectNew(Row("0000001").Price("").Ordered("").Filled("30", "995").Status("Partial"));
    Feed(Sending("0000001", 100));
    ExpectNew(Row("0000001").Open("100").Status("Sending"));
    ExpectChanged({Row("0000001").Open("70").Filled("30", Average("995")).Status("Partial")});
}

TEST_F(FilteredOrders, FiltersKeepNoticesOut) {
    struct Case {
        Inquiry Filter;
        std::vector<Notice> In;
        std::vector<Notice> Out;
    };
    const auto notice = [] { return Sending("0000001", 1); };
    for (const Case& c : std::vector<Case>{
             {Inquiry().Code("ASII"), {notice()}, {notice().Item("ASIIX"), notice().Item("ASI")}},
             {Inquiry().Code("All ASII"), {notice().Item("BBCA")}, {}},
             {Inquiry().Code("ALL").Board("ALL"), {notice().Item("BBCA").Board("TN")}, {}},
             {Inquiry().Code("AllX"), {}, {notice()}},
             {Inquiry().Group("GRP1"), {notice().Group("GRP1")}, {notice(), notice().Group("GRP11")}},
             {Inquiry().Group("      X"), {notice()}, {}},
             {Inquiry().Side('1'), {notice(), notice().Side('3')}, {notice().Side('2')}},
             {Inquiry().Side('0'), {notice().Side('2'), notice().Side('3')}, {notice()}},
             {Inquiry().Side('2'), {notice(), notice().Side('2')}, {}},
             {Inquiry().Side('5'), {notice().Side('3')}, {notice(), notice().Side('2')}},
             {Inquiry().Board("NG"), {notice().Board("ADV"), notice().Board("")}, {notice()}},
             {Inquiry().Board("RG"), {notice(), notice().Board("R")}, {notice().Board("RG2")}},
             {Inquiry(), {}, {notice().User("TRADER02"), notice().Field("ACC002"), notice().Record("00")}}}) {
        for (const Notice& in : c.In) {
            Open(c.Filter);
            Feed(in);
            EXPECT_FALSE(m_Screen->Empty()) << std::string(c.Filter);
        }
        Open(c.Filter);
        for (const Notice& out : c.Out) {
            Feed(out);
            EXPECT_TRUE(m_Screen->Empty()) << std::string(c.Filter) << out.Bytes();
        }
    }
}

TEST_F(FilteredOrders, LotsAndChannelsHaveTheirOwnRules) {
    const auto figures = [this](const Notice& notice) {
        Open(Inquiry());
        Feed(notice);
        const std::string row = m_Screen->Next().substr(197);
        return row.substr(54, 15) + row.substr(161, 1);
    };
    EXPECT_EQ(figures(Sending("0000001", 12).Lot("0")), Right("1200", 15) + "H");
    EXPECT_EQ(figures(Sending("0000001", 12).Lot("  500").Channel("33")), Right("2", 15) + "H");
    EXPECT_EQ(figures(Sending("0000001", 999999999).Lot("1").Channel("M3")), Right("99999999900", 15) + "M");
    for (const auto& [code, mark] : std::vector<std::pair<std::string, std::string>>{
             {"M1", "M"}, {"M4", "H"}, {"00", "D"}, {"03", "D"}, {"21", "A"}, {"T1", "T"}, {"", "H"}}) {
        EXPECT_EQ(figures(Sending("0000001", 1).Channel(code)).substr(15), mark) << code;
    }
    tickhost_set_text("MenuGrade", "1");
    EXPECT_EQ(figures(Sending("0000001", 1).Channel("03")).substr(15), "D");
    tickhost_set_text("UserID", "3BRANCH");
    EXPECT_EQ(figures(Sending("0000001", 1).Channel("03").User("3BRANCH")).substr(15), "W");
}

TEST_F(FilteredOrders, TheFirstMessageHasTheInquirysRowsThatPass) {
    const std::string open = Row("0000001").Open("10");
    const std::string done = Row("0000002").Status("Done");
    Open(Inquiry().Status('1').With(open).With(done));
    Expect(Message("U  -10", {open}));
    Open(Inquiry().Status('3').With(open).With(done));
    Open(Inquiry().Status('1'));
    EXPECT_TRUE(Silent()) << "no row, no message";
    Open(Inquiry().Status('7').With(open).With(done));
    Expect(Message("U  -10", {open, done}));

    const std::string whole = Inquiry().With(open);
    m_Screen->RefusesEveryCutOf(whole);
    EXPECT_EQ(Init(whole + " "), 0);
    std::string negative = Inquiry();
    negative.replace(2 + offsetof(FilteredOrdersInit, Repeat), 4, "  -1");
    EXPECT_EQ(Init(negative), 0);
    EXPECT_EQ(Init(Inquiry()), 1);
    Feed(Filled("0000002", 1, "1"));
    EXPECT_EQ(m_Screen->Next().substr(27, 5), "  -12") << "a refused inquiry has emptied the list";
}

TEST_F(FilteredOrders, ARowThatComesIntoTheFilterIsNewToTheView) {
    Open(Inquiry().Status('2'));
    for (const char* number : {"0000001", "0000002", "0000003"}) {
        Feed(Sending(number, 100));
        EXPECT_TRUE(m_Screen->Empty());
    }
    Batch(Filled("0000002", 100, "7"));
    const auto done = [](const std::string& number) {
        return Row(number).Open("0").Filled("100", Average("7")).Status("Done");
    };
    ExpectNew(done("0000002"));
    Feed(Filled("0000001", 100, "7"));
    Feed(Filled("0000002", 100, "7"));  // filled beyond: it leaves the filter, which withdraws nothing
    Batch(Filled("0000003", 100, "7"));
    ExpectNew(done("0000003"));
    EXPECT_TRUE(Silent()) << "the next one waits for another change";
    Batch(Sending("0000004", 1));
    ExpectNew(done("0000001"));
}

TEST_F(FilteredOrders, AnActionThatTurnsLeavesABlankTail) {
    const std::string shown = Row("0000001").Open("10").Status("Partial");
    Open(Inquiry().Status('4').With(shown).With(Row("0000002").Open("10")));
    Expect(Message("U  -10", {shown}));
    Batch(Filled("0000001", 1, "7"), Filled("0000002", 1, "7"));
    const std::string promoted = Row("0000002").Open("9").Filled("1", Average("7")).Status("Partial");
    Expect(Message("U  -12", {promoted}) + std::string(171, ' '));
    Feed(Filled("0000009", 1, "7").Board("XX").User("TRADER02"));
    EXPECT_TRUE(Silent()) << "what was counted but not sent waits";
}

TEST_F(FilteredOrders, ShownRowsThatLeaveTheFilterAreWithdrawn) {
    const auto partial = [](const std::string& number) {
        return Row(number).Open("10").Filled("90", "7").Status("Partial");
    };
    const auto done = [](const std::string& number) {
        return Row(number).Open("0").Filled("100", Average("7")).Status("Done");
    };
    for (const char filter : {'1', '4'}) {
        Inquiry inquiry = Inquiry().Status(filter).With(partial("0000001")).With(done("0000002"));
        Open(inquiry.With(partial("0000003")).With(partial("0000004")));
        Expect(Message("U  -10", {partial("0000001"), partial("0000003"), partial("0000004")}));
        Feed(Filled("0000003", 10, "7"), Filled("0000001", 10, "7"));
        ExpectChanged({done("0000001"), done("0000003")});
        ExpectDeleted(1);
        ExpectDeleted(0);
        Feed(Filled("0000001", 1, "7"));
        EXPECT_TRUE(Silent()) << "the view no longer has it";
    }
}

TEST_F(FilteredOrders, AWindowMayStopTheListFromWithinItsMessage) {
    Open(Inquiry().Status('1').With(Row("0000001").Open("10")).With(Row("0000002").Open("10")));
    m_Screen->Next();
    Feed(Filled("0000001", 10, "7"), Filled("0000002", 10, "7"));
    m_Screen->OnNextMessage([&] { m_Screen->Stop(); });
    EndBatch();
    EXPECT_EQ(Told(), (Events{"view", "view"})) << "the first messages; no deletions of a list that is gone";
}

}  // namespace
