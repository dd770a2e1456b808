// Index chart: the live candle of one index at one period.
//
// Takes E packets (index updates; a row with every batch) and F packets (closed minute bars of one value).
#ifndef TICKMUX_MODULE_DECODERS_CHARTS_CRICAND11_H
#define TICKMUX_MODULE_DECODERS_CHARTS_CRICAND11_H

#include "module/decoders/charts/Candles.h"
#include "module/layouts/RICAND11.h"

struct IndexCandles {
    using Key = IndexKey;
    using Row = IndexCandleRow;
    using Value = double;  // index points

    static constexpr char kClass = kIndexClass;
    static constexpr uint32_t kFlags = kWantIndex | kWantIndexBars;
    static constexpr DWORD kThrottleMilliseconds = 0;

    static constexpr Value kNone = -1.0;
    static constexpr Value kNoLow = 9999999999.0;
    static constexpr Value kNoLowAfterRoll = 99999999999.0;

    template <std::size_t N>
    static Value Read(const char (&field)[N]) {
        return ToDouble(field);
    }
    template <std::size_t N>
    static void Write(char (&field)[N], Value value) {
        Put<3>(field, value);
    }
    // A bar's row closes with the latest value of the live column.
    static Value BarClose(const CandleBar<Value>& /*bar*/, Value live) { return live; }
};

class CRICAND11 : public CandleDecoder<IndexCandles> {
public:
    static constexpr char kMapName[] = "RICAND11_R";

    explicit CRICAND11(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnIndexPacket(const IndexPacket& index);
    int OnIndexBarPacket(const IndexBarPacket& bar);
};

#endif
