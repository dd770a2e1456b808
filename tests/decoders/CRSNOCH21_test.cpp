#include "layouts/RSNOCH21.h"
#include "tests/decoders/orders_fixture.h"
#include "tests/support/scratch_folder.h"

namespace {

class OpenOrders : public OrderScreen {
protected:
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

TEST_F(OpenOrders, DeletionsTellThePlaceAndBringChangedRows) {
    Open(OrdersInquiry());
    for (const char* number : {"0000001", "0000002", "0000003"}) {
        Feed(Accepted(number, 100));
    }
    Skip();
    Feed(Filled("0000001", 10, "1000"), Filled("0000002", 1, "1000"), Filled("0000003", 10, "1000"));
    Feed(Filled("0000002", 150, "1000"));  // above what is open; its own change leaves with it
    ExpectDeleted(1, {ExpectedRow("0000003").Filled("10", "1000").Open("90").Status("Partial"),
                      ExpectedRow("0000001").Filled("10", "1000").Open("90").Status("Partial")});
    Feed(Filled("0000001", 90, "1000"));
    ExpectDeleted(1);
    Feed(Notice("0000003").Code('2', '2', '4'));
    ExpectDeleted(0);
    EXPECT_TRUE(Silent());
}

TEST_F(OpenOrders, AnAmendmentTakesFromItsParentAndReplacesIt) {
    Open(OrdersInquiry());
    Feed(Accepted("0000001", 100));
    Skip();
    Feed(Amendment("0000002", "0000001", 100, '0'));
    ExpectNew(ExpectedRow("0000002").Open("100").Status(kAmendUnconfirmedWord));
    ExpectChanged({ExpectedRow("0000001").NothingOpen()});
    Feed(Amendment("0000002", "0000001", 80, '2'));
    ExpectDeleted(1);
    ExpectChanged({ExpectedRow("0000002").Open("80").Status(kAmendConfirmedWord)});
    Feed(Amendment("0000002", "0000001", 80, '2'));
    EXPECT_TRUE(Silent());
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
    Feed(Amendment("0000002", "0000001", 70, '0'));  // the word is "Open": the kind rule; then the parked one
    ExpectChanged({ExpectedRow("0000002").Ordered("70").Open("70").Status(kAmendConfirmedWord)});
}

TEST_F(OpenOrders, AnAcceptanceOfAListedOrderGoesByItsWord) {
    const std::string refused = "\xC1\xA4\xB0\xC5\xB0\xC5\xBA\xCE";
    const std::pair<std::string, std::string> words[] = {
        {"Open", kAcceptedWord},          {kBeingFilledWord, kBeingFilledWord},
        {kCancelConfirmedWord, "gone"},   {kCancelUnconfirmedWord, kAcceptedWord},
        {kAcceptanceRefusedWord, "gone"}, {refused, refused}};
    for (const auto& [before, after] : words) {
        Open(OrdersInquiry({ExpectedRow("0000001").Status(before)}));
        Feed(Filled("0000009", 1, "1"));
        Skip();
        Feed(Accepted("0000001", 100));
        if (after == "gone") {
            ExpectDeleted(0);
        } else if (after != before) {
            ExpectChanged({ExpectedRow("0000001").Status(after)});
        }
        EXPECT_TRUE(Silent()) << before;
    }
}

TEST_F(OpenOrders, NoticesOfOthersAreNotHeard) {
    Open(OrdersInquiry());
    Feed(Notice("0000001").User("TRADER02"), Notice("0000001").Field("ACC002"), Notice("1000001"),
         Notice("0000001").Record("02"));
    EXPECT_EQ(Told(), Events{});
    Feed(Notice("0000001").Result('1'));
    EXPECT_EQ(Told(), Events{"list"}) << "a refused one is dropped, and told all the same";
    Feed(Notice("0000001").Board("NG").Quantity(999999999));
    EXPECT_EQ(m_Screen->Next().substr(197 + 54, 15), "    99999999900")
        << "whole units on NG, wider than 32 bits";
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
    for (const char* count : {"  -1", "9999"}) {
        EXPECT_EQ(Init(whole.substr(0, 9) + count + whole.substr(13)), 0);
    }
    Init(OrdersInquiry());
    Feed(Filled("0000005", 1, "1"));
    EXPECT_TRUE(Silent()) << "a refused inquiry leaves the list empty";
}

TEST_F(OpenOrders, ThePlacesOfALongListStayRight) {
    Open(OrdersInquiry());
    std::vector<int> list;  // top first
    for (int i = 1; i <= 400; ++i) {
        Feed(Accepted("0" + std::to_string(100000 + i), 100));
        list.insert(list.begin(), 100000 + i);
        if (i % 3 != 0) {
            const auto place = static_cast<std::size_t>(i * 7919) % list.size();
            Skip();
            Feed(Filled("0" + std::to_string(list[place]), 100, "1"));
            EXPECT_EQ(m_Screen->Next().substr(27, 4), Right(std::to_string(place), 4));
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(place));
        }
    }
    Skip();
    Rows left;
    for (const int number : list) {
        Feed(Filled("0" + std::to_string(number), 1, "1"));
        left.push_back(
            ExpectedRow("0" + std::to_string(number)).Filled("1", "1").Open("99").Status("Partial"));
    }
    ExpectChanged(left);
}

TEST_F(OpenOrders, AWindowMayStopTheListFromWithinItsMessage) {
    Open(OrdersInquiry({ExpectedRow("0000001"), ExpectedRow("0000002").Open("100")}));
    m_Screen->OnNextMessage([&] { m_Screen->Stop(); });
    Feed(Cancellation("0000002", "0000001", 100, '2'));
    EXPECT_EQ(Init(OrdersInquiry()), 1);
    Skip();
    Feed(Filled("0000001", 1, "1"));
    EXPECT_TRUE(Silent());
}

TEST_F(OpenOrders, EachMessageStandsInTheLogBeforeItIsSent) {
    auto drive = std::make_unique<ScratchFolder>();
    tickhost_set_text("DriveC", drive->Path("").c_str());
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
        return drive->Read("logs/RSNOCH21.txt") == expected;
    };

    Open(OrdersInquiry());
    std::string whenSent;
    m_Screen->OnNextMessage([&] { whenSent = drive->Read("logs/RSNOCH21.txt"); });
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

    drive.reset();
    Feed(Accepted("0000005", 100));
    EXPECT_FALSE(m_Screen->Next().empty()) << "a log that cannot be written is no matter";
}

}  // namespace
