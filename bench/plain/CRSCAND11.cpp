// Stock chart, plain form: the live candle of one stock, at most one trade row in 300 milliseconds.
#include "bench/plain/candle_chart.h"
#include "bench/plain/factories.h"
#include "framework/packets.h"
#include "framework/subscription_record.h"
#include "layouts/RSCAND11.h"

namespace plain {

namespace {

class CRSCAND11 : public CandleChart<int32_t, StockCandleRow> {
public:
    explicit CRSCAND11(HWND window)
        : CandleChart(window, sizeof(StockKey), kStockClass, kWantTrades | kWantBars, 999999999, 999999999) {
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSCAND11::OnTradePacket);
        SetSlot(BarPacket::kType, sizeof(BarPacket), &CRSCAND11::OnBarPacket);
    }

protected:
    int32_t ReadValue(const char* src, int length) const override { return AsciiToLong(src, length); }
    void WriteValue(int32_t value, char* dst, int length) const override { LongToAscii(value, dst, length); }

    bool ThrottleIsOpen() override {
        const DWORD now = GetTickCount();
        if (now < m_dwLastTick) {
            m_dwLastTick = now;
            return false;
        }
        if (now - m_dwLastTick <= 300) {
            return false;
        }
        m_dwLastTick = now;
        return true;
    }
    void StartThrottle() override { m_dwLastTick = GetTickCount(); }

private:
    int OnTradePacket(const char* payload) {
        const auto* trade = reinterpret_cast<const TradePacket*>(payload);
        if (trade->Volume == 0 || !IsFollowed(&trade->Key)) {
            return 0;
        }
        if (PeriodChar() == kTickList) {
            return AddTick(trade->Time, trade->Price, trade->Volume, trade->Value, trade->TotalVolume);
        }
        AddTrade(trade->Time, trade->Price, trade->Volume, trade->TotalVolume);
        return 1;
    }

    int OnBarPacket(const char* payload) {
        const auto* bar = reinterpret_cast<const BarPacket*>(payload);
        if (PeriodChar() == kTickList || PeriodChar() == 'L' || !IsFollowed(&bar->Key)) {
            return 0;
        }
        const int32_t close = bar->Close;
        MergeBar(bar->Open, bar->High, bar->Low, bar->Volume);
        SendBarRow(bar->Time, close, &close);
        return 0;
    }

    DWORD m_dwLastTick = 0;
};

}  // namespace

Decoder* NewCRSCAND11(HWND window) {
    return new CRSCAND11(window);
}

}  // namespace plain
