#include "module/layouts/RSNOCH21.h"
#include "tests/module/decoders/orders/orders_fixture.h"
#include "tests/support/scratch_folder.h"

namespace {

struct OpenOrders : OrderScreen {
    OpenOrders() : OrderScreen("RSNOCH21_R") {}
};

TEST_F(OpenOrders, ANewOrderComesInFillsAndLeaves) {
    Open(OrdersInquiry());
    EXPECT_EQ(Told(), Events{}) << "nothing is subscribed to";
    Feed(Notice("0000001").Time("090001").Board("TN").Side('2').Price("  1000"));
    Expect("O1   2 171                U  -12" + std::string(165, ' ') +
           "090001Astra       ASII        4 01TN     1000                     100" + std::string(42, ' ') +
           "100TRADER01            Open                0000001" + std::string(10, ' '));
    EXPECT_EQ(Told(), (Events{"view", "list"}));

    Feed(Filled("0000001", 30, "995"), Filled("0000001", 30, "990"));
    EXPECT_EQ(Told(), (Events{"list", "list"}));
    ExpectedRow row = ExpectedRow("0000001").At("090001").Price("  1000").Board("TN", '1').Side("4", '0');
    ExpectChanged({row.Filled("60", "990").Open("40").Status("Partial")});
    Feed(Filled("0000001", 40, "990"));
    ExpectDeleted(0);
    EXPECT_TRUE(Silent()) << "no update of a row that has gone";
}

TEST_F(OpenOrders, AnAmendmentTakesFromItsParentAndReplacesIt) {
    OpenWith({ExpectedRow("0000001").Open("100")});
    Feed(Amendment("0000002", "0000001", 100, '0'));
    ExpectNew(ExpectedRow("0000002").Open("100").Status(kAmendUnconfirmedWord));
    ExpectChanged({ExpectedRow("0000001").NothingOpen()});
    Feed(Amendment("0000002", "0000001", 80, '2'));
    ExpectDeleted(1);
    ExpectChanged({ExpectedRow("0000002").Open("80").Status(kAmendConfirmedWord)});
}

TEST_F(OpenOrders, WhatComesBeforeItsAcceptanceWaitsForIt) {
    Open(OrdersInquiry());
    Feed(Filled("0000001", 30, "995"), Filled("0000009", 1, "1"));
    Feed(Notice("0000001").Code('1', '0', '1'));  // a sending notice waits without effect
    EXPECT_TRUE(Silent());
    Feed(Accepted("0000001", 100));
    ExpectNew(ExpectedRow("0000001").Open("100"));
    ExpectChanged({ExpectedRow("0000001").Filled("30", "995").Open("70").Status("Partial")});
    Feed(Amendment("0000002", "0000001", 70, '2'));
    ExpectDeleted(0);
    ExpectNew(ExpectedRow("0000002").Ordered("70").Open("70"));
}

TEST_F(OpenOrders, AnAcceptanceOfAListedOrderGoesByItsWord) {
    const std::string refused = "\xC1\xA4\xB0\xC5\xB0\xC5\xBA\xCE";
    ExpectAcceptances({{"Open", kAcceptedWord},
                       {kBeingFilledWord, kBeingFilledWord},
                       {kCancelConfirmedWord, "gone"},
                       {kCancelUnconfirmedWord, kAcceptedWord},
                       {kAcceptanceRefusedWord, "gone"},
                       {refused, refused}});
    OpenWith({ExpectedRow("0000001").Status(kCancelConfirmedWord)});
    Feed(Cancellation("0000001", "", 100, '2'));
    EXPECT_TRUE(Silent()) << "what is confirmed already stays";
}

TEST_F(OpenOrders, NoticesOfOthersAreNotHeard) {
    Open(OrdersInquiry());
    Feed(Notice("0000001").User("TRADER02"), Notice("0000001").Field("ACC002"), Notice("1000001"),
         Notice("0000001").Record("02"));
    EXPECT_EQ(Told(), Events{});
    Feed(Notice("0000001").Result('1'));
    EXPECT_EQ(Told(), Events{"list"}) << "a refused one is dropped, and told all the same";
}

TEST_F(OpenOrders, ANoticesBoardTellsItsUnitAndItsTextsEndAtAZeroByte) {
    const std::tuple<const char*, int64_t, const char*, char> boards[] = {
        {"NG", 99999999999, "99999999999", '0'},
        {"NGX", -7, "-7", '0'},
        {"ADVX", 199, "199", '0'},
        {"TNX", -199, "-1", '1'},
        {"XTN", 199, "1", '0'},
        {"AD", 99, "0", '0'}};
    for (const auto& [board, hundredths, quantity, flag] : boards) {
        Open(OrdersInquiry());
        Feed(Notice("0000001").Board(board).Hundredths(hundredths));
        ExpectNew(ExpectedRow("0000001").Board(board, flag).Ordered(quantity).Open(quantity));
    }
    Feed(Notice("0000002").Text({'A', '\0', 'x'}).Item({'B', '\0', 'x'}).User(Left(kUser, 19) + '\0'));
    ExpectNew(ExpectedRow("0000002").Named("A").Item("B").Open("100"));
}

TEST_F(OpenOrders, TheInquirysRowsGoOutWithTheFirstChange) {
    const std::string first = ExpectedRow("0000005").Open("7").Status("any word");
    const std::string second = ExpectedRow("0000005").Open("8");  // FindRow meets the first
    Open(OrdersInquiry({first, second}));
    EXPECT_TRUE(Silent());
    Feed(Filled("0000005", 7, "1"));
    Expect(Message("D   03", {second}));
    EXPECT_EQ(Init(OrdersInquiry()), 1);
    Feed(Filled("0000005", 1, "1"));
    ExpectChanged({ExpectedRow("0000005").Filled("1", "1").Open("7").Status("Partial")});

    const std::string whole = OrdersInquiry({first, second});
    EXPECT_EQ(Init(whole.substr(0, 9) + "  -1" + whole.substr(13)), 0);
    EXPECT_EQ(Init(whole.substr(0, 9) + "9999" + whole.substr(13)), 0);
    Init(OrdersInquiry());
    Feed(Filled("0000005", 1, "1"));
    EXPECT_TRUE(Silent()) << "a refused inquiry leaves the list empty";
}

TEST_F(OpenOrders, EachMessageStandsInTheLogBeforeItIsSent) {
    const ScratchFolder drive;
    tickhost_set_text("DriveC", drive.Path("not there").c_str());
    const tickhost_time evening{2026, 11, 20, 20, 15, 7, 42};
    tickhost_set_system_time(&evening);
    const std::string head = "[29:15:07:042]    [EndRTMUnpack\xBF\xA1\xBC\xAD]";
    std::string expected;
    // A message stands in pieces of 500 bytes.
    const auto logged = [&](std::string message) {
        expected += head;
        for (; message.size() >= 500; message.erase(0, 500)) {
            expected += message.substr(0, 500) + "\r\n";
        }
        expected += message + "\r\n";
        return drive.Read("logs/RSNOCH21.txt") == expected;
    };

    Open(OrdersInquiry());
    Feed(Accepted("0000005", 100));
    EXPECT_FALSE(m_Screen->Next().empty()) << "a log that cannot be written is no matter";
    tickhost_set_text("DriveC", drive.Path("").c_str());
    std::string whenSent;
    m_Screen->OnNextMessage([&] { whenSent = drive.Read("logs/RSNOCH21.txt"); });
    Feed(Accepted("0000001", 100));
    EXPECT_TRUE(logged(m_Screen->Next().substr(0, 366)));
    EXPECT_EQ(whenSent, expected);
    Feed(Accepted("0000002", 100));
    EXPECT_TRUE(logged(m_Screen->Next().substr(0, 366)));
    Batch(Filled("0000001", 1, "1"), Filled("0000002", 1, "1"));
    EXPECT_TRUE(logged(m_Screen->Next().substr(0, 537)));

    // Nothing behind a zero byte is printed; blanks in front keep the length.
    Feed(Amendment("0000003", "0000001", 99, '0'));
    EXPECT_TRUE(logged(m_Screen->Next().substr(0, 366)));
    EndBatch();
    const std::string cleared = m_Screen->Next();
    const std::size_t zero = cleared.find('\0');
    EXPECT_TRUE(logged(std::string(366 - zero, ' ') + cleared.substr(0, zero)));

    // Wider than what is written at once, and in whole pieces: an empty line ends it.
    EXPECT_EQ(Init(OrdersInquiry(Rows(455, ExpectedRow("0000004").Open("10")))), 1);
    Batch(Filled("0000004", 1, "1"));
    EXPECT_TRUE(logged(m_Screen->Next().substr(0, 195 + 455 * 171)));

    m_Screen->CloseWindow();
    Feed(Accepted("0000006", 100));
    EXPECT_TRUE(logged(Message("U  -12", {ExpectedRow("0000006").Open("100")}).substr(0, 366)));
}

}  // namespace
