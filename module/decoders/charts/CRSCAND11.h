// Stock chart: the live candle of one stock at one period.
//
// Takes A packets (trades; a row at most every 300 milliseconds) and D packets (closed minute bars).
#ifndef TICKMUX_MODULE_DECODERS_CHARTS_CRSCAND11_H
#define TICKMUX_MODULE_DECODERS_CHARTS_CRSCAND11_H

#include "module/decoders/charts/Candles.h"
#include "module/layouts/RSCAND11.h"

struct StockCandles {
    using Key = StockKey;
    using Row = StockCandleRow;
    using Value = int32_t;

    static constexpr char kClass = kStockClass;
    static constexpr uint32_t kFlags = kWantTrades | kWantBars;
    static constexpr DWORD kThrottleMilliseconds = 300;  // exactly so much is too early

    static constexpr Value kNone = -1;
    static constexpr Value kNoLow = 999999999;
    static constexpr Value kNoLowAfterRoll = kNoLow;

    template <std::size_t N>
    static Value Read(const char (&field)[N]) {
        return ToLong(field);
    }
    template <std::size_t N>
    static void Write(char (&field)[N], Value value) {
        Put(field, value);
    }
    // A bar's row closes with the bar's own price.
    static Value BarClose(const CandleBar<Value>& bar, Value /*live*/) { return bar.Close; }
};

class CRSCAND11 : public CandleDecoder<StockCandles> {
public:
    static constexpr char kMapName[] = "RSCAND11_R";

    explicit CRSCAND11(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnTradePacket(const TradePacket& trade);
    int OnBarPacket(const BarPacket& bar);
};

#endif
