#include "tests/module/decoders/orders/orders_fixture.h"

namespace {

// Channel "00" is a screen's.
ExpectedRow Row(const std::string& orderNo) {
    return ExpectedRow(orderNo).Channel('H');
}

Notice Sending(const std::string& orderNo, int64_t quantity, char action = '1') {
    return Notice(orderNo).Code('1', '0', action).Quantity(quantity);
}

struct FilteredOrders : OrderScreen {
    FilteredOrders() : OrderScreen("RSORDE22_R") {}
};

TEST_F(FilteredOrders, AnOrderIsFollowedFromItsSendingWithItsAveragePrice) {
    const auto row = [](const std::string& open) {
        return Row("0000001").Named("Accepted").Channel('T').Ordered("300").Open(open);
    };
    Open(FilteredInquiry());
    Feed(Sending("0000001", 300), Sending("0000001", 300));
    ExpectNew(Row("0000001").Ordered("300").Open("300").Status("Sending"));
    Feed(Accepted("0000001", 300).Text("Accepted").Channel("T1"));
    ExpectChanged({row("300")});
    Feed(Filled("0000001", 0, "10"));
    ExpectChanged({row("300").Filled("0", "")});
    Feed(Filled("0000001", 100, "10"), Filled("0000001", 100, "20"));
    ExpectChanged({row("100").Filled("200", Right("15", 15)).Status("Partial")});
    Feed(Filled("0000001", 100, "21"));
    ExpectChanged({row("0").Filled("300", Right("17", 15)).Status("Done")});
    Feed(Filled("0000001", 300, "1000"));  // 508.5
    ExpectChanged({row("0").Filled("300", Right("508", 15)).Status("")});
    EXPECT_EQ(Init(FilteredInquiry()), 1);
    Feed(Filled("0000001", 300, "1000"));
    EXPECT_TRUE(Silent()) << "an inquiry between makes it no other notice";
    EXPECT_EQ(Told(), Events(6, "view")) << "this list never tells that it has changed";
}

TEST_F(FilteredOrders, AnAmendmentMakesItsRowWithItsConfirmation) {
    Open(FilteredInquiry().With(Row("0000001").Open("100")));
    m_Screen->Next();
    Feed(Sending("0000002", 80, '2').Parent("0000001"));
    EXPECT_TRUE(Silent());
    Feed(Amendment("0000002", "0000001", 80, '2'));
    ExpectNew(Row("0000002").Ordered("80").Open("80"));
    ExpectChanged({Row("0000001").Open("0").Status("Amended")});
}

TEST_F(FilteredOrders, FiltersKeepNoticesOut) {
    const auto passes = [this](const FilteredInquiry& filter, const Notice& notice) {
        Open(filter);
        Feed(notice);
        return !m_Screen->Empty();
    };
    const auto notice = [] { return Sending("0000001", 1); };
    for (const auto& [filter, in, out] : std::vector<std::tuple<FilteredInquiry, Notice, Notice>>{
             {FilteredInquiry().Code("ASII"), notice(), notice().Item("ASIIX")},
             {FilteredInquiry().Code("All ASII"), notice().Item("BBCA"), notice().Record("00")},
             {FilteredInquiry().Group("GRP1"), notice().Group("GRP1"), notice().Group("GRP11")},
             {FilteredInquiry().Group("      X"), notice(), notice().User("TRADER02")},
             {FilteredInquiry().Side('1'), notice().Side('3'), notice().Side('2')},
             {FilteredInquiry().Side('0'), notice().Side('2'), notice()},
             {FilteredInquiry().Side('5'), notice().Side('3'), notice().Side('2')},
             {FilteredInquiry().Board("NG"), notice().Board("ADV"), notice()},
             {FilteredInquiry().Board("RG"), notice().Board("R"), notice().Board("RG2")}}) {
        EXPECT_TRUE(passes(filter, in)) << std::string(filter);
        EXPECT_FALSE(passes(filter, out)) << std::string(filter);
    }
}

TEST_F(FilteredOrders, LotsAndChannelsHaveTheirOwnRules) {
    const auto figures = [this](const Notice& notice) {
        Open(FilteredInquiry());
        Feed(notice);
        const std::string row = m_Screen->Next().substr(sizeof(OrderMessage));
        return row.substr(54, 15) + row.substr(161, 1);
    };
    EXPECT_EQ(figures(Sending("0000001", 12).Lot("0")), Right("1200", 15) + "H");
    EXPECT_EQ(figures(Sending("0000001", 12).Lot("  500").Channel("M4")), Right("2", 15) + "H");
    EXPECT_EQ(figures(Sending("0000001", 999999999).Lot("1").Channel("M3")), Right("99999999900", 15) + "M");
    const auto mark = [&](const std::string& user, const std::string& grade) {
        tickhost_set_text("UserID", user.c_str());
        tickhost_set_text("MenuGrade", grade.c_str());
        return figures(Sending("0000001", 1).Channel("03").User(user)).substr(15);
    };
    EXPECT_EQ(mark("3BRANCH", "1") + mark("3BRANCH", "21") + mark("TRADER3", "1"), "WDD");
}

TEST_F(FilteredOrders, AnActionThatTurnsLeavesABlankTail) {
    const std::string shown = Row("0000001").Open("10").Status("Partial");
    Open(FilteredInquiry().Status('4').With(shown).With(Row("0000002").Open("10")));
    Expect(Message("U  -10", {shown}));
    Batch(Filled("0000001", 1, "7"), Filled("0000002", 1, "7"));
    const std::string promoted = Row("0000002").Open("9").Filled("1", Right("7", 15)).Status("Partial");
    Expect(Message("U  -12", {promoted}) + std::string(171, ' '));
    EXPECT_TRUE(Silent()) << "what was counted but not sent waits";
}

TEST_F(FilteredOrders, ShownRowsThatLeaveTheFilterAreWithdrawnFromTheBottom) {
    const auto partial = [](const std::string& number) {
        return Row(number).Open("10").Filled("90", "7").Status("Partial");
    };
    const auto done = [](const std::string& number) {
        return Row(number).Open("0").Filled("100", Right("7", 15)).Status("Done");
    };
    for (const char filter : {'1', '4'}) {
        FilteredInquiry inquiry = FilteredInquiry().Status(filter).With(partial("0000001"));
        Open(inquiry.With(done("0000002")).With(partial("0000003")));
        Expect(Message("U  -10", {partial("0000001"), partial("0000003")}));
        Feed(Filled("0000003", 10, "7"), Filled("0000001", 10, "7"));
        ExpectChanged({done("0000001"), done("0000003")});
        ExpectDeleted(1);
        ExpectDeleted(0);
        Feed(Filled("0000001", 1, "7"));
        EXPECT_TRUE(Silent()) << "the view no longer has it";
    }
}

}  // namespace
