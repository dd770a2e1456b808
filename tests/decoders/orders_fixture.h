// One order screen of our user.
#ifndef TICKMUX_TESTS_DECODERS_ORDERS_FIXTURE_H
#define TICKMUX_TESTS_DECODERS_ORDERS_FIXTURE_H

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/orders.h"
#include "tests/support/terminal.h"

class OrderScreen : public testing::Test {
protected:
    explicit OrderScreen(std::string map) : m_Map(std::move(map)) { tickhost_set_text("UserID", kUser); }

    void Open(const std::string& init) { m_Screen = m_Terminal.Open(m_Map, init); }
    void Feed(const Notice& notice) { m_Terminal.Feed(notice); }
    void EndBatch() { m_Terminal.EndBatch(); }
    void Expect(const std::string& message) {
        EXPECT_TRUE((ShowsRows<OrderMessage, OrderRow>(m_Screen->Next(), message)));
    }
    // Messages that are not what the test is about.
    void Skip() {
        EndBatch();
        while (!m_Screen->Empty()) {
            m_Screen->Next();
        }
        Told();
    }
    bool Silent() {
        EndBatch();
        return m_Screen->Empty();
    }
    std::vector<std::string> Told() {
        tickhost_pump_messages();
        return m_Terminal.Events();
    }

    Terminal m_Terminal;
    std::unique_ptr<Screen> m_Screen;

private:
    std::string m_Map;
};

#endif
