#include "module/decoders/charts/CRICAND11.h"

CRICAND11::CRICAND11(HWND hWnd)
    : CandleDecoder(hWnd, Takes<&CRICAND11::OnIndexPacket, &CRICAND11::OnIndexBarPacket>) {}

int CRICAND11::OnIndexPacket(const IndexPacket& index) {
    if (!Follows(index.Key)) {
        return 0;
    }
    const double value = index.Index / kIndexScale;
    if (Candle().AtPeriod().Char == kTickList) {
        return AddTick(index.Time, value, index.Volume, index.Value, index.TotalVolume);
    }
    Candle().AddTrade(TimeOf(index.Time), value, index.Volume, index.TotalVolume);
    if (Candle().AtPeriod().Char == kDays) {
        Candle().SetDay(index.Open / kIndexScale, index.High / kIndexScale, index.Low / kIndexScale);
    }
    return 1;
}

int CRICAND11::OnIndexBarPacket(const IndexBarPacket& bar) {
    if (!Candle().TakesBars() || !Follows(bar.Key)) {
        return 0;
    }
    const double value = bar.Index / kIndexScale;
    return AddBar(TimeOf(bar.Time), {value, value, value, value, bar.Volume});
}
