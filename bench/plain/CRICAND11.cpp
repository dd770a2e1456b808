// Index chart, plain form: the live candle of one index, one row with every batch.
#include "bench/plain/candle_chart.h"
#include "bench/plain/factories.h"
#include "framework/packets.h"
#include "framework/subscription_record.h"
#include "layouts/RICAND11.h"

namespace plain {

namespace {

class CRICAND11 : public CandleChart<double, IndexCandleRow> {
public:
    explicit CRICAND11(HWND window)
        : CandleChart(window, sizeof(IndexKey), kIndexClass, kWantIndex | kWantIndexBars, 9999999999.0,
                      99999999999.0) {
        SetSlot(IndexPacket::kType, sizeof(IndexPacket), &CRICAND11::OnIndexPacket);
        SetSlot(IndexBarPacket::kType, sizeof(IndexBarPacket), &CRICAND11::OnIndexBarPacket);
    }

protected:
    double ReadValue(const char* src, int length) const override { return AsciiToDouble(src, length); }
    void WriteValue(double value, char* dst, int length) const override {
        DoubleToAscii(value, dst, length, 3);
    }

private:
    int OnIndexPacket(const char* payload) {
        const auto* index = reinterpret_cast<const IndexPacket*>(payload);
        if (!IsFollowed(&index->Key)) {
            return 0;
        }
        const double value = index->Index / kIndexScale;
        if (PeriodChar() == kTickList) {
            return AddTick(index->Time, value, index->Volume, index->Value, index->TotalVolume);
        }
        AddTrade(index->Time, value, index->Volume, index->TotalVolume);
        if (PeriodChar() == 'L') {
            m_Live.Open = index->Open / kIndexScale;
            m_Live.High = index->High / kIndexScale;
            m_Live.Low = index->Low / kIndexScale;
        }
        return 1;
    }

    int OnIndexBarPacket(const char* payload) {
        const auto* bar = reinterpret_cast<const IndexBarPacket*>(payload);
        if (PeriodChar() == kTickList || PeriodChar() == 'L' || !IsFollowed(&bar->Key)) {
            return 0;
        }
        const double value = bar->Index / kIndexScale;
        MergeBar(value, value, value, bar->Volume);
        SendBarRow(bar->Time, value, nullptr);
        return 0;
    }
};

}  // namespace

Decoder* NewCRICAND11(HWND window) {
    return new CRICAND11(window);
}

}  // namespace plain
