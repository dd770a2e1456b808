// The live end of a chart: keeps the newest candle alive and tells the view, row by row, whether a row
// updates it or opens a new one.
//
// Trades go out at the batch end, closed minute bars at once from the handler. In period kTickList every
// trade is a row, and the rows of a batch leave together.
//
// A Kind tells what differs between stocks and indices; see CRSCAND11.h.
#ifndef TICKMUX_MODULE_DECODERS_CHARTS_CANDLES_H
#define TICKMUX_MODULE_DECODERS_CHARTS_CANDLES_H

#include <cstdint>
#include <cstring>
#include <utility>

#include "module/decoders/charts/CandleClock.h"
#include "module/decoders/charts/LiveCandle.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/framework/waiting_rows.h"
#include "module/layouts/Candles.h"
#include "module/wire/codecs.h"

template <class Kind>
class CandleDecoder : public CRTMPacketDecoder {
protected:
    using Key = typename Kind::Key;
    using Value = typename Kind::Value;
    using Row = typename Kind::Row;

    CandleDecoder(HWND hWnd, const PacketSlots& slots) : CRTMPacketDecoder(hWnd, slots) {
        ClearBlock();
        FillBlank(m_Front.Tag);
        m_CandleTag = m_Front.Tag;
    }

    bool Follows(const Key& key) const { return m_Key.Get() == key; }
    LiveCandle<Kind>& Candle() { return m_Candle; }

    // Period kTickList: a row of its own. The handler's result.
    int AddTick(const char (&time)[6], Value value, int32_t volume, int64_t money, int32_t totalVolume);
    // A closed minute bar; its row leaves at once. The handler's result, always 0.
    int AddBar(const ClockTime& time, const CandleBar<Value>& bar);

private:
    struct Display {
        HeadedRows Front;
        Row Newest;
    };

    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    bool ThrottleIsOpen();
    void SendTradeRow();
    void PutRow(Display& display, bool opens, const ClockTime& time, const CandleColumn<Value>& column,
                Value close) const;
    void ClearBlock();

    FollowedCode<Key, Kind::kClass, Kind::kFlags> m_Key{*this};
    LiveCandle<Kind> m_Candle;
    DWORD m_dwLastTick = 0;  // when the throttle was last decided, in milliseconds
    HeadedRows m_Front;      // request tag, of a refused inquiry too, and display head
    RequestTag m_CandleTag;  // of the last inquiry whose text was whole; candle rows leave under it
    char m_Date[8];
    WaitingRows<Row> m_Ticks;
    unsigned m_nInquiry = 0;  // counts those that were taken
};

template <class Kind>
int CandleDecoder<Kind>::OnInit(InitReader& in) {
    m_Front.Tag = in.Tag();
    CandleInit init;
    Row newest[1];
    if (!in.Read(init) || !in.ReadRepeatBlock(newest) || !in.AtEnd() ||
        std::memcmp(init.RequestDate, init.Date, sizeof(init.Date)) < 0) {
        return 0;
    }
    m_CandleTag = m_Front.Tag;
    const Key former = m_Key.Take(reinterpret_cast<const Key&>(init.Key));
    Put(m_Date, init.Date);
    m_Front.Head = init.Head;
    ++m_nInquiry;
    const Period* period = FindPeriod(init.Head.Period);
    m_Candle.Reset(period == nullptr ? kNoPeriod : *period);
    if (period == nullptr) {
        return 0;  // the key is taken already, the subscriptions have not moved
    }
    m_Ticks.Clear();
    m_Key.MoveFrom(former);
    // From here on by what was read: the communication manager may have called back.
    if (period->Char == kTickList) {
        m_Front.Head.RowAction = kAppendRow;
        return 1;
    }
    if (m_Candle.TakeNewest(init, newest[0])) {
        DropChange();
    }
    m_dwLastTick = GetTickCount();
    return 1;
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
int CandleDecoder<Kind>::AddBar(const ClockTime& time, const CandleBar<Value>& bar) {
    if (!m_Candle.MergeBar(bar)) {
        return 0;
    }
    const auto [opens, closes] = m_Candle.TakeBarRow(time);
    ViewBuffer buffer = ViewBuffer::Blank(sizeof(Display));
    if (!buffer) {
        return 0;  // the row is lost, and the bucket stays open
    }
    m_Candle.SetCloseIfNone(bar.Close);
    PutRow(buffer.template As<Display>(), opens, time, m_Candle.Minute(),
           Kind::BarClose(bar, m_Candle.Close()));
    const unsigned inquiry = m_nInquiry;
    PostToView(std::move(buffer));
    // Unless the window has brought another inquiry from within its message.
    if (closes && m_nInquiry == inquiry) {
        m_Candle.CloseBucket(time);
    }
    return 0;
}

// ------------------------------------------------------------------ the batch end

template <class Kind>
void CandleDecoder<Kind>::OnEndUnpack() {
    if (m_Candle.AtPeriod().Char == kTickList) {
        SendRows(m_Front, m_Ticks);
        return;
    }
    // A trade that the last bar covers already sends nothing.
    const bool sends = ThrottleIsOpen() && m_Candle.HasTradeBehindBars();
    if (sends) {
        SendTradeRow();
    }
    // A roll drops a change that the throttle kept back.
    if (m_Candle.Rollover()) {
        DropChange();
    } else if (!sends) {
        KeepChange();
    }
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
    const bool opens = m_Candle.TakeTradeRow();
    ViewBuffer buffer = ViewBuffer::Blank(sizeof(Display));
    if (buffer) {
        PutRow(buffer.template As<Display>(), opens, m_Candle.LastTrade(), m_Candle.Live(), m_Candle.Close());
        PostToView(std::move(buffer));
    }
}

// The figures of the moment stand in the buffer's head only; the decoder's own keeps its text.
template <class Kind>
void CandleDecoder<Kind>::PutRow(Display& display, bool opens, const ClockTime& time,
                                 const CandleColumn<Value>& column, Value close) const {
    display.Front.Tag = m_CandleTag;
    display.Front.Head = m_Front.Head;
    display.Front.Head.RowAction = opens ? kAppendRow : kUpdateRow;
    Kind::Write(display.Front.Head.Price, m_Candle.Close());
    Put(display.Front.Head.Quantity, m_Candle.TotalVolume());
    display.Front.Repeat = RepeatOf<Row>(1);
    Put(display.Newest.Date, m_Date);
    Put(display.Newest.Time, time.Text);
    Kind::Write(display.Newest.Open, column.Open);
    Kind::Write(display.Newest.High, column.High);
    Kind::Write(display.Newest.Low, column.Low);
    Kind::Write(display.Newest.Close, close);
    Put(display.Newest.Volume, column.Volume);
}

// ------------------------------------------------------------------ the end

// A tick list leaves its subscription in place. The block is blank before the request goes out: whoever hears
// of it may call back and bring another.
template <class Kind>
void CandleDecoder<Kind>::OnRelease() {
    const char period = m_Front.Head.Period;
    ClearBlock();
    if (period != kTickList && FindPeriod(period) != nullptr) {
        m_Key.GiveUp();
    } else {
        m_Key.Forget();
    }
}

template <class Kind>
void CandleDecoder<Kind>::ClearBlock() {
    FillBlank(m_Date);
    FillBlank(m_Front.Head);
}

#endif
