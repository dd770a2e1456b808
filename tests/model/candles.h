// The live end of a chart: of a stock with trades and closed minutes, of an index with updates and its own.
#ifndef TICKMUX_TESTS_MODEL_CANDLES_H
#define TICKMUX_TESTS_MODEL_CANDLES_H

#include "tests/model/model.h"

// What differs between the two.
struct ChartKind {
    bool IsIndex;
    std::size_t KeySize, PriceSize, VolumeSize, ValueSize;
    double NoLow;
    double NoLowAfterRoll;  // in Rollover, and where Init finds a finished candle
};
inline constexpr ChartKind kStockChart = {false, 11, 8, 10, 10, 999999999, 999999999};
inline constexpr ChartKind kIndexChart = {true, 4, 12, 15, 18, 9999999999.0, 99999999999.0};

struct CandleColumn {
    double Open = -1, High = -1, Low = 0;
    int32_t Volume = 0;
    void Merge(double open, double high, double low, int32_t volume) {
        *this = {Open < 0 ? open : Open, std::max(High, high), std::min(Low, low),
                 Texts::Wrapped(int64_t{Volume} + volume)};
    }
};

template <const ChartKind& Kind>
struct Candles : Model {
    using Model::Model;

    bool OnInit(const std::string& text) override {
        const int count = text.size() < 142 ? 0 : Long(text.substr(118, 4));
        const int rowBytes = count < 1 ? 0 : Long(text.substr(122, 4));  // of the one row that is read
        if (text.size() != 142 + static_cast<std::size_t>(rowBytes) ||
            text.substr(13, 8) < text.substr(24, 8)) {
            return false;
        }
        const std::string row = Field(text.substr(142), 14 + 4 * Kind.PriceSize + Kind.VolumeSize);
        Key = text.substr(2, Kind.KeySize);
        Date = text.substr(24, 8);
        Head = text.substr(32, 86);
        CandleTag = Tag;
        Minute = Live = Next = {-1, -1, Kind.NoLow, 0};
        LiveClose = NextClose = TotalVolume = 0;
        RowSent = true;
        LastTrade = LastMinute = NextBoundary = std::string(6, '\0');
        RollPending = false;
        if (Period() != 'A' && Period() != 'L' && kPeriods.count(Period()) == 0) {
            return false;
        }
        Ticks.clear();
        if (Period() == 'A') {
            Head[1] = '2';
        } else {
            TakeNewest(row);
        }
        return true;
    }

    // ---- times

    char Period() const { return Head[0]; }
    struct Clock {
        int Divisor, Step;  // of MMSS, or SS alone; in seconds
    };
    inline static const std::map<char, Clock> kPeriods = {
        {'B', {30, 30}},    {'C', {100, 60}},   {'E', {300, 180}},   {'G', {500, 300}},
        {'H', {1000, 600}}, {'I', {1500, 900}}, {'J', {3000, 1800}}, {'K', {10000, 3600}}};
    int Remainder(const std::string& time) const {
        return Long(time.substr(Period() == 'B' ? 4 : 2)) % kPeriods.at(Period()).Divisor;
    }
    void SetNextBoundary(const std::string& time) {
        const auto two = [&](std::size_t at) { return Long(time.substr(at, 2)); };
        const int sum = two(0) * 3600 + two(2) * 60 + two(4) + kPeriods.at(Period()).Step;
        const int later = (sum + 86400) % 86400;
        char text[40];
        std::snprintf(text, sizeof(text), "%02d%02d%02d", later / 3600, later / 60 % 60, later % 60);
        NextBoundary = text;
    }

    // ---- columns

    void TakeNewest(const std::string& row) {
        const auto price = [&](std::size_t place, double none) {
            const std::string text = row.substr(14 + place * Kind.PriceSize, Kind.PriceSize);
            return Trimmed(text).empty() ? none : Read(text);
        };
        const std::string time = row.substr(8, 6);
        const int t = Long(time);
        const bool ofToday = t >= 1 && t <= 199899;
        TotalVolume = Long(Head.substr(27, 15));
        Minute = Live = {price(0, -1), price(1, -1), price(2, Kind.NoLow), 0};
        LiveClose = NextClose = Read(Head.substr(3, 12));
        if (ofToday) {
            Minute.Volume = Live.Volume = Long(row.substr(14 + 4 * Kind.PriceSize, Kind.VolumeSize));
        }
        LastTrade = NextBoundary = "999999";
        if (Period() == 'L') {
            Minute.Volume = Live.Volume = Next.Volume = TotalVolume;
            RollPending = Date > row.substr(0, 8);
        } else if (!ofToday) {
            RollPending = true;
        } else {
            RollPending = Remainder(time) == 0;
            LastTrade =
                Period() == 'K' ? time.substr(0, 2) + "0000" : Printed(int64_t{t} - Remainder(time), 6);
            SetNextBoundary(LastTrade);
        }
        if (RollPending) {
            Minute = {-1, -1, Kind.NoLowAfterRoll, 0};
            Rollover();
            RowSent = false;
        }
        LastTick = In.TickCount;
    }
    void Rollover() {
        if (RollPending) {
            Live = std::exchange(Next, {-1, -1, Kind.NoLowAfterRoll, 0});
            LiveClose = std::exchange(NextClose, 0);
            Changed = RollPending = false;
        }
    }

    // ---- packets

    bool OnTrade(const TradePacket& trade) override {
        return trade.Volume != 0 && Text(trade.Key) == Key &&
               AddTrade(Text(trade.Time), trade.Price, trade.Volume, trade.TotalVolume, trade.Value);
    }
    bool OnIndex(const IndexPacket& index) override {
        if (Text(index.Key) != Key) {
            return false;
        }
        AddTrade(Text(index.Time), index.Index / 10000.0, index.Volume, index.TotalVolume, index.Value);
        if (Period() == 'L') {
            Live = {index.Open / 10000.0, index.High / 10000.0, index.Low / 10000.0, Live.Volume};
        }
        return true;
    }
    bool AddTrade(const std::string& time, double v, int32_t volume, int32_t totalVolume, int64_t money) {
        if (Period() == 'A') {
            Head = HeadWith('2', v, totalVolume);
            Ticks.push_back(Row(time, {v, v, v, volume}, v, Printed(money, Kind.ValueSize)));
            return true;
        }
        if (NextBoundary < time) {
            Next.Merge(v, v, v, volume);
            NextClose = v;
        }
        Live.Merge(v, v, v, volume);
        LiveClose = v;
        Live.Volume = Period() == 'L' ? totalVolume : Live.Volume;
        TotalVolume = totalVolume;
        LastTrade = time;
        return true;
    }

    bool OnBar(const BarPacket& bar) override {
        return Text(bar.Key) == Key &&
               AddBar(Text(bar.Time), bar.Open, bar.High, bar.Low, bar.Close, bar.Volume);
    }
    bool OnIndexBar(const IndexBarPacket& bar) override {
        const double v = bar.Index / 10000.0;
        return Text(bar.Key) == Key && AddBar(Text(bar.Time), v, v, v, v, bar.Volume);
    }
    // Nothing is left to be refreshed: its row leaves at once.
    bool AddBar(const std::string& time, double open, double high, double low, double close, int32_t volume) {
        if (Period() == 'A' || Period() == 'L') {
            return false;
        }
        Minute.Merge(open, high, low, volume);
        Live = {Minute.Open, Minute.High, Minute.Low, Live.Volume};
        if (Period() == 'B') {
            return false;
        }
        const bool closes = Period() == 'C' || Remainder(time) == 0;
        const bool opens = !RowSent && (Period() == 'C' || !closes);
        LastMinute = time;
        LiveClose = LiveClose == 0 ? close : LiveClose;
        SendCandle(opens, Row(time, Minute, Kind.IsIndex ? LiveClose : close));
        if (closes) {
            SetNextBoundary(time);
            RowSent = false;
            Minute = {-1, -1, Kind.NoLow, 0};
            RollPending = true;
        }
        return false;
    }

    void OnEndBatch() override {
        if (Period() == 'A') {
            SendRows(Head, std::exchange(Ticks, {}));
            Changed = false;
            return;
        }
        const bool wrapped = !Kind.IsIndex && In.TickCount < LastTick;
        const bool open = Kind.IsIndex || (!wrapped && In.TickCount - LastTick > 300);
        LastTick = wrapped || open ? In.TickCount : LastTick;
        if (open && LastTrade > LastMinute) {
            SendCandle(!RowSent, Row(LastTrade, Live, LiveClose));
            Changed = false;
        }
        Rollover();
    }

    // ---- text

    double Read(const std::string& text) const { return Kind.IsIndex ? Double(text) : Long(text); }
    std::string Price(double value, std::size_t width) const {
        return Kind.IsIndex ? Printed(value, width, 3) : Printed(static_cast<int64_t>(value), width);
    }
    std::string HeadWith(char action, double price, int32_t quantity) const {
        return Head.substr(0, 1) + action + Head[2] + Price(price, 12) + Head.substr(15, 12) +
               Printed(quantity, 15) + Head.substr(42);
    }
    std::string Row(const std::string& time, const CandleColumn& column, double close,
                    const std::string& value = "") const {
        return Date + time + Price(column.Open, Kind.PriceSize) + Price(column.High, Kind.PriceSize) +
               Price(column.Low, Kind.PriceSize) + Price(close, Kind.PriceSize) +
               Printed(column.Volume, Kind.VolumeSize) + Field(value, Kind.ValueSize);
    }
    void SendCandle(bool opens, const std::string& row) {
        SendRows(HeadWith(opens ? '2' : '1', LiveClose, TotalVolume), {row});
        Sent.back().replace(0, 2, CandleTag);
        RowSent = true;
    }

    std::string CandleTag;  // of the last inquiry whose text was whole
    std::string Key, Date, Head;
    Rows Ticks;
    bool RollPending = false;
    bool RowSent = true;  // in the current bucket
    int32_t TotalVolume = 0;
    CandleColumn Minute, Live, Next;
    double LiveClose = 0, NextClose = 0;
    std::string LastTrade, LastMinute, NextBoundary;
    uint32_t LastTick = 0;
};

#endif
