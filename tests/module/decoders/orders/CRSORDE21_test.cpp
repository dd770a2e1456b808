// What the order list does otherwise than the open orders.

#include "tests/module/decoders/orders/orders_fixture.h"

namespace {

struct OrderList : OrderScreen {
    OrderList() : OrderScreen("RSORDE21_R") {}
};

TEST_F(OrderList, ANoticeThatIsRepeatedCountsOnce) {
    OpenWith({ExpectedRow("0000001").Open("100")});
    // Up to a zero byte; the quantity stands behind it.
    const auto fill = [](int64_t quantity) { return Filled("0000001", quantity, "1000").Item({'A', '\0'}); };
    Feed(fill(10), fill(20));
    EXPECT_EQ(Told(), Events{"list"});
    Feed(Notice("0000001").User("TRADER02"), fill(10));
    EXPECT_EQ(Told(), Events{"list"}) << "another user's notice came between";
    EXPECT_EQ(Init("O1ACC0010" + Block("-1", "171")), 0);
    EXPECT_EQ(Init(OrdersInquiry().substr(0, 32)), 1) << "without rows the last reserved byte may be missing";
    Feed(fill(10));
    EXPECT_EQ(Told(), Events{}) << "an inquiry between makes it no other";
    ExpectChanged({ExpectedRow("0000001").Filled("20", "1000").Open("80").Status("Partial")});
    Feed(Notice("1000001").Field(kUserField));
    EXPECT_FALSE(Silent()) << "the order number is no part of the key";
}

TEST_F(OrderList, AnAcceptanceOfAListedOrderGoesByItsWord) {
    const std::string refused = kAcceptanceRefusedWord;
    ExpectAcceptances(
        {{kCancelConfirmedWord, kCancelConfirmedWord}, {refused, refused}, {refused + "X", kAcceptedWord}});
}

TEST_F(OrderList, AConfirmedAmendmentLeavesItsParentAWordByItsFigures) {
    const std::array<std::string, 4> parents[] = {{"0", "9", kBeingSentWord, kAmendUnconfirmedWord},
                                                  {"4", "0", "Open", kFillingCompleteWord},
                                                  {"4", "-5", "Open", ""},
                                                  {"-1", "9", "Open", ""}};
    for (const auto& [filled, open, before, after] : parents) {
        ExpectedRow parent = ExpectedRow("0000001").Filled(filled, "9").Open(open).Status(before);
        OpenWith({ExpectedRow("0000002"), parent});
        Feed(Amendment("0000002", "0000001", 80, '2'));
        ExpectChanged({ExpectedRow("0000002").Open("80"), parent.Status(after)});
    }
}

TEST_F(OrderList, RefusalsShowButThatOfAnAcceptance) {
    OpenWith({ExpectedRow("0000001").Open("100")});
    Feed(Notice("0000001").Result('1'));
    EXPECT_TRUE(Silent());
    Feed(Notice("0000001").Code('2', '1', '1').Result('1'));
    ExpectChanged({ExpectedRow("0000001").Open("100").Status("Reject")});
    Feed(Notice("0000002").Code('2', '2', '1').Result('1'));
    ExpectNew(ExpectedRow("0000002").Status("Reject"));
}

TEST_F(OrderList, AConfirmationBeforeItsAcceptanceClosesTheParentAtOnce) {
    OpenWith({ExpectedRow("0000001").Open("60").Filled("40", "9"), ExpectedRow("0000005").Open("100")});
    Feed(Cancellation("0000002", "0000001", 60, '2'));
    Expect(Message("U   03", {ExpectedRow("0000001").Open("0").Filled("40", "9").Status("Partial")}));
    Feed(Cancellation("0000006", "0000005", 100, '2'));
    Expect(Message("U   13", {ExpectedRow("0000005").Open("0").Status("Withdrawn")}));
}

}  // namespace
