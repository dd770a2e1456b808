// The live end of a chart: keeps the newest candle alive and tells the view, row by row, whether a row
// updates it or opens a new one.
//
// Two streams feed it. Trades move the candle at once and go out at the batch end. Closed minute bars are the
// authority on what a candle holds: they alone close a bucket, and their rows go out from the handler. Trades
// may run ahead of the last bar, so those past the next boundary are collected twice, in the live column and
// in the column of the candle after it.
//
// One bucket's life: after a close (or an inquiry whose candle is finished) no sent-flag is set. The first
// row opens the new candle, later rows update it. The bar on the boundary sends its row, empties the minute
// column and moves the boundary on; the next batch end with a trade rolls the next column into the live one.
//
// A Kind tells what differs between stocks and indices; see CRSCAND11.h.
#ifndef TICKMUX_DECODERS_CANDLES_H
#define TICKMUX_DECODERS_CANDLES_H

#include <cstdint>
#include <cstring>
#include <utility>

#include "decoders/CandleClock.h"
#include "framework/codecs.h"
#include "framework/init_reader.h"
#include "framework/packet_decoder.h"
#include "framework/subscription.h"
#include "framework/waiting_rows.h"
#include "framework/wrap.h"
#include "layouts/Candles.h"

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
class CandleDecoder : public CRTMPacketDecoder {
public:
    ~CandleDecoder() override { GiveUp(); }

    int Init(const char* buffer) override;
    void Release() override;
    void EndUnpack() override;

protected:
    using Key = typename Kind::Key;
    using Value = typename Kind::Value;
    using Row = typename Kind::Row;
    using Column = CandleColumn<Value>;

    CandleDecoder(HWND hWnd, const PacketSlots& slots) : CRTMPacketDecoder(hWnd, slots) {
        ClearBlock();
        FillBlank(m_Front.Tag);
        m_CandleTag = m_Front.Tag;
        Reset();
    }

    bool Follows(const Key& key) const { return FollowedKey() == key; }
    char PeriodChar() const { return m_Front.Head.Period; }

    // Period kTickList: a row of its own. The handler's result.
    int AddTick(const char (&time)[6], Value value, int32_t volume, int64_t money, int32_t totalVolume);
    // All other periods.
    void AddTrade(const ClockTime& time, Value value, int32_t volume, int32_t totalVolume);
    // A closed minute bar; its row leaves at once. The handler's result, always 0.
    int AddBar(const ClockTime& time, const CandleBar<Value>& bar);

    Column& Live() { return m_Live; }

private:
    using Request = Subscription<Key, Kind::kClass, Kind::kFlags>;

    static Column NoColumn(Value low) { return {Kind::kNone, Kind::kNone, low, 0}; }
    template <std::size_t N>
    static Value ReadOr(const char (&field)[N], Value otherwise) {
        return IsBlank(field) ? otherwise : Kind::Read(field);
    }

    const Key& FollowedKey() const { return *reinterpret_cast<const Key*>(m_Key); }
    bool IsTickList() const { return PeriodChar() == kTickList; }
    bool NothingSent() const { return !m_bMinuteRowSent && !m_bTickRowSent && !m_bNewBarSent; }
    void SetSent(bool sent) { m_bMinuteRowSent = m_bTickRowSent = m_bNewBarSent = sent; }

    void Reset();
    static bool IsFinished(const Period& period, const CandleInit& init, const Row& row);
    void TakeNewest(const Period& period, const DisplayHead& head, const Row& row);
    bool ThrottleIsOpen();
    void SendTradeRow();
    void PostRow(ViewBuffer buffer, char action, const ClockTime& time, const Column& column, Value close);
    void Rollover();
    void ClearBlock();
    void GiveUp();

    // What every packet looks at.
    char m_Key[sizeof(CandleInit::Key)];
    ClockTime m_LastTrade;
    ClockTime m_LastMinute;    // zero bytes: no bar yet
    ClockTime m_NextBoundary;  // end of the current bucket; kNoTime: not known
    bool m_bRollPending = false;
    bool m_bMinuteRowSent = true;  // in the current bucket, as the next two
    bool m_bTickRowSent = true;
    bool m_bNewBarSent = true;             // the row that opened the candle
    const Period* m_pPeriod = &kNoPeriod;  // of the last good inquiry
    int32_t m_nTotalVolume = 0;
    Value m_LiveClose = 0;  // 0: none yet, as the next
    Value m_NextClose = 0;
    Column m_Live;           // every trade; overwritten by each bar
    Column m_Next;           // trades past the boundary
    Column m_Minute;         // bars, merged up to the bucket's close
    DWORD m_dwLastTick = 0;  // when the throttle was last decided, in milliseconds
    HeadedRows m_Front;      // request tag, of a refused inquiry too, and display head
    RequestTag m_CandleTag;  // of the last inquiry whose text was whole; candle rows leave under it
    char m_Date[8];
    WaitingRows<Row> m_Ticks;
};

// ------------------------------------------------------------------ the inquiry

template <class Kind>
int CandleDecoder<Kind>::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
    m_Front.Tag = in.Tag();
    CandleInit init;
    Row newest[1];
    if (!in.Read(init) || !in.ReadRepeatBlock(newest) || !in.AtEnd() ||
        std::memcmp(init.RequestDate, init.Date, sizeof(init.Date)) < 0) {
        return 0;
    }
    m_CandleTag = m_Front.Tag;
    const Key former = FollowedKey();
    Put(m_Key, init.Key);
    Filter().Set(FollowedKey());
    Put(m_Date, init.Date);
    m_Front.Head = init.Head;
    Reset();
    const Period* period = FindPeriod(init.Head.Period);
    if (period == nullptr) {
        return 0;  // the key is taken already, the subscriptions have not moved
    }
    m_pPeriod = period;
    m_bRollPending = IsFinished(*period, init, newest[0]);
    m_Ticks.Clear();
    Request::Move(former, FollowedKey());
    // From here on by what was read: the communication manager may have called back.
    if (period->Char == kTickList) {
        m_Front.Head.RowAction = kAppendRow;
        return 1;
    }
    TakeNewest(*period, init.Head, newest[0]);
    m_dwLastTick = GetTickCount();
    return 1;
}

// True if the inquiry's candle is a whole one: the chart date lies behind its day, or it ends on a boundary.
template <class Kind>
bool CandleDecoder<Kind>::IsFinished(const Period& period, const CandleInit& init, const Row& row) {
    switch (period.Char) {
        case kTickList:
            return false;
        case kDays:
            return std::memcmp(init.Date, row.Date, sizeof(init.Date)) > 0;
        default:
            return period.OnBoundary(TimeOf(row.Time));
    }
}

template <class Kind>
void CandleDecoder<Kind>::Reset() {
    m_Minute = m_Live = m_Next = NoColumn(Kind::kNoLow);
    m_LiveClose = m_NextClose = 0;
    m_nTotalVolume = 0;
    SetSent(true);
    m_LastTrade = m_LastMinute = m_NextBoundary = ClockTime{};
    m_bRollPending = false;
}

// Goes on from the newest candle of the inquiry; a row of spaces is none.
template <class Kind>
void CandleDecoder<Kind>::TakeNewest(const Period& period, const DisplayHead& head, const Row& row) {
    constexpr int32_t kLatestTime = 199899;
    const ClockTime time = TimeOf(row.Time);
    const int32_t number = ToLong(row.Time);
    const bool hasTime = number >= 1 && number <= kLatestTime;

    m_nTotalVolume = ToLong(head.Quantity);
    m_Minute.Open = m_Live.Open = ReadOr(row.Open, Kind::kNone);
    m_Minute.High = m_Live.High = ReadOr(row.High, Kind::kNone);
    m_Minute.Low = m_Live.Low = ReadOr(row.Low, Kind::kNoLow);
    m_LiveClose = m_NextClose = Kind::Read(head.Price);
    if (hasTime) {
        m_Minute.Volume = m_Live.Volume = ToLong(row.Volume);
    }

    m_LastTrade = m_NextBoundary = kNoTime;
    if (period.Char == kDays) {
        m_Minute.Volume = m_Live.Volume = m_Next.Volume = m_nTotalVolume;
    } else if (!hasTime) {
        m_bRollPending = true;
    } else {
        // From the start of the row's bucket; a row on a boundary is the last of a finished candle.
        if (period.Char == kHours) {
            m_LastTrade = {{time.Text[0], time.Text[1], '0', '0', '0', '0'}};
        } else {
            Put(m_LastTrade.Text, number - period.Remainder(time));
        }
        m_NextBoundary = Later(m_LastTrade, period.StepSeconds);
    }

    if (m_bRollPending) {
        // The next candle has not begun: the first row opens it.
        m_Minute = NoColumn(Kind::kNoLowAfterRoll);
        Rollover();
        SetSent(false);
    }
}

// ------------------------------------------------------------------ packets

template <class Kind>
int CandleDecoder<Kind>::AddTick(const char (&time)[6], Value value, int32_t volume, int64_t money,
                                 int32_t totalVolume) {
    Row* row = m_Ticks.Add();
    if (row == nullptr) {
        return 0;
    }
    Kind::Write(m_Front.Head.Price, value);
    Put(m_Front.Head.Quantity, totalVolume);
    Put(row->Date, m_Date);
    Put(row->Time, time);
    Kind::Write(row->Open, value);
    Put(row->High, row->Open);
    Put(row->Low, row->Open);
    Put(row->Close, row->Open);
    Put(row->Volume, volume);
    Put(row->Value, money);
    return 1;
}

template <class Kind>
void CandleDecoder<Kind>::AddTrade(const ClockTime& time, Value value, int32_t volume, int32_t totalVolume) {
    if (time.After(m_NextBoundary)) {
        m_Next.Add(value, volume);
        m_NextClose = value;
    }
    m_Live.Add(value, volume);
    m_LiveClose = value;
    if (PeriodChar() == kDays) {
        m_Live.Volume = totalVolume;
    }
    m_nTotalVolume = totalVolume;
    m_LastTrade = time;
}

template <class Kind>
int CandleDecoder<Kind>::AddBar(const ClockTime& time, const CandleBar<Value>& bar) {
    m_Minute.Merge(bar.Open, bar.High, bar.Low);
    m_Minute.Volume = WrapAdd(m_Minute.Volume, bar.Volume);
    // The trades of a finished minute count only through the bar.
    m_Live.Open = m_Minute.Open;
    m_Live.High = m_Minute.High;
    m_Live.Low = m_Minute.Low;
    if (PeriodChar() == kHalfMinutes) {
        return 0;
    }

    // A minute chart closes with every bar; in the longer periods a bar that closes never opens.
    const Period& period = *m_pPeriod;
    const bool everyBarCloses = period.Char == kMinutes;
    const bool closes = everyBarCloses || period.OnBoundary(time);
    const bool opens = NothingSent() && (everyBarCloses || !closes);
    if (opens) {
        m_bNewBarSent = true;
    }
    m_bMinuteRowSent = true;
    m_LastMinute = time;

    ViewBuffer buffer = ViewBuffer::Blank(sizeof(HeadedRows) + sizeof(Row));
    if (!buffer) {
        return 0;  // the row is lost, and the bucket stays open
    }
    if (m_LiveClose == 0) {
        m_LiveClose = bar.Close;
    }
    PostRow(std::move(buffer), opens ? kAppendRow : kUpdateRow, time, m_Minute,
            Kind::BarClose(bar, m_LiveClose));

    if (closes) {
        m_NextBoundary = Later(time, period.StepSeconds);
        SetSent(false);
        m_Minute = NoColumn(Kind::kNoLow);
        m_bRollPending = true;  // the live and the next column stay until then
    }
    return 0;
}

// ------------------------------------------------------------------ the batch end

template <class Kind>
void CandleDecoder<Kind>::EndUnpack() {
    if (IsTickList()) {
        SendRows(m_Front, m_Ticks);
        return;
    }
    if (m_bChanged == 0 || m_bStopped != 0) {
        return;
    }
    // A trade that the last bar covers already sends nothing.
    if (ThrottleIsOpen() && m_LastTrade.After(m_LastMinute)) {
        SendTradeRow();
    }
    Rollover();
}

template <class Kind>
bool CandleDecoder<Kind>::ThrottleIsOpen() {
    if constexpr (Kind::kThrottleMilliseconds > 0) {
        const DWORD now = GetTickCount();
        const bool wrapped = now < m_dwLastTick;
        const bool open = !wrapped && now - m_dwLastTick > Kind::kThrottleMilliseconds;
        if (wrapped || open) {
            m_dwLastTick = now;
        }
        return open;
    }
    return true;
}

template <class Kind>
void CandleDecoder<Kind>::SendTradeRow() {
    const bool opens = NothingSent();
    if (opens) {
        m_bNewBarSent = true;
    }
    m_bTickRowSent = true;
    // Cleared before the window hears of it, so that a trade which it causes is sent too.
    m_bChanged = 0;
    PostRow(ViewBuffer::Blank(sizeof(HeadedRows) + sizeof(Row)), opens ? kAppendRow : kUpdateRow, m_LastTrade,
            m_Live, m_LiveClose);
}

// The figures of the moment stand in the buffer's head only; the decoder's own keeps its text.
template <class Kind>
void CandleDecoder<Kind>::PostRow(ViewBuffer buffer, char action, const ClockTime& time, const Column& column,
                                  Value close) {
    if (!buffer) {
        return;
    }
    struct Candle {
        HeadedRows Front;
        Row Newest;
    };
    auto& candle = buffer.As<Candle>();
    candle.Front.Tag = m_CandleTag;
    candle.Front.Head = m_Front.Head;
    candle.Front.Head.RowAction = action;
    Kind::Write(candle.Front.Head.Price, m_LiveClose);
    Put(candle.Front.Head.Quantity, m_nTotalVolume);
    Put(candle.Front.Repeat.Count, 1);
    Put(candle.Front.Repeat.Size, static_cast<int32_t>(sizeof(Row)));
    Put(candle.Newest.Date, m_Date);
    Put(candle.Newest.Time, time.Text);
    Kind::Write(candle.Newest.Open, column.Open);
    Kind::Write(candle.Newest.High, column.High);
    Kind::Write(candle.Newest.Low, column.Low);
    Kind::Write(candle.Newest.Close, close);
    Put(candle.Newest.Volume, column.Volume);
    PostToView(std::move(buffer));
}

// The next column becomes the live one. This drops a change that the throttle kept back.
template <class Kind>
void CandleDecoder<Kind>::Rollover() {
    if (!m_bRollPending) {
        return;
    }
    m_Live = m_Next;
    m_Next = NoColumn(Kind::kNoLowAfterRoll);
    m_LiveClose = m_NextClose;
    m_NextClose = 0;
    m_bChanged = 0;
    m_bRollPending = false;
}

// ------------------------------------------------------------------ the end

template <class Kind>
void CandleDecoder<Kind>::Release() {
    CRTMPacketDecoder::Release();
    GiveUp();
}

// A tick list leaves its subscription in place. The block is blank before the request goes out: whoever hears
// of it may call back and bring another.
template <class Kind>
void CandleDecoder<Kind>::GiveUp() {
    const Key former = FollowedKey();
    const bool subscribed = !IsTickList() && FindPeriod(PeriodChar()) != nullptr;
    ClearBlock();
    if (subscribed) {
        Request::Delete(former);
    }
}

template <class Kind>
void CandleDecoder<Kind>::ClearBlock() {
    FillBlank(m_Key);
    Filter().Set(FollowedKey());
    FillBlank(m_Date);
    FillBlank(m_Front.Head);
}

#endif
