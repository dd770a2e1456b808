// Trade monitor in its plain form.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <list>
#include <string>
#include <unordered_map>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "bench/plain/waiting_rows.h"
#include "framework/subscription_record.h"
#include "host/services.h"
#include "layouts/RSFLDN01.h"

namespace plain {

static uint32_t s_nAllMarketUsers = 0;

class CRSFLDN01 : public Decoder {
public:
    explicit CRSFLDN01(HWND window) : Decoder(window) {
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSFLDN01::OnTradePacket);
        SetSlot(CompactTradePacket::kType, sizeof(CompactTradePacket), &CRSFLDN01::OnCompactTradePacket);
        const std::string folder = CEnvMgr::GetBaseUserDir(CQelData21::GetBaseUserID());
        m_strEnvPath = folder + "\\TradeMonEnv.ini";
        m_InterestTable.ReadAllGroup((folder + "\\Interest.ini").c_str());
        CString loginText;
        CQelData21::GetInnerTr(loginText);
        m_ListFunc.SetLogInfoData(window, loginText, nullptr);
        m_ListFunc.SetType('A', "K11OI060");
        m_AllFunc.SetLogInfoData(window, loginText, nullptr);
        m_AllFunc.SetType('A', "K11OI031");
    }

    ~CRSFLDN01() override { Withdraw(m_Codes); }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        MonitorInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        m_Rows.Clear();
        m_WatchSet.clear();
        const std::list<std::string> oldCodes = m_Codes;
        m_Codes.clear();
        CString first;
        CString second;
        if (!BuildWatchSet() || (m_pBrokerMaster = CQelData21::GetMasterData(3, first, second)) == nullptr) {
            m_WatchSet.clear();
            m_Codes.clear();
            return 0;
        }
        LoadFilters();
        SendWatchRequest();
        for (const std::string& code : m_Codes) {
            if (code != "*") {
                AddTrStcd(code.c_str(), sizeof(StockKey), kStockClass, kWantTrades);
            }
        }
        Withdraw(oldCodes);
        return 1;
    }

    void Release() override {
        Decoder::Release();
        Withdraw(m_Codes);
        m_WatchSet.clear();
        m_Codes.clear();
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        if (m_Rows.Count() > 0) {
            char* buffer =
                NewRowsBuffer(m_Tag, offsetof(PlainRows, Repeat), m_Rows.Count(), sizeof(MonitorRow));
            char* end = m_Rows.MoveTo(buffer + sizeof(PlainRows));
            PostToView(buffer, static_cast<int>(end - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
        m_bChanged = 0;
    }

private:
    // ---- watch set and feed

    bool BuildWatchSet() {
        if (GetPrivateProfileIntA("TRADE_MONITOR", "ALL", 1, m_strEnvPath.c_str()) == 0) {
            WatchGroups();
            return true;
        }
        if (CQelData21::IsTobrinAcc()) {
            CStringArray codes;
            CStringArray names;
            if (CQelData21::GetIndusData(0, "0020", codes, names) != 0) {
                for (size_t i = 0; i < codes.size(); ++i) {
                    m_WatchSet[static_cast<const char*>(codes[i])] = static_cast<const char*>(names[i]);
                    AddCodes(static_cast<const char*>(codes[i]));
                }
            }
            return true;
        }
        CString first;
        CString second;
        const CodeTable* stocks = CQelData21::GetMasterData(0, first, second);
        if (stocks == nullptr) {
            return false;
        }
        for (const auto& [code, entry] : *stocks) {
            m_WatchSet[code] = static_cast<const char*>(entry->szName);
        }
        m_Codes.emplace_back("*");
        return true;
    }

    void WatchGroups() {
        const std::string groups = ReadText("FAVOURITES", "SELECTEDGROUP");
        for (size_t at = 0; at < groups.size(); at += 4) {
            const CMarlGroup* group = m_InterestTable.FindGroupNo(atoi(groups.substr(at, 3).c_str()));
            if (group == nullptr) {
                continue;
            }
            for (const MarlGroupItem& item : group->Items) {
                const std::string code = Trimmed(item.szKey + 1, sizeof(StockKey::Code));
                if (m_WatchSet.emplace(code, item.szName).second) {
                    AddCodes(code);
                }
            }
        }
    }

    // The code on the boards 1 to 3.
    void AddCodes(const std::string& code) {
        for (const char board : {'1', '2', '3'}) {
            char text[sizeof(StockKey) + 1];
            snprintf(text, sizeof(text), "%-*.*s", static_cast<int>(sizeof(StockKey)),
                     static_cast<int>(sizeof(StockKey)), (board + code).c_str());
            m_Codes.emplace_back(text);
        }
    }

    void SendWatchRequest() {
        if (m_Codes.empty()) {
            return;
        }
        if (m_Codes.front() == "*") {
            ++s_nAllMarketUsers;
            m_chFeedMode = 'R';
            if (s_nAllMarketUsers == 1) {
                m_AllFunc.SendFunc("10001520001*|$", 14);
            }
            return;
        }
        char count[8];
        snprintf(count, sizeof(count), "%4d", static_cast<int>(m_Codes.size()));
        std::string text = count;
        for (const std::string& code : m_Codes) {
            text += "1" + code + std::string("\x80\0\0\0", 4);
        }
        m_ListFunc.SendFunc(text.data(), static_cast<int>(text.size()));
        m_chFeedMode = 'A';
    }

    void Withdraw(const std::list<std::string>& codes) {
        for (const std::string& code : codes) {
            if (code != "*") {
                DelTrStcd(code.c_str(), sizeof(StockKey), kStockClass, kWantTrades);
            } else if (--s_nAllMarketUsers == 0) {
                m_AllFunc.SendFunc("20001520001*|$", 14);
            }
        }
    }

    // ---- filters

    std::string ReadText(const char* section, const char* key) const {
        char text[1024];
        GetPrivateProfileStringA(section, key, "", text, sizeof(text), m_strEnvPath.c_str());
        return text;
    }

    bool IsOn(const char* key) const {
        return GetPrivateProfileIntA("TRADE_MONITOR", key, 0, m_strEnvPath.c_str()) != 0;
    }

    void LoadFilters() {
        m_bPriceFilter = IsOn("PRICE");
        m_bChangeFilter = IsOn("CHANGE%");
        m_bVolumeFilter = IsOn("VOLUME");
        if (m_bPriceFilter) {
            m_nPriceFrom = atol(ReadText("PRICE", "FROM").c_str());
            m_nPriceTo = atol(ReadText("PRICE", "TO").c_str());
        }
        if (m_bChangeFilter) {
            m_dChangeFrom = atof(ReadText("CHANGE%", "FROM").c_str());
            if (m_dChangeFrom > 0.0) {
                m_dChangeFrom -= 0.00499;
            } else if (m_dChangeFrom < 0.0) {
                m_dChangeFrom += 0.00499;
            }
            m_dChangeTo = atof(ReadText("CHANGE%", "TO").c_str());
        }
        if (m_bVolumeFilter) {
            m_nVolumeFrom = atol(ReadText("VOLUME", "FROM").c_str());
        }
    }

    // ---- trades

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (m_chFeedMode != 'A' || trade.Volume == 0) {
            return 0;
        }
        MonitorRow* row = AddRow(trade);
        if (row == nullptr) {
            return 0;
        }
        CopyRightAligned(row->TradeRef, trade.TradeRef, sizeof(row->TradeRef), sizeof(trade.TradeRef));
        return 1;
    }

    int OnCompactTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const CompactTradePacket*>(payload);
        return m_chFeedMode == 'R' && trade.Volume >= 1 && AddRow(trade) != nullptr ? 1 : 0;
    }

    // What both feeds tell. Null: the trade is not shown.
    template <class Packet>
    MonitorRow* AddRow(const Packet& trade) {
        const std::string code = Trimmed(trade.Key.Code, sizeof(trade.Key.Code));
        if (m_WatchSet.find(code) == m_WatchSet.end()) {
            return nullptr;
        }
        const int direction = SignToColor(nullptr, trade.Sign);
        const double rate = ChangeRate(Product32(direction, trade.Change),
                                       BaseOf(trade.Price, direction, trade.Change), direction);
        const char* suffixes[] = {"   ", ".TN", ".NG", ".TS"};
        if (trade.Key.Board < '1' || trade.Key.Board > '4') {
            return nullptr;
        }
        if ((m_bPriceFilter && (trade.Price < m_nPriceFrom || trade.Price > m_nPriceTo)) ||
            (m_bChangeFilter && (rate < m_dChangeFrom || rate > m_dChangeTo)) ||
            (m_bVolumeFilter && trade.Volume < m_nVolumeFrom)) {
            return nullptr;
        }
        MonitorRow* row = m_Rows.Add();
        const std::string shown = code + suffixes[trade.Key.Board - '1'];
        CopyRightAligned(row->Time, trade.Time, sizeof(row->Time), sizeof(trade.Time));
        memcpy(row->Code, shown.data(), shown.size());
        SignToColor(row->PriceTag, trade.Sign);
        LongToAscii(trade.Price, row->Price, sizeof(row->Price));
        row->Sign = trade.Sign;
        SignToColor(row->ChangeTag, trade.Sign);
        LongToAscii(trade.Change, row->Change, sizeof(row->Change));
        SignToColor(row->RateTag, trade.Sign);
        DoubleToAscii(rate, row->Rate, sizeof(row->Rate), 2);
        LongToAscii(trade.Volume, row->Volume, sizeof(row->Volume));
        ClassColor(trade.Broker1Class, row->Broker1ClassTag);
        row->Broker1Class = trade.Broker1Class;
        WriteBrokerTag(row->Broker1Tag, trade.Broker1);
        CopyRightAligned(row->Broker1, trade.Broker1, sizeof(row->Broker1), sizeof(trade.Broker1));
        ClassColor(trade.Broker2Class, row->Broker2ClassTag);
        row->Broker2Class = trade.Broker2Class;
        WriteBrokerTag(row->Broker2Tag, trade.Broker2);
        CopyRightAligned(row->Broker2, trade.Broker2, sizeof(row->Broker2), sizeof(trade.Broker2));
        return row;
    }

    void WriteBrokerTag(char* tag, const char (&broker)[4]) const {
        const auto found = m_pBrokerMaster->find(Trimmed(broker, sizeof(broker)));
        if (found == m_pBrokerMaster->end()) {
            return;
        }
        switch (static_cast<const char*>(found->second->szMark)[0]) {
            case '0':
                tag[0] = '0';
                break;
            case '1':
                ColorOf(-1, tag);
                break;
            case '2':
                ColorOf(1, tag);
                break;
            default:
                break;
        }
    }

    RequestTag m_Tag{};
    WaitingRows<MonitorRow> m_Rows;
    std::unordered_map<std::string, std::string> m_WatchSet;  // names by codes
    std::list<std::string> m_Codes;                           // board and code, or "*" for the whole market
    std::string m_strEnvPath;
    CInterestTable m_InterestTable;
    bool m_bPriceFilter = false;
    bool m_bChangeFilter = false;
    bool m_bVolumeFilter = false;
    long m_nPriceFrom = 0;
    long m_nPriceTo = 0;
    double m_dChangeFrom = 0.0;
    double m_dChangeTo = 0.0;
    long m_nVolumeFrom = 0;
    CQelFunc m_ListFunc;
    CQelFunc m_AllFunc;
    const CodeTable* m_pBrokerMaster = nullptr;
    char m_chFeedMode = 0;
};

Decoder* NewCRSFLDN01(HWND window) {
    return new CRSFLDN01(window);
}

}  // namespace plain
