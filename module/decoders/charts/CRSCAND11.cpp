#include "module/decoders/charts/CRSCAND11.h"

CRSCAND11::CRSCAND11(HWND hWnd)
    : CandleDecoder(hWnd, Takes<&CRSCAND11::OnTradePacket, &CRSCAND11::OnBarPacket>) {}

int CRSCAND11::OnTradePacket(const TradePacket& trade) {
    if (trade.Volume == 0 || !Follows(trade.Key)) {
        return 0;
    }
    if (Candle().AtPeriod().Char == kTickList) {
        return AddTick(trade.Time, trade.Price, trade.Volume, trade.Value, trade.TotalVolume);
    }
    Candle().AddTrade(TimeOf(trade.Time), trade.Price, trade.Volume, trade.TotalVolume);
    return 1;
}

int CRSCAND11::OnBarPacket(const BarPacket& bar) {
    if (!Candle().TakesBars() || !Follows(bar.Key)) {
        return 0;
    }
    return AddBar(TimeOf(bar.Time), {bar.Open, bar.High, bar.Low, bar.Close, bar.Volume});
}
