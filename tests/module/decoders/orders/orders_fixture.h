// One order screen of our user.
#ifndef TICKMUX_TESTS_MODULE_DECODERS_ORDERS_ORDERS_FIXTURE_H
#define TICKMUX_TESTS_MODULE_DECODERS_ORDERS_ORDERS_FIXTURE_H

#include "tests/support/orders.h"
#include "tests/support/terminal.h"

struct OrderScreen : ScreenTest {
    explicit OrderScreen(const std::string& map) : ScreenTest(map) { tickhost_set_text("UserID", kUser); }

    // The inquiry's rows have gone out already.
    void OpenWith(const Rows& rows) {
        Open(OrdersInquiry(rows));
        Feed(Filled("0999999", 1, "1"));
        Skip();
    }
    void Expect(const std::string& message) {
        EXPECT_TRUE((ShowsRows<OrderMessage, OrderRow>(m_Screen->Next(), message)));
    }
    void ExpectNew(const std::string& row) { Expect(Message("U  -12", {row})); }
    void ExpectChanged(const Rows& rows) {
        EndBatch();
        Expect(Message("U  -13", rows));
    }
    void ExpectDeleted(int place) { Expect(Message("D" + Right(std::to_string(place), 4) + "3", {})); }
    // Of a listed order, by its word: the word behind it, or "gone".
    void ExpectAcceptances(const std::vector<std::pair<std::string, std::string>>& words) {
        for (const auto& [before, after] : words) {
            OpenWith({ExpectedRow("0000001").Status(before)});
            Feed(Accepted("0000001", 100));
            if (after == "gone") {
                ExpectDeleted(0);
            } else if (after != before) {
                ExpectChanged({ExpectedRow("0000001").Status(after)});
            }
            EXPECT_TRUE(Silent()) << before;
        }
    }
    // Messages that are not what the test is about.
    void Skip() {
        while (!Silent()) {
            m_Screen->Next();
        }
        Told();
    }
};

#endif
