// The framework as a host uses it: through the exported functions.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "host/services/services.h"
#include "module/framework/map_manager.h"
#include "module/framework/packet_decoder.h"
#include "tests/support/inquiries.h"
#include "tests/support/samples.h"
#include "tests/support/terminal.h"

extern "C" int CHostRound(HWND window);

namespace {

class Module : public ScreenTest {
protected:
    Module() : ScreenTest("RSTICK11_R") {}
};

TEST_F(Module, KnowsItsMapsByTheirExactNames) {
    for (const char* name :
         {"", "RSTICK11", "rstick11_r", "RSTICK11_R ", "RNOTHING_R", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(RegistMap(nullptr, name), 0U) << name;
    }
    const tickmux_handle handle = RegistMap(nullptr, "RSTICK11_R");
    EXPECT_NE(GetPacketDecoderInst(handle), nullptr);
    EXPECT_EQ(UnregistMap(handle), 1);
    EXPECT_EQ(CHostRound(tickhost_create_window(nullptr, nullptr)), 1) << "a host in C";
}

TEST_F(Module, HandleZeroIsNone) {
    EXPECT_THROW(InitMap(0, nullptr), CInvalidArgException*);
    EXPECT_THROW(GetPacketDecoderInst(0), CInvalidArgException*);
    EXPECT_EQ(StopMap(0), 0);
    EXPECT_EQ(ReleaseMap(0), 0);
    EXPECT_EQ(UnregistMap(0), -1);
}

TEST_F(Module, DropsPacketsOfOtherLengthsAndTypes) {
    Open(TickInquiry("1ASII"));
    const std::string packet = Trade("1ASII").Bytes();
    for (const std::string& wrong :
         {packet + " ", packet.substr(0, packet.size() - 1), std::string("A"), ' ' + packet.substr(1),
          '{' + packet.substr(1), 'B' + packet.substr(1), '\xC1' + packet.substr(1), std::string("\0", 1)}) {
        EXPECT_EQ(m_Terminal.Feed(wrong), 1);
    }
    EXPECT_EQ(PutRTMPacketToDecoder(nullptr, 0), 1);
    EXPECT_TRUE(Silent());
    EXPECT_NE(After(packet), "nothing");
}

TEST_F(Module, OnlyActiveDecodersGetPackets) {
    EXPECT_EQ(m_Terminal.Feed(Trade("1ASII")), 1) << "nobody takes the type";
    EndBatch();
    m_Screen = m_Terminal.Open("RSTICK11_R");
    const auto receives = [&] { return After(Trade("1ASII")) != "nothing"; };
    EXPECT_FALSE(receives()) << "before Init";
    EXPECT_TRUE(Init(TickInquiry("1ASII")) == 1 && receives());
    EXPECT_TRUE(m_Screen->Stop() == 1 && !receives());
    EXPECT_TRUE(Init("T1") == 0 && !receives());
    EXPECT_TRUE(Init(TickInquiry("1ASII")) == 1 && receives()) << "taken up again";
    EXPECT_TRUE(m_Screen->Release() == 1 && !receives());
    EXPECT_EQ(InitMap(m_Screen->Handle(), nullptr), 0);
}

TEST_F(Module, ServesMapsInOrderOfRegistrationAlsoAfterOneHasGone) {
    std::vector<std::unique_ptr<Screen>> screens;
    std::string order;
    const auto open = [&](std::size_t screensThen) {
        while (screens.size() < screensThen) {
            screens.push_back(m_Terminal.Open("RSTICK11_R", TickInquiry("1ASII")));
        }
    };
    const auto batch = [&] {
        order.clear();
        for (std::size_t i = 0; i < screens.size(); ++i) {
            screens[i]->OnNextMessage([&order, i] { order += static_cast<char>('0' + i); });
        }
        Batch(Trade("1ASII"));
        return order;
    };
    open(4);
    EXPECT_EQ(batch(), "0123");
    for (const std::size_t gone : {1U, 0U, 3U}) {
        screens[gone]->Unregister();
    }
    open(7);
    EXPECT_EQ(batch(), "2456");
    order.clear();
    screens[4]->OnNextMessage([&] {
        screens[2]->Unregister();
        screens[5]->Unregister();
    });
    screens[6]->OnNextMessage([&order] { order += '6'; });
    Batch(Trade("1ASII"));
    EXPECT_EQ(order, "6") << "who comes behind closed screens is told all the same";
}

// The deletes that take back these adds.
Events Withdrawals(const Events& told) {
    Events deletes;
    for (const std::string& event : told) {
        if (event.starts_with("add ")) {
            deletes.push_back("delete " + event.substr(4));
        }
    }
    return deletes;
}

TEST_F(Module, EveryMapRefusesCutTextsAddsBeforeItDeletesAndWithdrawsAllOnce) {
    const SampleWorld world;
    const std::set<std::string> takeMore = {"RINTIK11_R", "RRNEWS01_R", "RSDONE01_R",
                                            "RSETFNAV_R", "RSFLDN01_R", "RSTRBK01_R"};
    for (const Sample& sample : Samples()) {
        SCOPED_TRACE(sample.Map);
        m_Screen = m_Terminal.Open(sample.Map, sample.First);
        const Events first = Told();
        for (std::size_t length = 0; length < sample.Second.size(); ++length) {
            EXPECT_EQ(Init(sample.Second.substr(0, length)), 0) << length;
        }
        const bool takesMore = takeMore.contains(sample.Map);
        EXPECT_TRUE(takesMore || Init(sample.Second + " ") == 0);
        EXPECT_EQ(Told(), Events{});
        EXPECT_EQ(Init(sample.Second + (takesMore ? " " : "")), 1);
        const Events moved = Told();
        const auto deletes = std::find_if(moved.begin(), moved.end(), [](const std::string& event) {
            return event.starts_with("delete ");
        });
        EXPECT_EQ(Events(deletes, moved.end()), Withdrawals(first)) << "behind all adds";
        m_Screen->Stop();
        EXPECT_EQ(Told(), Events{}) << "a stop keeps what is asked for";
        m_Screen->Release();
        EXPECT_EQ(Told(), Withdrawals(moved));
        m_Screen->Unregister();
        EXPECT_EQ(Told(), Events{});
    }
}

TEST_F(Module, LifecycleCallsFreeWhatWaits) {
    Open(TickInquiry("1ASII"));
    m_Screen->StopFetching();
    for (const auto& call : std::vector<std::function<void()>>{
             [&] { m_Screen->Stop(); }, [&] { m_Screen->Release(); }, [&] { Init(TickInquiry("1ASII")); },
             [&] { m_Screen->Unregister(); }}) {
        Init(TickInquiry("1ASII"));
        Batch(Trade("1ASII"));
        Told();
        call();
        EXPECT_FALSE(m_Screen->Fetch());
    }
    EXPECT_EQ(Told(), Events{Deleted('1', "1ASII", "80000000")});
}

TEST_F(Module, AWindowMayFeedAndCloseBatchesWithinItsMessage) {
    Open(TickInquiry("1ASII"));
    auto fund = m_Terminal.Open("RSETFNAV_R", NavInquiry("1FUND"));
    Told();
    fund->OnNextMessage([&] { Feed(Nav("1FUND").Value1("2")); });
    m_Screen->OnNextMessage([&] {
        Batch(Trade("1ASII").Price(1010), Nav("1FUND").Value1("1"));
        Feed(Trade("1ASII").Price(1015));
    });
    Batch(Trade("1ASII").Price(1005));
    EXPECT_EQ(Told(), Events(4, "view"));
    EndBatch();
    EXPECT_EQ(Told(), Events{"view"}) << "the last trade waited, and nothing was sent twice";
    for (const char* price : {"1005", "1010", "1015"}) {
        EXPECT_NE(m_Screen->Next().find(Right(price, 12)), std::string::npos) << price;
    }
}

TEST_F(Module, ADecoderKnowsItsMapAndIsSilentWhereNothingChangedOrItStopped) {
    const SampleWorld world;
    for (const Sample& sample : Samples()) {
        m_Screen = m_Terminal.Open(sample.Map, sample.First);
        CRTMPacketDecoder* decoder = GetPacketDecoderInst(m_Screen->Handle());
        EXPECT_EQ(decoder->GetMapName(), sample.Map);
        decoder->EndUnpack();
        EXPECT_TRUE(m_Screen->Empty()) << sample.Map;
        for (const std::string& packet : sample.Packets) {
            m_Terminal.Feed(packet);
        }
        while (!m_Screen->Empty()) {
            m_Screen->Next();  // what leaves at once
        }
        m_Screen->Stop();
        decoder->EndUnpack();
        EXPECT_TRUE(m_Screen->Empty()) << sample.Map;
    }
}

// The fan-out compares the first eight bytes; here all eight are those of the key. Special packets have no
// key.
TEST_F(Module, StocksThatDifferAtTheEndOfTheCodeAreOthers) {
    const SampleWorld world;
    for (const Sample& sample : Samples()) {
        m_Screen = m_Terminal.Open(sample.Map, sample.First);
        for (std::string packet : sample.Packets) {
            if (packet[0] != '@' &&
                packet.compare(1, sizeof(StockKey), Left("1ASII", sizeof(StockKey))) == 0) {
                packet[sizeof(StockKey)] = 'X';
                EXPECT_EQ(After(packet), "nothing") << sample.Map << ' ' << packet[0];
            }
        }
    }
}

TEST_F(Module, CancelNamesTheUser) {
    tickhost_set_text("HashUserID", "5f4dcc3b");
    EXPECT_EQ(StopView(), 1);
    EXPECT_EQ(Told(), Events{"cancel [5f4dcc3b           ]"});
    tickhost_set_communication_manager(nullptr);
    EXPECT_EQ(StopView(), 0);
    Open(TickInquiry("1ASII"));
    Batch(Trade("1ASII"));
    EXPECT_EQ(Told(), Events{"view"}) << "decoders go on as if the request had been sent";
}

TEST_F(Module, ABlankCodeIsNotAskedFor) {
    CRTMMapManager manager;
    char code[] = "1ASII                 ";
    EXPECT_EQ(manager.AddTrStcdInfo(code, 11, kStockClass, kWantTrades), 1);
    EXPECT_EQ(manager.AddTrStcdInfo(code + 11, 11, kStockClass, kWantTrades), 0);
    EXPECT_EQ(Told(), Events{Added('1', "1ASII", "80000000")});
}

TEST_F(Module, ATypeThatAHostAddsToAMapGoesWithIt) {
    CRTMMapManager manager;
    const tickmux_handle handle = manager.RegistMapDecoder(nullptr, "RSTICK11_R");
    char types[] = "AZZ\x7f ";
    manager.RegistPacketType(reinterpret_cast<tagMAPINFO*>(handle), types);
    std::string packet = TickInquiry("1ASII");
    EXPECT_EQ(manager.InitMapDecoder(handle, packet.data()), 1);
    packet[0] = 'Z';
    EXPECT_EQ(manager.PutRTMPacket(packet.data(), 101), 1);
    EXPECT_EQ(manager.UnregistMapDecoder(handle), 1);
    EXPECT_EQ(manager.PutRTMPacket(packet.data(), 101), 1) << "nobody is called who is gone";
}

}  // namespace
