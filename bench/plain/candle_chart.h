// A chart's live candle, written straight down: three columns, three sent-flags, a std::list of waiting rows.
// The stock and the index chart say what a price is and how it is printed.
#ifndef TICKMUX_BENCH_PLAIN_CANDLE_CHART_H
#define TICKMUX_BENCH_PLAIN_CANDLE_CHART_H

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <list>
#include <string>

#include "bench/plain/codecs.h"
#include "bench/plain/framework.h"
#include "layouts/Candles.h"

namespace plain {

// Gives 0 for a period that has no clock rule.
int StepSeconds(char period);

// What is left of a time's last digits when the period's length is taken out of them.
int Remainder(char period, const std::string& time);

// Six digits, `seconds` later; a step past midnight begins again.
std::string LaterTime(const std::string& time, int seconds);

template <class Value, class Row>
class CandleChart : public Decoder {
public:
    ~CandleChart() override {
        ClearTicks();
        Unsubscribe();
    }

    int Init(const char* buffer) override;
    void Release() override;
    void EndUnpack() override;

protected:
    struct Column {
        Value Open;  // below zero: none yet, as High
        Value High;
        Value Low;
        int32_t Volume;
    };

    CandleChart(HWND window, int keyLength, char chClass, uint32_t flags, Value noLow, Value noLowAfterRoll)
        : Decoder(window),
          m_nKeyLength(keyLength),
          m_chClass(chClass),
          m_dwFlags(flags),
          m_NoLow(noLow),
          m_NoLowAfterRoll(noLowAfterRoll) {
        memset(&m_Block, ' ', sizeof(m_Block));
        ResetColumns();
    }

    virtual Value ReadValue(const char* src, int length) const = 0;
    virtual void WriteValue(Value value, char* dst, int length) const = 0;
    // Whether the batch end may send a row by now.
    virtual bool ThrottleIsOpen() { return true; }
    virtual void StartThrottle() {}

    bool IsFollowed(const void* key) const {
        return memcmp(m_Block.Key, key, static_cast<size_t>(m_nKeyLength)) == 0;
    }
    char PeriodChar() const { return m_Block.Head.Period; }

    int AddTick(const char* time, Value value, int32_t volume, int64_t money, int32_t totalVolume);
    void AddTrade(const char* time, Value value, int32_t volume, int32_t totalVolume);
    void MergeBar(Value open, Value high, Value low, int32_t volume);
    // The row's close is `close`, or the live one where `close` is null.
    void SendBarRow(const char* packetTime, Value value, const Value* close);

    Column m_Minute;
    Column m_Live;
    Column m_Next;

private:
    static void Merge(Column& column, Value open, Value high, Value low, int32_t volume) {
        if (column.Open < 0) {
            column.Open = open;
        }
        if (high > column.High) {
            column.High = high;
        }
        if (low < column.Low) {
            column.Low = low;
        }
        column.Volume = static_cast<int32_t>(int64_t{column.Volume} + volume);
    }

    bool NothingSent() const { return !m_bMinuteRowSent && !m_bTickRowSent && !m_bNewBarSent; }
    void SetSent(bool sent) {
        m_bMinuteRowSent = sent;
        m_bTickRowSent = sent;
        m_bNewBarSent = sent;
    }

    void ResetColumns();
    void TakeNewestRow(const Row& row);
    void FillBuffer(char* buffer, char action, const std::string& time, const Column& column, Value close);
    void SendTicks();
    void Rollover();
    void ClearTicks();
    void Unsubscribe();

    const int m_nKeyLength;
    const char m_chClass;
    const uint32_t m_dwFlags;
    const Value m_NoLow;
    const Value m_NoLowAfterRoll;
    CandleInit m_Block;
    RequestTag m_Tag{};
    std::list<Row*> m_Ticks;
    bool m_bRollPending = false;
    bool m_bMinuteRowSent = true;
    bool m_bTickRowSent = true;
    bool m_bNewBarSent = true;
    int32_t m_nTotalVolume = 0;
    Value m_LiveClose = 0;  // 0: none yet, as the next one's
    Value m_NextClose = 0;
    std::string m_LastTrade;
    std::string m_LastMinute;
    std::string m_NextBoundary;
};

template <class Value, class Row>
int CandleChart<Value, Row>::Init(const char* buffer) {
    m_Tag = TagOf(buffer);
    Decoder::Init(buffer);

    CandleInit block;
    RepeatHead head;
    Row row;
    if (!ReadBytes(&block, sizeof(block)) || !ReadRepeatBlock(&head, &row, sizeof(row), 1) ||
        m_nInitRemain != 0 || memcmp(block.RequestDate, block.Date, sizeof(block.Date)) < 0) {
        return 0;
    }
    AllocOutput(m_Tag, sizeof(HeadedRows) + sizeof(Row) - sizeof(m_Tag));

    const CandleInit old = m_Block;
    m_Block = block;
    ResetColumns();

    const char period = PeriodChar();
    if (period == 'L') {
        m_bRollPending = memcmp(m_Block.Date, row.Date, sizeof(row.Date)) > 0;
    } else if (StepSeconds(period) != 0) {
        m_bRollPending = Remainder(period, std::string(row.Time, sizeof(row.Time))) == 0;
    } else if (period != kTickList) {
        return 0;
    }

    ClearTicks();
    AddTrStcd(m_Block.Key, m_nKeyLength, m_chClass, m_dwFlags);
    DelTrStcd(old.Key, m_nKeyLength, m_chClass, m_dwFlags);
    if (period == kTickList) {
        m_Block.Head.RowAction = kAppendRow;
        return 1;
    }
    TakeNewestRow(row);
    StartThrottle();
    return 1;
}

template <class Value, class Row>
void CandleChart<Value, Row>::ResetColumns() {
    const Column none = {static_cast<Value>(-1), static_cast<Value>(-1), m_NoLow, 0};
    m_Minute = none;
    m_Live = none;
    m_Next = none;
    m_LiveClose = 0;
    m_NextClose = 0;
    m_nTotalVolume = 0;
    SetSent(true);
    m_LastTrade.clear();
    m_LastMinute.clear();
    m_NextBoundary.clear();
    m_bRollPending = false;
}

template <class Value, class Row>
void CandleChart<Value, Row>::TakeNewestRow(const Row& row) {
    const char period = PeriodChar();
    const std::string rowTime(row.Time, sizeof(row.Time));
    const long time = AsciiToLong(row.Time, sizeof(row.Time));

    m_nTotalVolume = AsciiToLong(m_Block.Head.Quantity, sizeof(m_Block.Head.Quantity));
    if (!Trimmed(row.Open, sizeof(row.Open)).empty()) {
        m_Minute.Open = ReadValue(row.Open, sizeof(row.Open));
    }
    if (!Trimmed(row.High, sizeof(row.High)).empty()) {
        m_Minute.High = ReadValue(row.High, sizeof(row.High));
    }
    if (!Trimmed(row.Low, sizeof(row.Low)).empty()) {
        m_Minute.Low = ReadValue(row.Low, sizeof(row.Low));
    }
    m_Live = m_Minute;
    m_LiveClose = ReadValue(m_Block.Head.Price, sizeof(m_Block.Head.Price));
    m_NextClose = m_LiveClose;

    m_LastTrade = "999999";
    m_NextBoundary = "999999";
    const bool isToday = time >= 1 && time <= 199899;
    if (isToday) {
        m_Minute.Volume = AsciiToLong(row.Volume, sizeof(row.Volume));
        m_Live.Volume = m_Minute.Volume;
    }
    if (period == 'L') {
        m_Minute.Volume = m_nTotalVolume;
        m_Live.Volume = m_nTotalVolume;
        m_Next.Volume = m_nTotalVolume;
    } else if (!isToday) {
        m_bRollPending = true;
    } else {
        if (period == 'K') {
            m_LastTrade = rowTime.substr(0, 2) + "0000";
        } else {
            char text[24];
            snprintf(text, sizeof(text), "%6ld", time - Remainder(period, rowTime));
            m_LastTrade = text;
        }
        m_NextBoundary = LaterTime(m_LastTrade, StepSeconds(period));
    }

    if (m_bRollPending) {
        m_Minute = {static_cast<Value>(-1), static_cast<Value>(-1), m_NoLowAfterRoll, 0};
        Rollover();
        SetSent(false);
    }
}

template <class Value, class Row>
int CandleChart<Value, Row>::AddTick(const char* time, Value value, int32_t volume, int64_t money,
                                     int32_t totalVolume) {
    Row* row = new Row;
    memset(row, ' ', sizeof(*row));
    WriteValue(value, m_Block.Head.Price, sizeof(m_Block.Head.Price));
    LongToAscii(totalVolume, m_Block.Head.Quantity, sizeof(m_Block.Head.Quantity));
    memcpy(row->Date, m_Block.Date, sizeof(row->Date));
    memcpy(row->Time, time, sizeof(row->Time));
    WriteValue(value, row->Open, sizeof(row->Open));
    WriteValue(value, row->High, sizeof(row->High));
    WriteValue(value, row->Low, sizeof(row->Low));
    WriteValue(value, row->Close, sizeof(row->Close));
    LongToAscii(volume, row->Volume, sizeof(row->Volume));
    Int64ToAscii(money, row->Value, sizeof(row->Value));
    m_Ticks.push_back(row);
    return 1;
}

template <class Value, class Row>
void CandleChart<Value, Row>::AddTrade(const char* time, Value value, int32_t volume, int32_t totalVolume) {
    m_LastTrade.assign(time, sizeof(Row::Time));
    if (m_NextBoundary < m_LastTrade) {
        Merge(m_Next, value, value, value, volume);
        m_NextClose = value;
    }
    Merge(m_Live, value, value, value, volume);
    m_LiveClose = value;
    if (PeriodChar() == 'L') {
        m_Live.Volume = totalVolume;
    }
    m_nTotalVolume = totalVolume;
}

template <class Value, class Row>
void CandleChart<Value, Row>::MergeBar(Value open, Value high, Value low, int32_t volume) {
    Merge(m_Minute, open, high, low, volume);
    m_Live.Open = m_Minute.Open;
    m_Live.High = m_Minute.High;
    m_Live.Low = m_Minute.Low;
}

template <class Value, class Row>
void CandleChart<Value, Row>::SendBarRow(const char* packetTime, Value value, const Value* close) {
    const char period = PeriodChar();
    if (period == 'B') {
        return;
    }
    const std::string time(packetTime, sizeof(Row::Time));
    char action = NothingSent() ? kAppendRow : kUpdateRow;
    bool closes = true;
    if (period != 'C') {
        closes = Remainder(period, time) == 0;
        if (closes) {
            action = kUpdateRow;
        }
    }
    if (action == kAppendRow) {
        m_bNewBarSent = true;
    }
    m_bMinuteRowSent = true;
    m_LastMinute = time;
    if (m_LiveClose == 0) {
        m_LiveClose = value;
    }

    char* buffer = NewRowsBuffer(m_Tag, offsetof(HeadedRows, Repeat), 1, sizeof(Row));
    FillBuffer(buffer, action, time, m_Minute, close != nullptr ? *close : m_LiveClose);
    PostToView(buffer, sizeof(HeadedRows) + sizeof(Row) - sizeof(m_Tag));

    if (closes) {
        m_NextBoundary = LaterTime(time, StepSeconds(period));
        SetSent(false);
        m_Minute = {static_cast<Value>(-1), static_cast<Value>(-1), m_NoLow, 0};
        m_bRollPending = true;
    }
}

template <class Value, class Row>
void CandleChart<Value, Row>::FillBuffer(char* buffer, char action, const std::string& time,
                                         const Column& column, Value close) {
    auto* front = reinterpret_cast<HeadedRows*>(buffer);
    auto* row = reinterpret_cast<Row*>(buffer + sizeof(HeadedRows));
    front->Head = m_Block.Head;
    front->Head.RowAction = action;
    WriteValue(m_LiveClose, front->Head.Price, sizeof(front->Head.Price));
    LongToAscii(m_nTotalVolume, front->Head.Quantity, sizeof(front->Head.Quantity));
    LongToAscii(1, front->Repeat.Count, sizeof(front->Repeat.Count));
    LongToAscii(sizeof(Row), front->Repeat.Size, sizeof(front->Repeat.Size));
    memcpy(row->Date, m_Block.Date, sizeof(row->Date));
    memcpy(row->Time, time.data(), sizeof(row->Time));
    WriteValue(column.Open, row->Open, sizeof(row->Open));
    WriteValue(column.High, row->High, sizeof(row->High));
    WriteValue(column.Low, row->Low, sizeof(row->Low));
    WriteValue(close, row->Close, sizeof(row->Close));
    LongToAscii(column.Volume, row->Volume, sizeof(row->Volume));
}

template <class Value, class Row>
void CandleChart<Value, Row>::EndUnpack() {
    if (m_bChanged == 0 || m_bStopped != 0) {
        return;
    }
    if (PeriodChar() == kTickList) {
        SendTicks();
        m_bChanged = 0;
        return;
    }
    if (ThrottleIsOpen() && m_LastTrade > m_LastMinute) {
        char action = kUpdateRow;
        if (NothingSent()) {
            action = kAppendRow;
            m_bNewBarSent = true;
        }
        m_bTickRowSent = true;
        FillBuffer(m_pOutput, action, m_LastTrade, m_Live, m_LiveClose);
        PostToView(nullptr, 0);
        m_bChanged = 0;
    }
    Rollover();
}

template <class Value, class Row>
void CandleChart<Value, Row>::SendTicks() {
    if (m_Ticks.empty()) {
        return;
    }
    char* buffer =
        NewRowsBuffer(m_Tag, offsetof(HeadedRows, Repeat), static_cast<int>(m_Ticks.size()), sizeof(Row));
    memcpy(buffer + offsetof(HeadedRows, Head), &m_Block.Head, sizeof(m_Block.Head));
    char* place = buffer + sizeof(HeadedRows);
    for (const Row* row : m_Ticks) {
        memcpy(place, row, sizeof(*row));
        place += sizeof(*row);
    }
    ClearTicks();
    PostToView(buffer, static_cast<int>(place - buffer) - static_cast<int>(sizeof(m_Tag)));
}

template <class Value, class Row>
void CandleChart<Value, Row>::Rollover() {
    if (!m_bRollPending) {
        return;
    }
    m_Live = m_Next;
    m_Next = {static_cast<Value>(-1), static_cast<Value>(-1), m_NoLowAfterRoll, 0};
    m_LiveClose = m_NextClose;
    m_NextClose = 0;
    m_bChanged = 0;
    m_bRollPending = false;
}

template <class Value, class Row>
void CandleChart<Value, Row>::Release() {
    Decoder::Release();
    Unsubscribe();
    memset(&m_Block, ' ', sizeof(m_Block));
}

template <class Value, class Row>
void CandleChart<Value, Row>::ClearTicks() {
    for (Row* row : m_Ticks) {
        delete row;
    }
    m_Ticks.clear();
}

// A tick list leaves its subscription in place.
template <class Value, class Row>
void CandleChart<Value, Row>::Unsubscribe() {
    if (PeriodChar() == 'L' || StepSeconds(PeriodChar()) != 0) {
        DelTrStcd(m_Block.Key, m_nKeyLength, m_chClass, m_dwFlags);
    }
}

}  // namespace plain

#endif
