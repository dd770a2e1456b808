// The newest candle of a chart, its columns and the bucket of time that it stands for. It knows no window and
// no packet: a chart's decoder tells it trades and bars, and asks what a row shows.
//
// Two streams feed it. Trades move the candle at once. Closed minute bars are the authority on what a candle
// holds; they alone close a bucket. Trades may run ahead of the last bar, so those past the next boundary are
// collected twice, in the live column and in the column of the candle after it.
//
// One bucket's life: after a close (or an inquiry whose candle is finished) no sent-flag is set. The first
// row opens the new candle, later rows update it. The bar on the boundary has its row, empties the minute
// column and moves the boundary on; the next batch end with a trade rolls the next column into the live one.
//
// A Kind tells what differs between stocks and indices; see CRSCAND11.h.
#ifndef TICKMUX_MODULE_DECODERS_CHARTS_LIVECANDLE_H
#define TICKMUX_MODULE_DECODERS_CHARTS_LIVECANDLE_H

#include <cstdint>
#include <cstring>

#include "module/decoders/charts/CandleClock.h"
#include "module/layouts/Candles.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

template <class Value>
struct CandleColumn {
    Value Open;  // below zero: none yet, as High
    Value High;
    Value Low;  // a sentinel above all values: none yet
    int32_t Volume;

    void Merge(Value open, Value high, Value low) {
        Open = Open < 0 ? open : Open;
        High = high > High ? high : High;
        Low = low < Low ? low : Low;
    }
    void Add(Value value, int32_t volume) {
        Merge(value, value, value);
        Volume = WrapAdd(Volume, volume);
    }
};

template <class Value>
struct CandleBar {
    Value Open;
    Value High;
    Value Low;
    Value Close;
    int32_t Volume;
};

template <class Kind>
class LiveCandle {
public:
    using Value = typename Kind::Value;
    using Row = typename Kind::Row;
    using Column = CandleColumn<Value>;

    LiveCandle() { Reset(kNoPeriod); }

    // Sets the period; there is no candle yet.
    void Reset(const Period& period);
    // Goes on from the newest candle of the inquiry; a row of spaces is none. Gives what Rollover gives, for
    // a candle that is finished.
    bool TakeNewest(const CandleInit& init, const Row& row);

    const Period& AtPeriod() const { return m_Period; }
    bool TakesBars() const { return m_Period.Char != kTickList && m_Period.Char != kDays; }

    void AddTrade(const ClockTime& time, Value value, int32_t volume, int32_t totalVolume);
    // The day's own figures, in place of what was seen of them.
    void SetDay(Value open, Value high, Value low) { m_Live = {open, high, low, m_Live.Volume}; }

    // A closed minute bar; false: the period shows no row of it.
    bool MergeBar(const CandleBar<Value>& bar);
    // What the bar's row does. It counts as sent.
    struct BarRow {
        bool Opens;   // the candle
        bool Closes;  // the bucket, behind the row
    };
    BarRow TakeBarRow(const ClockTime& time);
    // Without a trade so far the bar tells the live value.
    void SetCloseIfNone(Value close) { m_LiveClose = m_LiveClose == 0 ? close : m_LiveClose; }
    void CloseBucket(const ClockTime& time);

    // False: the last bar covers the latest trade already.
    bool HasTradeBehindBars() const { return m_LastTrade.After(m_LastMinute); }
    // True if the row of the latest trade opens the candle. It counts as sent.
    bool TakeTradeRow();
    // The next column becomes the live one, if that is due.
    bool Rollover();

    const Column& Live() const { return m_Live; }      // every trade; overwritten by each bar
    const Column& Minute() const { return m_Minute; }  // bars, merged up to the bucket's close
    Value Close() const { return m_LiveClose; }        // of the live column
    int32_t TotalVolume() const { return m_nTotalVolume; }
    const ClockTime& LastTrade() const { return m_LastTrade; }

private:
    static Column NoColumn(Value low) { return {Kind::kNone, Kind::kNone, low, 0}; }
    template <std::size_t N>
    static Value ReadOr(const char (&field)[N], Value otherwise) {
        return IsBlank(field) ? otherwise : Kind::Read(field);
    }
    static bool IsFinished(const Period& period, const CandleInit& init, const Row& row);

    bool NothingSent() const { return !m_bMinuteRowSent && !m_bTickRowSent && !m_bNewBarSent; }
    void SetSent(bool sent) { m_bMinuteRowSent = m_bTickRowSent = m_bNewBarSent = sent; }
    void SetNextBoundary(const ClockTime& time) { m_NextBoundary = Later(time, m_Period.StepSeconds); }

    ClockTime m_LastTrade;
    ClockTime m_LastMinute;    // zero bytes: no bar yet
    ClockTime m_NextBoundary;  // end of the current bucket; kNoTime: not known
    bool m_bRollPending;
    bool m_bMinuteRowSent;  // in the current bucket, as the next two
    bool m_bTickRowSent;
    bool m_bNewBarSent;  // the row that opened the candle
    Period m_Period;
    int32_t m_nTotalVolume;
    Value m_LiveClose;  // 0: none yet, as the next
    Value m_NextClose;
    Column m_Live;
    Column m_Next;  // trades past the boundary
    Column m_Minute;
};

template <class Kind>
void LiveCandle<Kind>::Reset(const Period& period) {
    m_Period = period;
    m_Minute = m_Live = m_Next = NoColumn(Kind::kNoLow);
    m_LiveClose = m_NextClose = 0;
    m_nTotalVolume = 0;
    SetSent(true);
    m_LastTrade = m_LastMinute = m_NextBoundary = ClockTime{};
    m_bRollPending = false;
}

// True if the inquiry's candle is a whole one: the chart date lies behind its day, or it ends on a boundary.
template <class Kind>
bool LiveCandle<Kind>::IsFinished(const Period& period, const CandleInit& init, const Row& row) {
    return period.Char == kDays ? std::memcmp(init.Date, row.Date, sizeof(init.Date)) > 0
                                : period.OnBoundary(TimeOf(row.Time));
}

template <class Kind>
bool LiveCandle<Kind>::TakeNewest(const CandleInit& init, const Row& row) {
    constexpr int32_t kLatestTime = 199899;
    const ClockTime time = TimeOf(row.Time);
    const int32_t number = ToLong(row.Time);
    const bool hasTime = number >= 1 && number <= kLatestTime;

    m_bRollPending = IsFinished(m_Period, init, row);
    m_nTotalVolume = ToLong(init.Head.Quantity);
    m_Minute.Open = m_Live.Open = ReadOr(row.Open, Kind::kNone);
    m_Minute.High = m_Live.High = ReadOr(row.High, Kind::kNone);
    m_Minute.Low = m_Live.Low = ReadOr(row.Low, Kind::kNoLow);
    m_LiveClose = m_NextClose = Kind::Read(init.Head.Price);
    if (hasTime) {
        m_Minute.Volume = m_Live.Volume = ToLong(row.Volume);
    }

    m_LastTrade = m_NextBoundary = kNoTime;
    if (m_Period.Char == kDays) {
        m_Minute.Volume = m_Live.Volume = m_Next.Volume = m_nTotalVolume;
    } else if (!hasTime) {
        m_bRollPending = true;
    } else {
        // From the start of the row's bucket; a row on a boundary is the last of a finished candle.
        if (m_Period.Char == kHours) {
            m_LastTrade = {{time.Text[0], time.Text[1], '0', '0', '0', '0'}};
        } else {
            Put(m_LastTrade.Text, number - m_Period.Remainder(time));
        }
        SetNextBoundary(m_LastTrade);
    }

    if (!m_bRollPending) {
        return false;
    }
    // The next candle has not begun: the first row opens it.
    m_Minute = NoColumn(Kind::kNoLowAfterRoll);
    SetSent(false);
    return Rollover();
}

template <class Kind>
void LiveCandle<Kind>::AddTrade(const ClockTime& time, Value value, int32_t volume, int32_t totalVolume) {
    if (time.After(m_NextBoundary)) {
        m_Next.Add(value, volume);
        m_NextClose = value;
    }
    m_Live.Add(value, volume);
    m_LiveClose = value;
    if (m_Period.Char == kDays) {
        m_Live.Volume = totalVolume;
    }
    m_nTotalVolume = totalVolume;
    m_LastTrade = time;
}

template <class Kind>
bool LiveCandle<Kind>::MergeBar(const CandleBar<Value>& bar) {
    m_Minute.Merge(bar.Open, bar.High, bar.Low);
    m_Minute.Volume = WrapAdd(m_Minute.Volume, bar.Volume);
    // The trades of a finished minute count only through the bar.
    m_Live.Open = m_Minute.Open;
    m_Live.High = m_Minute.High;
    m_Live.Low = m_Minute.Low;
    return m_Period.Char != kHalfMinutes;
}

// A minute chart closes with every bar; in the longer periods a bar that closes never opens.
template <class Kind>
typename LiveCandle<Kind>::BarRow LiveCandle<Kind>::TakeBarRow(const ClockTime& time) {
    const bool everyBarCloses = m_Period.Char == kMinutes;
    const bool closes = everyBarCloses || m_Period.OnBoundary(time);
    const bool opens = NothingSent() && (everyBarCloses || !closes);
    m_bNewBarSent = m_bNewBarSent || opens;
    m_bMinuteRowSent = true;
    m_LastMinute = time;
    return {opens, closes};
}

// The live and the next column stay until the roll.
template <class Kind>
void LiveCandle<Kind>::CloseBucket(const ClockTime& time) {
    SetNextBoundary(time);
    SetSent(false);
    m_Minute = NoColumn(Kind::kNoLow);
    m_bRollPending = true;
}

template <class Kind>
bool LiveCandle<Kind>::TakeTradeRow() {
    const bool opens = NothingSent();
    m_bNewBarSent = m_bNewBarSent || opens;
    m_bTickRowSent = true;
    return opens;
}

template <class Kind>
bool LiveCandle<Kind>::Rollover() {
    if (!m_bRollPending) {
        return false;
    }
    m_Live = m_Next;
    m_Next = NoColumn(Kind::kNoLowAfterRoll);
    m_LiveClose = m_NextClose;
    m_NextClose = 0;
    m_bRollPending = false;
    return true;
}

#endif
