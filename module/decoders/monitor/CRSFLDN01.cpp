#include "module/decoders/monitor/CRSFLDN01.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "module/framework/init_reader.h"
#include "module/framework/subscription.h"
#include "module/wire/broker_class.h"
#include "module/wire/change_rate.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

namespace {

const char* UserFolder() {
    return CEnvMgr::GetBaseUserDir(CQelData21::GetBaseUserID());
}

// What stands behind the code, by board; null: no board that is shown.
const char* SuffixOf(char board) {
    switch (board) {
        case '1':
            return "   ";
        case '2':
            return ".TN";
        case '3':
            return ".NG";
        case '4':
            return ".TS";
        default:
            return nullptr;
    }
}

constexpr std::size_t kSuffixWidth = 3;

// The two feeds differ in what counts as a trade.
bool HasVolume(const TradePacket& trade) {
    return trade.Volume != 0;
}
bool HasVolume(const CompactTradePacket& trade) {
    return trade.Volume >= 1;
}
void PutTradeRef(MonitorRow& row, const TradePacket& trade) {
    PutRight(row.TradeRef, trade.TradeRef);
}
void PutTradeRef(MonitorRow& /*row*/, const CompactTradePacket& /*trade*/) {}

}  // namespace

CRSFLDN01::CRSFLDN01(HWND hWnd)
    : CRTMPacketDecoder(hWnd,
                        Takes<&CRSFLDN01::OnTrade<TradePacket>, &CRSFLDN01::OnTrade<CompactTradePacket>>),
      m_Feed(hWnd),
      m_Settings(UserFolder(), "\\TradeMonEnv.ini") {
    m_InterestTable.ReadAllGroup(SettingsFile(UserFolder(), "\\Interest.ini").Path());
}

int CRSFLDN01::OnInit(InitReader& in) {
    m_Front.Tag = in.Tag();
    MonitorInit init;
    if (!in.Read(init)) {
        return 0;
    }
    m_Rows.Clear();
    const bool formerMarket = std::exchange(m_WatchSet, {}).IsWholeMarket();
    const CodeRequests::List former = m_Requests.Replace({});
    // A set that does not come about is not kept: nothing of it has been asked for. The former stocks stay
    // asked for.
    WatchSet watched;
    if (!BuildWatchSet(watched) || !m_Brokers.Load()) {
        return 0;
    }
    m_Requests.Replace(watched.GiveRequests());
    m_WatchSet = std::move(watched);
    m_Filters = TradeFilters::Load(m_Settings);
    if (m_WatchSet.IsWholeMarket()) {
        m_Feed.SwitchAllMarketOn();
    } else {
        m_Feed.SendWatchRequest(m_Requests.Current());
    }
    m_Requests.AskAll();
    CodeRequests::GiveUp(former);
    if (formerMarket) {
        m_Feed.SwitchAllMarketOff();
    }
    return 1;
}

bool CRSFLDN01::BuildWatchSet(WatchSet& watched) const {
    const bool ownIndustry = CQelData21::IsTobrinAcc();
    if (m_Settings.Integer("TRADE_MONITOR", "ALL", 1) != 0) {
        return ownIndustry ? watched.WatchIndustry() : watched.WatchMarket();
    }
    char numbers[1024];
    const int length = m_Settings.Text("FAVOURITES", "SELECTEDGROUP", numbers);
    return watched.WatchGroups(m_InterestTable, {numbers, static_cast<std::size_t>(length)});
}

// What costs least is asked first: most trades of the whole market go no further.
template <class Packet>
int CRSFLDN01::OnTrade(const Packet& trade) {
    return m_Feed.Mode() == Packet::kType && HasVolume(trade) && m_Filters.Pass(trade.Price, trade.Volume)
               ? ShowTrade(trade)
               : 0;
}

template <class Packet>
int CRSFLDN01::ShowTrade(const Packet& trade) {
    const char* suffix = SuffixOf(trade.Key.Board);
    if (suffix == nullptr || !m_WatchSet.Holds(CodeOf(trade.Key))) {
        return 0;
    }
    const int direction = SignToColor(nullptr, trade.Sign);
    const double rate = BiasedRate(WrapMultiply(int32_t{direction}, trade.Change),
                                   BaseOf(trade.Price, direction, trade.Change), direction);
    if (!m_Filters.PassRate(rate)) {
        return 0;
    }
    MonitorRow* row = m_Rows.Add();
    if (row == nullptr) {
        return 0;
    }
    PutRight(row->Time, trade.Time);
    PutTradeRef(*row, trade);
    const std::string_view code = WithoutBlanksBehind({trade.Key.Code, sizeof(trade.Key.Code)});
    std::memcpy(row->Code, code.data(), code.size());
    std::memcpy(row->Code + code.size(), suffix, kSuffixWidth);
    PutColor(row->PriceColor, direction);
    Put(row->Price, trade.Price);
    row->Sign = trade.Sign;
    PutColor(row->ChangeColor, direction);
    Put(row->Change, trade.Change);
    PutColor(row->RateColor, direction);
    Put<2>(row->Rate, rate);
    Put(row->Volume, trade.Volume);
    PutClassColor(row->Broker1ClassColor, trade.Broker1Class);
    row->Broker1Class = trade.Broker1Class;
    PutBrokerColor(row->Broker1Color, trade.Broker1);
    PutRight(row->Broker1, trade.Broker1);
    PutClassColor(row->Broker2ClassColor, trade.Broker2Class);
    row->Broker2Class = trade.Broker2Class;
    PutBrokerColor(row->Broker2Color, trade.Broker2);
    PutRight(row->Broker2, trade.Broker2);
    return 1;
}

// By the broker's mark in the master data; one without leaves the colour as it is.
void CRSFLDN01::PutBrokerColor(char (&color)[2], const char (&broker)[4]) const {
    switch (m_Brokers.Of(broker)) {
        case '0':
            color[0] = '0';  // as nothing else has it
            break;
        case '1':
            PutColor(color, -1);
            break;
        case '2':
            PutColor(color, 1);
            break;
        default:
            break;
    }
}

void CRSFLDN01::OnEndUnpack() {
    SendRows(m_Front, m_Rows);
}

// The set is empty before the requests go out: whoever hears of them may call back and bring another.
void CRSFLDN01::OnRelease() {
    const bool formerMarket = std::exchange(m_WatchSet, {}).IsWholeMarket();
    m_Requests.GiveUpAll();
    if (formerMarket) {
        m_Feed.SwitchAllMarketOff();
    }
}
