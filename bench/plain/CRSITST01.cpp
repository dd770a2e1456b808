// Interest board in its plain form.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "framework/subscription_record.h"
#include "host/services.h"
#include "layouts/RSITST01.h"

namespace plain {

struct Alarm {
    int32_t BasisPrice;
    int32_t Comparison;
    int32_t PriceMode;
    double DecreasedPrice;
    double IncreasedPrice;
    double VolumeLimit;
};

class CRSITST01 : public Decoder {
public:
    explicit CRSITST01(HWND window) : Decoder(window) {
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSITST01::OnTradePacket);
        SetSlot(BookPacket::kType, sizeof(BookPacket), &CRSITST01::OnBookPacket);
    }

    ~CRSITST01() override { FreeBoard(); }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        m_nRows = 0;
        InterestInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int count = AsciiToLong(init.Repeat.Count, sizeof(init.Repeat.Count));
        const int size = AsciiToLong(init.Repeat.Size, sizeof(init.Repeat.Size));
        if (count < 1 || count > 200 || size != static_cast<int>(sizeof(InterestRow)) ||
            m_nInitRemain != count * size) {
            return 0;
        }
        InterestRow* oldRows = m_pRows;
        const int oldCount = m_nTableRows;
        m_pRows = new InterestRow[static_cast<size_t>(count)];
        ReadBytes(m_pRows, m_nInitRemain);
        m_nTableRows = count;
        m_nRows = count;
        delete[] m_pDirty;
        m_pDirty = new char[static_cast<size_t>(count)];
        memset(m_pDirty, 0, static_cast<size_t>(count));
        FreeAlarms();
        LoadAlarms(std::string(init.Group, sizeof(init.Group)));
        for (int i = 0; i < m_nRows; ++i) {
            AddTrStcd(KeyOf(m_pRows[i]).c_str(), sizeof(StockKey), kStockClass, kWantTrades | kWantBook);
        }
        for (int i = 0; i < oldCount; ++i) {
            DelTrStcd(KeyOf(oldRows[i]).c_str(), sizeof(StockKey), kStockClass, kWantTrades | kWantBook);
        }
        delete[] oldRows;
        CheckAlarmsAtInit();
        return 1;
    }

    void Release() override {
        Decoder::Release();
        FreeBoard();
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        int count = 0;
        for (int i = 0; i < m_nRows; ++i) {
            count += m_pDirty[i] != 0 ? 1 : 0;
        }
        if (count > 0) {
            char* buffer = NewRowsBuffer(m_Tag, offsetof(PlainRows, Repeat), count, sizeof(InterestRow));
            char* place = buffer + sizeof(PlainRows);
            for (int i = 0; i < m_nRows; ++i) {
                if (m_pDirty[i] != 0) {
                    memcpy(place, &m_pRows[i], sizeof(InterestRow));
                    place += sizeof(InterestRow);
                }
            }
            memset(m_pDirty, 0, static_cast<size_t>(m_nRows));
            PostToView(buffer, static_cast<int>(place - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
        m_bChanged = 0;
    }

private:
    static constexpr int kAlarms = 50;

    static std::string KeyOf(const InterestRow& row) { return "1" + std::string(row.Code, sizeof(row.Code)); }

    void LoadAlarms(const std::string& group) {
        const std::string path =
            std::string(CEnvMgr::GetBaseUserDir(CQelData21::GetBaseUserID())) + "\\InterestAlarm.ini";
        m_bAlarmSound =
            static_cast<int32_t>(GetPrivateProfileIntA("ALL_FOCUS_GROUP", "ALARMSOUND", 0, path.c_str()));
        for (int i = 0; i < m_nRows && i < kAlarms; ++i) {
            if (m_pRows[i].Alarm != '1' && m_pRows[i].Alarm != '2') {
                continue;
            }
            char section[32];
            snprintf(section, sizeof(section), "ALARM%3s-%03d", group.c_str(), i + 1);
            const auto read = [&](const char* key, const char* missing) {
                char text[127];
                const DWORD length =
                    GetPrivateProfileStringA(section, key, "", text, sizeof(text), path.c_str());
                return std::string(length == 0 ? missing : text);
            };
            auto* alarm = new Alarm;
            alarm->BasisPrice = atoi(read("Basis price", "0").c_str());
            alarm->Comparison = atoi(read("comparison", "0").c_str());
            alarm->PriceMode = atoi(read("price", "0").c_str());
            alarm->DecreasedPrice = atof(read("decreased price", "0").c_str());
            alarm->IncreasedPrice = atof(read("increased price", "-1").c_str());
            alarm->VolumeLimit = atof(read("Volume", "0").c_str());
            m_Alarms[i] = alarm;
        }
    }

    void CheckAlarmsAtInit() {
        for (int i = 0; i < m_nRows && i < kAlarms; ++i) {
            InterestRow& row = m_pRows[i];
            const Alarm* alarm = m_Alarms[i];
            if (row.Alarm != '1' || alarm == nullptr || (alarm->PriceMode != 0 && alarm->PriceMode != 1)) {
                continue;
            }
            if (IsMet(*alarm, AsciiToLong(row.Price, sizeof(row.Price)),
                      AsciiToLong(row.Best1Price, sizeof(row.Best1Price)),
                      AsciiToLong(row.Best2Price, sizeof(row.Best2Price)),
                      AsciiToLong(row.TotalVolume, sizeof(row.TotalVolume)))) {
                row.Alarm = AlarmChar();
                m_pDirty[i] = 1;
            }
        }
    }

    static bool IsMet(const Alarm& alarm, int32_t price, int32_t best1, int32_t best2, int32_t totalVolume) {
        double value = 0.0;
        switch (alarm.Comparison) {
            case 0:
                value = price;
                break;
            case 1:
                value = best1;
                break;
            case 2:
                value = best2;
                break;
            default:
                return false;
        }
        if (alarm.PriceMode == 0 && alarm.DecreasedPrice >= 1.0 && alarm.IncreasedPrice >= 1.0 &&
            (value >= alarm.DecreasedPrice || value <= alarm.IncreasedPrice)) {
            return true;
        }
        if (alarm.PriceMode == 1 && alarm.BasisPrice >= 1) {
            const double upper = alarm.BasisPrice + alarm.DecreasedPrice * alarm.BasisPrice * 0.01;
            double lower = -1.0;
            if (alarm.IncreasedPrice != -1.0) {
                lower = alarm.BasisPrice + alarm.IncreasedPrice * alarm.BasisPrice * 0.01;
            }
            if (value >= upper || value <= lower) {
                return true;
            }
        }
        return alarm.VolumeLimit >= 1.0 && totalVolume >= alarm.VolumeLimit;
    }

    char AlarmChar() const { return m_bAlarmSound != 0 ? '2' : '3'; }

    int FindRow(const StockKey& key) const {
        if (key.Board == '1') {
            for (int i = 0; i < m_nRows; ++i) {
                if (memcmp(m_pRows[i].Code, key.Code, sizeof(key.Code)) == 0) {
                    return i;
                }
            }
        }
        return -1;
    }

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        const int place = FindRow(trade.Key);
        if (place < 0) {
            return 0;
        }
        InterestRow& row = m_pRows[place];
        if (row.Alarm == '1' || row.Alarm == '2' || row.Alarm == '3') {
            const Alarm* alarm = place < kAlarms ? m_Alarms[place] : nullptr;
            const bool met = alarm != nullptr && IsMet(*alarm, trade.Price, trade.Best1Price,
                                                       trade.Best2Price, trade.TotalVolume);
            row.Alarm = met ? AlarmChar() : '1';
        }
        const int32_t base = AsciiToLong(row.BasePrice, sizeof(row.BasePrice));
        const int direction = SignToColor(row.PriceTag, trade.Sign);
        LongToAscii(trade.Price, row.Price, sizeof(row.Price));
        row.Sign = trade.Sign;
        SignToColor(row.ChangeTag, trade.Sign);
        LongToAscii(trade.Change, row.Change, sizeof(row.Change));
        SignToColor(row.RateTag, trade.Sign);
        const double rate = ChangeRate(static_cast<double>(trade.Price) - base, base, direction);
        DoubleToAscii(rate, row.Rate, sizeof(row.Rate), 2);
        WritePrice(row.Best2Tag, row.Best2Price, base, trade.Best2Price);
        WritePrice(row.Best1Tag, row.Best1Price, base, trade.Best1Price);
        LongToAscii(trade.TotalVolume, row.TotalVolume, sizeof(row.TotalVolume));
        WritePrice(row.HighTag, row.High, base, trade.High);
        WritePrice(row.LowTag, row.Low, base, trade.Low);
        m_pDirty[place] = 1;
        return 1;
    }

    int OnBookPacket(const char* payload) {
        const auto& book = *reinterpret_cast<const BookPacket*>(payload);
        const int place = FindRow(book.Key);
        if (place < 0) {
            return 0;
        }
        InterestRow& row = m_pRows[place];
        const int32_t base = AsciiToLong(row.BasePrice, sizeof(row.BasePrice));
        WritePrice(row.Best2Tag, row.Best2Price, base, book.Levels[0].Side2Price);
        WritePrice(row.Best1Tag, row.Best1Price, base, book.Levels[0].Side1Price);
        LongToAscii(book.Levels[0].Side2Qty, row.Side2Qty, sizeof(row.Side2Qty));
        LongToAscii(book.Levels[0].Side1Qty, row.Side1Qty, sizeof(row.Side1Qty));
        m_pDirty[place] = 1;
        return 1;
    }

    static void WritePrice(char* tag, char (&field)[15], int32_t base, int32_t price) {
        ColorOf(Compare(price, base), tag);
        LongToAscii(price, field, sizeof(field));
    }

    void FreeAlarms() {
        for (Alarm*& alarm : m_Alarms) {
            delete alarm;
            alarm = nullptr;
        }
    }

    void FreeBoard() {
        for (int i = 0; i < m_nTableRows; ++i) {
            DelTrStcd(KeyOf(m_pRows[i]).c_str(), sizeof(StockKey), kStockClass, kWantTrades | kWantBook);
        }
        delete[] m_pRows;
        delete[] m_pDirty;
        m_pRows = nullptr;
        m_pDirty = nullptr;
        m_nTableRows = 0;
        m_nRows = 0;
        FreeAlarms();
    }

    InterestRow* m_pRows = nullptr;
    int m_nTableRows = 0;
    int m_nRows = 0;  // 0 too after an Init text that was refused
    char* m_pDirty = nullptr;
    Alarm* m_Alarms[kAlarms] = {};
    RequestTag m_Tag{};
    int32_t m_bAlarmSound = 0;
};

Decoder* NewCRSITST01(HWND window) {
    return new CRSITST01(window);
}

}  // namespace plain
