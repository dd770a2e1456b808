// Interest board in its plain form, without alarms.
#include <cstring>
#include <vector>

#include "bench/plain/codecs.h"
#include "bench/plain/framework.h"
#include "bench/plain/rates.h"
#include "module/layouts/RSITST01.h"

namespace plain {

class CRSITST01 : public Screen {
public:
    explicit CRSITST01(HWND window) : Screen(window) {
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSITST01::OnTradePacket);
        SetSlot(BookPacket::kType, sizeof(BookPacket), &CRSITST01::OnBookPacket);
    }

    int Init(const char* buffer) override {
        Begin(buffer);
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
        m_Rows.resize(static_cast<size_t>(count));
        m_Dirty.assign(static_cast<size_t>(count), 0);
        return ReadBytes(m_Rows.data(), m_nInitRemain) ? 1 : 0;
    }

    void EndUnpack() override {
        int count = 0;
        for (const char dirty : m_Dirty) {
            count += dirty;
        }
        char* buffer = NewRowsBuffer(offsetof(PlainRows, Repeat), count, sizeof(InterestRow));
        char* place = buffer + sizeof(PlainRows);
        for (size_t i = 0; i < m_Rows.size(); ++i) {
            if (m_Dirty[i] != 0) {
                memcpy(place, &m_Rows[i], sizeof(InterestRow));
                place += sizeof(InterestRow);
                m_Dirty[i] = 0;
            }
        }
        PostToView(buffer, static_cast<int>(place - buffer) - static_cast<int>(sizeof(m_Tag)));
    }

private:
    // Null: no such stock.
    InterestRow* FindRow(const StockKey& key) {
        for (size_t i = 0; i < m_Rows.size() && key.Board == '1'; ++i) {
            if (memcmp(m_Rows[i].Code, key.Code, sizeof(key.Code)) == 0) {
                m_Dirty[i] = 1;
                return &m_Rows[i];
            }
        }
        return nullptr;
    }

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        InterestRow* found = FindRow(trade.Key);
        if (found == nullptr) {
            return 0;
        }
        InterestRow& row = *found;
        const int32_t base = AsciiToLong(row.BasePrice, sizeof(row.BasePrice));
        const int direction = SignToColor(row.PriceColor, trade.Sign);
        LongToAscii(trade.Price, row.Price, sizeof(row.Price));
        row.Sign = trade.Sign;
        SignToColor(row.ChangeColor, trade.Sign);
        LongToAscii(trade.Change, row.Change, sizeof(row.Change));
        SignToColor(row.RateColor, trade.Sign);
        const double rate = ChangeRate(static_cast<double>(trade.Price) - base, base, direction);
        DoubleToAscii(rate, row.Rate, sizeof(row.Rate), 2);
        WritePrice(row.Best2Color, row.Best2Price, base, trade.Best2Price);
        WritePrice(row.Best1Color, row.Best1Price, base, trade.Best1Price);
        LongToAscii(trade.TotalVolume, row.TotalVolume, sizeof(row.TotalVolume));
        WritePrice(row.HighColor, row.High, base, trade.High);
        WritePrice(row.LowColor, row.Low, base, trade.Low);
        return 1;
    }

    int OnBookPacket(const char* payload) {
        const auto& book = *reinterpret_cast<const BookPacket*>(payload);
        InterestRow* found = FindRow(book.Key);
        if (found == nullptr) {
            return 0;
        }
        InterestRow& row = *found;
        const int32_t base = AsciiToLong(row.BasePrice, sizeof(row.BasePrice));
        WritePrice(row.Best2Color, row.Best2Price, base, book.Levels[0].Side2Price);
        WritePrice(row.Best1Color, row.Best1Price, base, book.Levels[0].Side1Price);
        LongToAscii(book.Levels[0].Side2Qty, row.Side2Qty, sizeof(row.Side2Qty));
        LongToAscii(book.Levels[0].Side1Qty, row.Side1Qty, sizeof(row.Side1Qty));
        return 1;
    }

    static void WritePrice(char* tag, char (&field)[15], int32_t base, int32_t price) {
        ColorOf(Compare(price, base), tag);
        LongToAscii(price, field, sizeof(field));
    }

    std::vector<InterestRow> m_Rows;
    std::vector<char> m_Dirty;
};

Screen* NewCRSITST01(HWND window) {
    return new CRSITST01(window);
}

}  // namespace plain
