#include "module/decoders/monitor/MonitorFeed.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string_view>

#include "module/framework/subscription.h"
#include "module/wire/codecs.h"
#include "module/wire/packets.h"

namespace {

// One stock of the list request. Its flags stand the other way round than a subscription's: the most
// significant byte first.
struct ListedStock {
    char Class;
    char Code[11];
    char Flags[4];
};
static_assert(sizeof(ListedStock) == 16);

// A count stands in front of them.
struct ListHead {
    char Count[4];
};

constexpr std::string_view kAllMarketOn = "10001520001*|$";
constexpr std::string_view kAllMarketOff = "20001520001*|$";

// How many monitors hold the whole market's feed on. Init, Release and destruction touch it, all under the
// map guard.
uint32_t s_nAllMarketUsers = 0;

void SetUp(CQelFunc& channel, HWND hWnd, const CString& loginText, const char* name) {
    channel.SetLogInfoData(hWnd, loginText, nullptr);
    channel.SetType('A', name);
}

void Send(CQelFunc& channel, std::string_view text) {
    channel.SendFunc(text.data(), static_cast<int>(text.size()));
}

}  // namespace

MonitorFeed::MonitorFeed(HWND hWnd) {
    CString loginText;
    CQelData21::GetInnerTr(loginText);
    SetUp(m_ListFunc, hWnd, loginText, "K11OI060");
    SetUp(m_AllFunc, hWnd, loginText, "K11OI031");
}

void MonitorFeed::SendWatchRequest(const CodeRequests::List& stocks) {
    const std::size_t count = stocks.Size();
    const std::size_t length = sizeof(ListHead) + count * sizeof(ListedStock);
    const std::unique_ptr<char[]> text(count == 0 ? nullptr : new (std::nothrow) char[length + 1]);
    if (text == nullptr) {
        return;
    }
    Put(reinterpret_cast<ListHead*>(text.get())->Count, static_cast<int32_t>(count));
    auto* listed = reinterpret_cast<ListedStock*>(text.get() + sizeof(ListHead));
    for (std::size_t i = 0; i < count; ++i) {
        listed[i].Class = kStockClass;
        Put(listed[i].Code, stocks[i].Code);
        std::copy_n("\x80\0\0", sizeof(listed[i].Flags), listed[i].Flags);
    }
    text[length] = '\0';
    m_chFeedMode = TradePacket::kType;
    Send(m_ListFunc, {text.get(), length});
}

void MonitorFeed::SwitchAllMarketOn() {
    m_chFeedMode = CompactTradePacket::kType;
    if (++s_nAllMarketUsers == 1) {
        Send(m_AllFunc, kAllMarketOn);
    }
}

void MonitorFeed::SwitchAllMarketOff() {
    if (--s_nAllMarketUsers == 0) {
        Send(m_AllFunc, kAllMarketOff);
    }
}
