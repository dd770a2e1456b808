// The two screens that name codes and packet types: the holder and the pass-through.
#include "module/layouts/SubscriptionItem.h"
#include "tests/support/inquiries.h"
#include "tests/support/orders.h"
#include "tests/support/terminal.h"

namespace {

struct SubscriptionHolder : ScreenTest {
    SubscriptionHolder() : ScreenTest("RDUMMY01_R") {}
    static std::string Inquiry(const Rows& items) { return "H1" + BlockOf(items, "any"); }
};

TEST_F(SubscriptionHolder, EachWantedTypeIsARequestInOrderOfTheColumns) {
    Open(Inquiry({Item('1', "1ASII", "11111111"), Item('A', "COMP", "1111"), Item('A', "0001", "1111"),
                  Item('1', "", "1111"), Item('A', "", "1111"), Item('M', "CODE1", "1"),
                  Item('1', "1BBBB", "0x 1")}));
    EXPECT_EQ(Told(), (Events{Added('1', "1ASII", "80000000"), Added('1', "1ASII", "20000000"),
                              Added('1', "1ASII", "40000000"), Added('1', "1ASII", "10000000"),
                              Added('A', "COMP", "8000000"), Added('A', "COMP", "4000000"),
                              Added('1', "1BBBB", "10000000")}));
    EXPECT_EQ(Init(Inquiry({})), 0);
    EXPECT_EQ(Told(), Events{});
}

struct PassThrough : ScreenTest {
    PassThrough() : ScreenTest("RRPASS01_R") {}
    template <class Packet>
    bool Passes(const Packet& packet) {
        return After(packet) == packet.Bytes();
    }
};

TEST_F(PassThrough, PacketsOfListedCodesAndWantedTypesComeAsTheyAre) {
    tickhost_set_text("UserID", kUser);
    Open(PassThroughInquiry({Item('1', "1ASII", "1111"), Item('1', "1BBBB", " 1"), Item('A', "COMP", "1  1"),
                             Item('M', "CODE1", "1"), Item('@', "", "1"), Item('N', "1FUND01", "1"),
                             Item('/', "", "11")}));
    EXPECT_EQ(Told(), (Events{Added('1', "1ASII", "80000000"), Added('1', "1ASII", "20000000"),
                              Added('1', "1ASII", "40000000"), Added('1', "1ASII", "10000000"),
                              Added('1', "1BBBB", "20000000"), Added('A', "COMP", "8000000"),
                              Added('A', "COMP", "4000000"), Added('M', "CODE1", "8000000"),
                              Added('N', "1FUND01", "80000000")}));
    EXPECT_TRUE(Passes(Trade("1BBBB"))) << "wanted by another item";
    EXPECT_TRUE(Passes(Book("1ASII")) && Passes(Brokers("1ASII", "090000")) &&
                Passes(Bar("1ASII", "090100")));
    EXPECT_TRUE(Passes(IndexUpdate("COMP")) && Passes(IndexBar("COMP", "090100", 1, 1)));
    EXPECT_TRUE(Passes(Coded<MarketPacket>("CODE1")) && Passes(Coded<SpecialPacket>("anything")));
    EXPECT_TRUE(Passes(Nav("1FUND01")) && Passes(News("20")) && Passes(Notice("1")));
    EXPECT_FALSE(Passes(Trade("1CCCC")) || Passes(Book("2ASII")) || Passes(IndexUpdate("MAIN")));
    EXPECT_FALSE(Passes(Coded<MarketPacket>("CODE2")) || Passes(Nav("1ASII")) || Passes(Trade("1FUND01")));
    EXPECT_FALSE(Passes(News("20").Related("01")) || Passes(Notice("1").User("TRADER02")));
}

TEST_F(PassThrough, PacketsWaitOverAStopAndGoWithTheNextInit) {
    const std::string list = PassThroughInquiry({Item('1', "1ASII", "1"), Item('N', "1FUND01", "1")});
    Open(list);
    Told();
    const Trade first = Trade("1ASII").Price(1);
    Batch(first, Nav("1FUND01"), Trade("1ASII").Price(2));
    EXPECT_EQ(Told(), (Events{"view", "view", "view"}));
    EXPECT_EQ(m_Screen->Next(), first.Bytes());
    EXPECT_EQ(m_Screen->Next(), Nav("1FUND01").Bytes());
    EXPECT_EQ(m_Screen->Next(), Trade("1ASII").Price(2).Bytes());
    Feed(first);
    m_Screen->Stop();
    EXPECT_TRUE(Silent());
    EXPECT_EQ(Init(list), 1);
    EXPECT_EQ(After(Nav("1FUND01")), Nav("1FUND01").Bytes());
    m_Terminal.OnNextRequest([&] { Feed(first); });
    EXPECT_EQ(Init(list), 1);
    EXPECT_TRUE(Silent()) << "what comes from within the requests goes too";
}

}  // namespace
