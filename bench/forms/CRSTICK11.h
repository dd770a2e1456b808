// Stock tick list.
#ifndef TICKMUX_BENCH_FORMS_CRSTICK11_H
#define TICKMUX_BENCH_FORMS_CRSTICK11_H

#include <cstring>

#include "bench/forms/screen.h"
#include "bench/forms/view.h"
#include "module/layouts/RSTICK11.h"

namespace forms {

template <class Style>
class CRSTICK11 : public Screen {
public:
    explicit CRSTICK11(HWND window) : m_View(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        memset(&m_Head, ' ', sizeof(m_Head));
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSTICK11::OnTradePacket);
    }

    int Init(const char* buffer) override {
        InitText<Style> in(buffer);
        m_View.TakeTag(in);
        char key[sizeof(m_Key)];
        RepeatHead block;
        TickRow row;
        if (!in.ReadBytes(key, sizeof(key)) || !in.ReadBytes(&m_Head, sizeof(m_Head)) ||
            !in.ReadRepeatBlock(&block, &row, sizeof(row), 1) || in.Remain() != 0) {
            return 0;
        }
        if (memcmp(row.Date, "        ", sizeof(row.Date)) != 0) {
            memcpy(m_Date, row.Date, sizeof(m_Date));
        } else {
            SYSTEMTIME now;
            GetLocalTime(&now);
            Style::LongToAscii(now.wYear * 10000 + now.wMonth * 100 + now.wDay, m_Date, sizeof(m_Date));
        }
        memcpy(m_Key, key, sizeof(m_Key));
        m_Ticks.Clear();
        m_Head.Period = kTickList;
        m_Head.RowAction = kAppendRow;
        return 1;
    }

    void EndUnpack() override {
        if (m_Ticks.Count() > 0) {
            char* buffer =
                m_View.NewRowsBuffer(offsetof(HeadedRows, Repeat), m_Ticks.Count(), sizeof(TickRow));
            memcpy(buffer + offsetof(HeadedRows, Head), &m_Head, sizeof(m_Head));
            char* end = m_Ticks.MoveTo(buffer + sizeof(HeadedRows));
            m_View.Post(buffer, end);
        }
    }

private:
    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (trade.Volume == 0 || memcmp(&trade.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        TickRow& row = m_Ticks.Add();
        Style::LongToAscii(trade.Price, m_Head.Price, sizeof(m_Head.Price));
        Style::LongToAscii(trade.TotalVolume, m_Head.Quantity, sizeof(m_Head.Quantity));
        memcpy(row.Date, m_Date, sizeof(row.Date));
        memcpy(row.Time, trade.Time, sizeof(row.Time));
        Style::LongToAscii(trade.Price, row.Price, sizeof(row.Price));
        Style::LongToAscii(trade.Volume, row.Volume, sizeof(row.Volume));
        return 1;
    }

    View<Style> m_View;
    char m_Key[sizeof(StockKey)];
    char m_Date[8];
    DisplayHead m_Head;
    typename Style::template Rows<TickRow> m_Ticks;
};

}  // namespace forms

#endif
