// Do the order notices of a generated session tell lives that orders could have had?
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "tests/tools/sessions.h"
#include "tools/market.h"
#include "tools/text.h"

namespace {

// Follows every notice of a capture with a book of its own.
class LifeAudit {
public:
    void Check(const OrderPacket& notice) {
        const std::string bytes(reinterpret_cast<const char*>(&notice), sizeof(notice));
        if (bytes == m_Last) {
            ++Seen["repeated"];
            return;
        }
        m_Last = bytes;
        const int number = std::stoi(Text(notice.OrderNo));
        SCOPED_TRACE(number);
        const bool scaled = notice.BoardName[0] == 'R' || notice.BoardName[0] == 'T';
        const int64_t quantity = std::stoll(Text(notice.Quantity)) / (scaled ? 100 : 1);
        const std::string event{notice.NoticeKind, notice.OrderState, notice.ResultFlag};
        const std::string terms = Text(notice.UserId) + Text(notice.UserField) + Text(notice.Code) +
                                  notice.Side + Text(notice.ChannelCode) + Text(notice.BoardName) +
                                  Text(notice.LotSize);
        if (event == "100") {
            EXPECT_EQ(number, ++m_nNumber);
            EXPECT_EQ(notice.OrderNo[0], '0');
            m_Orders[number] = {terms, quantity, quantity, std::stoi(Text(notice.ParentOrderNo)),
                                notice.OrderAction};
        }
        Order& order = m_Orders[number];
        EXPECT_EQ(order.Terms, terms);
        EXPECT_GE(quantity, 1);
        EXPECT_FALSE(order.Ended) << event;
        EXPECT_EQ(std::stoi(Text(notice.Price)) % tools::TickSize(std::stoi(Text(notice.Price))), 0);
        ++Seen[event + (event == "220" || event == "100" ? std::string(1, notice.OrderAction) : "")];
        Seen[std::string(tools::Trim(Text(notice.BoardName)))] = 1;
        Seen["channel-" + Text(notice.ChannelCode)] = 1;
        Apply(order, event, notice.OrderAction, quantity);
    }

    std::map<std::string, int> Seen;

private:
    struct Order {
        std::string Terms;
        int64_t Quantity;
        int64_t Open;
        int Parent;
        char Action;
        bool Accepted = false;
        bool Confirmed = false;
        bool Filled = false;
        bool Ended = false;  // but for an acceptance that is behind
    };

    void Apply(Order& order, const std::string& event, char action, int64_t quantity) {
        if (event == "100") {
            return;
        }
        if (event == "200") {
            EXPECT_FALSE(order.Accepted);
            order.Accepted = true;
            TakeFromParent(order);
        } else if (event == "210") {
            EXPECT_TRUE(order.Action == '1' || order.Confirmed);
            Seen["early-fill"] += order.Accepted ? 0 : 1;
            order.Filled = true;
            order.Open -= quantity;
            Seen[order.Open == 0 ? "whole" : "part"] = 1;
        } else if (event == "220" && action != '4') {
            EXPECT_EQ(action, order.Action);
            EXPECT_FALSE(order.Confirmed);
            Seen["early-confirmation"] += order.Accepted ? 0 : 1;
            order.Confirmed = true;
            TakeFromParent(order);
            order.Open -= action == '3' ? quantity : 0;
        } else if (event == "220") {
            EXPECT_EQ(quantity, order.Open);
            order.Open = 0;
        } else {
            EXPECT_TRUE(event == "201" || event == "221") << event;
            EXPECT_FALSE(order.Accepted || order.Filled || order.Confirmed);
            order.Open = 0;
        }
        EXPECT_GE(order.Open, 0);
        order.Ended = order.Open == 0 && (order.Accepted || event.back() == '1');
    }

    // At the acceptance, or at the confirmation that comes before it.
    void TakeFromParent(Order& order) {
        if (order.Parent != 0 && order.Accepted != order.Confirmed) {
            Order& parent = m_Orders.at(order.Parent);
            EXPECT_EQ(parent.Terms, order.Terms);
            parent.Open -= order.Quantity;
            EXPECT_GE(parent.Open, 0);
            parent.Ended = parent.Open == 0 && parent.Accepted;
        }
    }

    std::map<int, Order> m_Orders;
    int m_nNumber = 0;
    std::string m_Last;
};

using OrderFeed = FeedSession;

TEST_F(OrderFeed, TellsConsistentLives) {
    LifeAudit audit;
    int notices = 0;
    Each("--packets 40000 --orders 50", [&](const tools::CaptureRecord& record) {
        if (const auto* notice = As<OrderPacket>(record)) {
            audit.Check(*notice);
            ++notices;
        }
    });
    EXPECT_NEAR(notices, 20000, 600);
    std::istringstream kinds(
        "repeated 1001 1002 1003 200 210 2202 2203 2204 201 221 early-fill early-confirmation whole part "
        "RG TN NG ADV channel-M2 channel-X7");
    for (std::string kind; kinds >> kind;) {
        EXPECT_GT(audit.Seen[kind], 0) << kind;
    }
}

}  // namespace
