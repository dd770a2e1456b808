#include "module/decoders/boards/CRSITST01.h"

#include <algorithm>
#include <cstring>

#include "host/services/services.h"
#include "module/framework/init_reader.h"
#include "module/framework/settings_file.h"
#include "module/wire/change_rate.h"
#include "module/wire/codecs.h"

namespace {

constexpr char kBoard = '1';  // the board shows no other

// A price and its colour against the row's base.
template <std::size_t N>
void PutPrice(char (&color)[2], char (&field)[N], int32_t base, int32_t price) {
    PutColor(color, DirectionFrom(base, price));
    Put(field, price);
}

void PutBest(InterestRow& row, int32_t base, int32_t best1, int32_t best2) {
    PutPrice(row.Best2Color, row.Best2Price, base, best2);
    PutPrice(row.Best1Color, row.Best1Price, base, best1);
}

void PutTrade(InterestRow& row, const TradePacket& trade) {
    const int32_t base = ToLong(row.BasePrice);
    const int direction = SignToColor(row.PriceColor, trade.Sign);
    Put(row.Price, trade.Price);
    row.Sign = trade.Sign;
    PutColor(row.ChangeColor, direction);
    Put(row.Change, trade.Change);
    PutColor(row.RateColor, direction);
    Put<2>(row.Rate, BiasedRate(static_cast<double>(trade.Price) - base, base, direction));
    PutBest(row, base, trade.Best1Price, trade.Best2Price);
    Put(row.TotalVolume, trade.TotalVolume);
    PutPrice(row.HighColor, row.High, base, trade.High);
    PutPrice(row.LowColor, row.Low, base, trade.Low);
}

// "ALARM  7-012": the group as the inquiry wrote it, rows counted from 1.
struct AlarmSection {
    char Name[13] = "ALARM";

    AlarmSection(const char (&group)[3], int number) {
        char* at = std::copy_n(group, sizeof(group), Name + std::strlen(Name));
        *at++ = '-';
        *at++ = static_cast<char>('0' + number / 100);
        *at++ = static_cast<char>('0' + number / 10 % 10);
        *at = static_cast<char>('0' + number % 10);
    }
};

}  // namespace

CRSITST01::CRSITST01(HWND hWnd)
    : CRTMPacketDecoder(hWnd, Takes<&CRSITST01::OnTradePacket, &CRSITST01::OnBookPacket>) {}

StockCode CRSITST01::Kind::KeyOf(const Row& row) {
    StockCode code;
    Put(code.Text, row.Code);
    return code;
}

int CRSITST01::OnInit(InitReader& in) {
    m_Board.Close();
    m_Front.Tag = in.Tag();
    InterestInit init;
    if (!in.Read(init)) {
        return 0;
    }
    constexpr int kMostRows = 200;
    constexpr auto kRowSize = static_cast<int>(sizeof(InterestRow));
    const int rows = ToLong(init.Repeat.Count);
    if (rows < 1 || rows > kMostRows || ToLong(init.Repeat.Size) != kRowSize ||
        in.Remain() != rows * kRowSize) {
        return 0;
    }
    const SettingsFile file(CEnvMgr::GetBaseUserDir(CQelData21::GetBaseUserID()), "\\InterestAlarm.ini");
    CodeRequests::List requests;
    if (!requests.Reserve(static_cast<std::size_t>(rows)) || !m_Board.Take(in.RestAs<InterestRow>())) {
        return 0;
    }
    LoadAlarms(file, init.Group);
    StockKey key;
    key.Board = kBoard;
    for (int place = 0; place < rows; ++place) {
        Put(key.Code, m_Board.At(place).Code);
        requests.Add(kStockClass, reinterpret_cast<const char*>(&key), sizeof(key), kWantTrades | kWantBook);
    }
    // From within a request another board may come, or none: its alarms are its own.
    if (m_Requests.MoveTo(std::move(requests))) {
        CheckAlarmsAtInit();
    }
    return 1;
}

void CRSITST01::LoadAlarms(const SettingsFile& file, const char (&group)[3]) {
    m_Alarms.fill({});
    m_bAlarmSound = file.Integer("ALL_FOCUS_GROUP", "ALARMSOUND", 0);
    const int rows = std::min(m_Board.Count(), static_cast<int>(m_Alarms.size()));
    for (int place = 0; place < rows; ++place) {
        const char state = m_Board.At(place).Alarm;
        if (state == kAlarmArmed || state == kAlarmSounds) {
            m_Alarms[static_cast<std::size_t>(place)] =
                InterestAlarm::Load(file, AlarmSection(group, place + 1).Name);
        }
    }
}

// Rows whose condition holds already leave with the first batch that brings a packet.
void CRSITST01::CheckAlarmsAtInit() {
    // A text that was refused meanwhile has left no rows.
    const int rows = std::min(m_Board.Count(), static_cast<int>(m_Alarms.size()));
    for (int place = 0; place < rows; ++place) {
        const std::optional<InterestAlarm>& alarm = m_Alarms[static_cast<std::size_t>(place)];
        if (!alarm.has_value() || m_Board.At(place).Alarm != kAlarmArmed) {
            continue;
        }
        if (alarm->PriceMode != InterestAlarm::kPrices && alarm->PriceMode != InterestAlarm::kPercent) {
            continue;  // nor does the volume count here
        }
        InterestRow& row = m_Board.At(place);
        if (alarm->IsMetBy({ToLong(row.Price), ToLong(row.Best1Price), ToLong(row.Best2Price),
                            ToLong(row.TotalVolume)})) {
            row.Alarm = AlarmChar();
            m_Board.Touch(place);
        }
    }
}

// The state follows the condition: one that no longer holds is armed again.
char CRSITST01::CheckAlarm(int place, const TradePacket& trade) const {
    const auto index = static_cast<std::size_t>(place);
    const bool isMet =
        index < m_Alarms.size() && m_Alarms[index].has_value() &&
        m_Alarms[index]->IsMetBy({trade.Price, trade.Best1Price, trade.Best2Price, trade.TotalVolume});
    return isMet ? AlarmChar() : kAlarmArmed;
}

int CRSITST01::Find(const StockKey& key) const {
    return key.Board == kBoard ? m_Board.Find(CodeOf(key)) : RowBoard<Kind>::kNowhere;
}

int CRSITST01::OnTradePacket(const TradePacket& trade) {
    const int place = Find(trade.Key);
    if (place == RowBoard<Kind>::kNowhere) {
        return 0;
    }
    InterestRow& row = m_Board.At(place);
    if (row.Alarm == kAlarmArmed || row.Alarm == kAlarmSounds || row.Alarm == kAlarmSilent) {
        row.Alarm = CheckAlarm(place, trade);
    }
    PutTrade(row, trade);
    m_Board.Touch(place);
    return 1;
}

// An alarm on a best price waits for the next trade.
int CRSITST01::OnBookPacket(const BookPacket& book) {
    const int place = Find(book.Key);
    if (place == RowBoard<Kind>::kNowhere) {
        return 0;
    }
    InterestRow& row = m_Board.At(place);
    const PacketLevel& best = book.Levels[0];
    PutBest(row, ToLong(row.BasePrice), best.Side1Price, best.Side2Price);
    Put(row.Side2Qty, best.Side2Qty);
    Put(row.Side1Qty, best.Side1Qty);
    m_Board.Touch(place);
    return 1;
}

void CRSITST01::OnEndUnpack() {
    SendRows(m_Front, m_Board);
}

void CRSITST01::OnRelease() {
    m_Board.Close();
    m_Requests.GiveUpAll();
}
