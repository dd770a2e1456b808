// Stock fills in their plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "bench/plain/waiting_rows.h"
#include "framework/subscription_record.h"
#include "layouts/RSDONE01.h"

namespace plain {

class CRSDONE01 : public Decoder {
public:
    explicit CRSDONE01(HWND window) : Decoder(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSDONE01::OnTradePacket);
    }

    ~CRSDONE01() override { DelTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantTrades); }

    int Init(const char* buffer) override {
        m_nBasePrice = 0;
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        FillsInit init;
        RepeatHead head;
        FillRow row;
        if (!ReadBytes(&init, sizeof(init)) || !ReadRepeatBlock(&head, &row, sizeof(row), 1)) {
            return 0;
        }
        char oldKey[sizeof(m_Key)];
        memcpy(oldKey, m_Key, sizeof(m_Key));
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        m_nBasePrice = AsciiToLong(init.BasePrice, sizeof(init.BasePrice));
        if (m_nBasePrice == 0 && AsciiToLong(head.Count, sizeof(head.Count)) > 0) {
            m_nBasePrice = BaseOf(AsciiToLong(row.Price, sizeof(row.Price)), SignToColor(nullptr, row.Sign),
                                  AsciiToLong(row.Change, sizeof(row.Change)));
        }
        m_Ticks.Clear();
        AddTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantTrades);
        DelTrStcd(oldKey, sizeof(oldKey), kStockClass, kWantTrades);
        return 1;
    }

    void Release() override {
        Decoder::Release();
        DelTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantTrades);
        memset(m_Key, ' ', sizeof(m_Key));
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        if (m_Ticks.Count() > 0) {
            char* buffer =
                NewRowsBuffer(m_Tag, offsetof(PlainRows, Repeat), m_Ticks.Count(), sizeof(FillRow));
            char* end = m_Ticks.MoveTo(buffer + sizeof(PlainRows));
            PostToView(buffer, static_cast<int>(end - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
        m_bChanged = 0;
    }

private:
    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (memcmp(&trade.Key, m_Key, sizeof(m_Key)) != 0 || trade.Volume == 0) {
            return 0;
        }
        const int direction = SignToColor(nullptr, trade.Sign);
        if (m_nBasePrice == 0) {
            m_nBasePrice = BaseOf(trade.Price, direction, trade.Change);
        }
        const double rate =
            ChangeRate(static_cast<double>(trade.Price) - m_nBasePrice, m_nBasePrice, direction);
        FillRow* row = m_Ticks.Add();
        memcpy(row->Time, trade.Time, sizeof(row->Time));
        memcpy(row->TradeRef, trade.TradeRef, sizeof(row->TradeRef));
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
        memcpy(row->Broker1, trade.Broker1, sizeof(row->Broker1));
        ClassColor(trade.Broker2Class, row->Broker2ClassTag);
        row->Broker2Class = trade.Broker2Class;
        memcpy(row->Broker2, trade.Broker2, sizeof(row->Broker2));
        return 1;
    }

    char m_Key[sizeof(StockKey)];
    int32_t m_nBasePrice = 0;
    RequestTag m_Tag{};
    WaitingRows<FillRow> m_Ticks;
};

Decoder* NewCRSDONE01(HWND window) {
    return new CRSDONE01(window);
}

}  // namespace plain
