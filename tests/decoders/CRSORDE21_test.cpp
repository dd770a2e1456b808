// What the order list does otherwise than the open orders.

#include "tests/decoders/orders_fixture.h"

namespace {

std::string Inquiry(const Rows& rows = {}) {
    return "O1" + std::string(kUserField) + "?" + BlockOf(rows, "171");
}

class OrderList : public OrderScreen {
protected:
    OrderList() : OrderScreen("RSORDE21_R") {}

    // The inquiry's rows have gone out already.
    void OpenWith(const Rows& rows) {
        Open(Inquiry(rows));
        Feed(Filled("0999999", 1, "1"));
        Skip();
    }
};

TEST_F(OrderList, AFilledOrderStaysAsDone) {
    Open(Inquiry());
    Feed(Accepted("0000001", 100));
    Skip();
    Feed(Filled("0000001", 60, "995"), Filled("0000001", 40, "990"));
    ExpectChanged({ExpectedRow("0000001").Filled("100", "990").Open("0").Status("Done")});
    Feed(Filled("0000001", 10, "980"));
    ExpectChanged({ExpectedRow("0000001").Filled("100", "980").Open("0").Status("")});
    Feed(Notice("0000001").Code('2', '2', '4'));
    ExpectChanged({ExpectedRow("0000001").Filled("100", "980").NothingOpen().Status(kCancelConfirmedWord)});
}

TEST_F(OrderList, ANoticeThatIsRepeatedCountsOnce) {
    Open(Inquiry());
    Feed(Accepted("0000001", 100));
    Skip();
    const Notice fill = Filled("0000001", 10, "1000");
    Feed(fill, fill);
    EXPECT_EQ(Told(), Events{"list"});
    Feed(Notice("0000001").User("TRADER02"), fill);
    EXPECT_EQ(Told(), Events{"list"}) << "another user's notice came between";
    ExpectChanged({ExpectedRow("0000001").Filled("20", "1000").Open("80").Status("Partial")});
    Feed(Notice("1000001").Field(kUserField));
    EXPECT_FALSE(Silent()) << "the order number is no part of the key";
}

TEST_F(OrderList, AnAmendmentClosesItsParentByTheParentsFills) {
    const auto parent = [] { return ExpectedRow("0000001"); };
    // As the acceptance of the amendment for 40 finds it, and after its confirmation.
    const std::pair<ExpectedRow, ExpectedRow> parents[] = {
        {parent().Open("100").Status(kBeingSentWord), parent().Open("60").Status(kAmendUnconfirmedWord)},
        {parent().Open("60").Filled("40", "9"),
         parent().Open("20").Filled("40", "9").Status(kBeingFilledWord)},
        {parent().Open("40").Filled("60", "9"),
         parent().NothingOpen().Filled("60", "9").Status(kFillingCompleteWord)}};
    for (const auto& [before, after] : parents) {
        OpenWith({before});
        Feed(Amendment("0000002", "0000001", 40, '0'));
        Skip();
        Feed(Amendment("0000002", "0000001", 40, '2').Board("TN"));
        ExpectChanged({ExpectedRow("0000002").Ordered("40").Open("40").Board("TN", '1'), after});
    }
}

TEST_F(OrderList, AConfirmationBeforeItsAcceptanceClosesTheParentAtOnce) {
    OpenWith({ExpectedRow("0000001").Open("60").Filled("40", "9"), ExpectedRow("0000005").Open("100")});
    Feed(Cancellation("0000002", "0000001", 60, '2'));
    Expect(Message("U   03", {ExpectedRow("0000001").Open("0").Filled("40", "9").Status("Partial")}));
    Feed(Cancellation("0000006", "0000005", 100, '2'));
    Expect(Message("U   13", {ExpectedRow("0000005").Open("0").Status("Withdrawn")}));

    Feed(Cancellation("0000002", "0000001", 60, '0'));
    ExpectNew(ExpectedRow("0000002").Ordered("60").Open("60").Status(kCancelUnconfirmedWord));
    ExpectChanged({ExpectedRow("0000002").Ordered("60").Open("60").Status(kCancelConfirmedWord),
                   ExpectedRow("0000001").NothingOpen().Filled("40", "9").Status(kBeingFilledWord)});
}

TEST_F(OrderList, TheInquiryNeedsItsHeadAndExactlyItsRows) {
    Open(Inquiry({ExpectedRow("0000001")}));
    EXPECT_EQ(Init("O1" + std::string(kUserField) + "?" + Block("-1", "171")), 0);
    EXPECT_EQ(Init(Inquiry().substr(0, 32)), 1) << "without rows the last reserved byte may be missing";
    EXPECT_EQ(Init(Inquiry() + "more"), 1) << "and what follows is not looked at";
}

}  // namespace
