// Stock tick list in its plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/framework.h"
#include "bench/plain/waiting_rows.h"
#include "module/layouts/RSTICK11.h"

namespace plain {

class CRSTICK11 : public Screen {
public:
    explicit CRSTICK11(HWND window) : Screen(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        memset(&m_Head, ' ', sizeof(m_Head));
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSTICK11::OnTradePacket);
    }

    int Init(const char* buffer) override {
        Begin(buffer);
        char key[sizeof(m_Key)];
        RepeatHead block;
        TickRow row;
        if (!ReadBytes(key, sizeof(key)) || !ReadBytes(&m_Head, sizeof(m_Head)) ||
            !ReadRepeatBlock(&block, &row, sizeof(row), 1) || m_nInitRemain != 0) {
            return 0;
        }
        if (memcmp(row.Date, "        ", sizeof(row.Date)) != 0) {
            memcpy(m_Date, row.Date, sizeof(m_Date));
        } else {
            SYSTEMTIME now;
            GetLocalTime(&now);
            LongToAscii(now.wYear * 10000 + now.wMonth * 100 + now.wDay, m_Date, sizeof(m_Date));
        }
        memcpy(m_Key, key, sizeof(m_Key));
        m_Ticks.Clear();
        m_Head.Period = kTickList;
        m_Head.RowAction = kAppendRow;
        return 1;
    }

    void EndUnpack() override {
        if (m_Ticks.Count() > 0) {
            char* buffer = NewRowsBuffer(offsetof(HeadedRows, Repeat), m_Ticks.Count(), sizeof(TickRow));
            memcpy(buffer + offsetof(HeadedRows, Head), &m_Head, sizeof(m_Head));
            char* end = m_Ticks.MoveTo(buffer + sizeof(HeadedRows));
            PostToView(buffer, static_cast<int>(end - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
    }

private:
    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (trade.Volume == 0 || memcmp(&trade.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        TickRow* row = m_Ticks.Add();
        LongToAscii(trade.Price, m_Head.Price, sizeof(m_Head.Price));
        LongToAscii(trade.TotalVolume, m_Head.Quantity, sizeof(m_Head.Quantity));
        memcpy(row->Date, m_Date, sizeof(row->Date));
        memcpy(row->Time, trade.Time, sizeof(row->Time));
        LongToAscii(trade.Price, row->Price, sizeof(row->Price));
        LongToAscii(trade.Volume, row->Volume, sizeof(row->Volume));
        return 1;
    }

    char m_Key[sizeof(StockKey)];
    char m_Date[8];
    DisplayHead m_Head;
    WaitingRows<TickRow> m_Ticks;
};

Screen* NewCRSTICK11(HWND window) {
    return new CRSTICK11(window);
}

}  // namespace plain
