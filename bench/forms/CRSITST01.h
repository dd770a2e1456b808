// Interest board, without alarms.
#ifndef TICKMUX_BENCH_FORMS_CRSITST01_H
#define TICKMUX_BENCH_FORMS_CRSITST01_H

#include <cstring>
#include <string_view>
#include <vector>

#include "bench/forms/colors.h"
#include "bench/forms/screen.h"
#include "bench/forms/view.h"
#include "module/layouts/RSITST01.h"
#include "module/wire/change_rate.h"

namespace forms {

template <class Style>
class CRSITST01 : public Screen {
public:
    explicit CRSITST01(HWND window) : m_View(window) {
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSITST01::OnTradePacket);
        SetSlot(BookPacket::kType, sizeof(BookPacket), &CRSITST01::OnBookPacket);
    }

    int Init(const char* buffer) override {
        InitText<Style> in(buffer);
        m_View.TakeTag(in);
        InterestInit init;
        if (!in.ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int count = Style::AsciiToLong(init.Repeat.Count, sizeof(init.Repeat.Count));
        const int size = Style::AsciiToLong(init.Repeat.Size, sizeof(init.Repeat.Size));
        if (count < 1 || count > 200 || size != static_cast<int>(sizeof(InterestRow)) ||
            in.Remain() != count * size) {
            return 0;
        }
        m_Rows.resize(static_cast<size_t>(count));
        m_Dirty.assign(static_cast<size_t>(count), 0);
        in.ReadBytes(m_Rows.data(), in.Remain());
        m_Index = {};
        for (const InterestRow& row : m_Rows) {
            m_Index.Add({row.Code, sizeof(row.Code)});
        }
        return 1;
    }

    void EndUnpack() override {
        int count = 0;
        for (const char dirty : m_Dirty) {
            count += dirty;
        }
        char* buffer = m_View.NewRowsBuffer(offsetof(PlainRows, Repeat), count, sizeof(InterestRow));
        char* place = buffer + sizeof(PlainRows);
        for (size_t i = 0; i < m_Rows.size(); ++i) {
            if (m_Dirty[i] != 0) {
                memcpy(place, &m_Rows[i], sizeof(InterestRow));
                place += sizeof(InterestRow);
                m_Dirty[i] = 0;
            }
        }
        m_View.Post(buffer, place);
    }

private:
    // Null: no such stock.
    InterestRow* FindRow(const StockKey& key) {
        const int place = key.Board == '1' ? m_Index.Find({key.Code, sizeof(key.Code)}) : -1;
        if (place < 0) {
            return nullptr;
        }
        m_Dirty[static_cast<size_t>(place)] = 1;
        return &m_Rows[static_cast<size_t>(place)];
    }

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        InterestRow* found = FindRow(trade.Key);
        if (found == nullptr) {
            return 0;
        }
        InterestRow& row = *found;
        const int32_t base = Style::AsciiToLong(row.BasePrice, sizeof(row.BasePrice));
        const int direction = SignToColor(row.PriceColor, trade.Sign);
        Style::LongToAscii(trade.Price, row.Price, sizeof(row.Price));
        row.Sign = trade.Sign;
        SignToColor(row.ChangeColor, trade.Sign);
        Style::LongToAscii(trade.Change, row.Change, sizeof(row.Change));
        SignToColor(row.RateColor, trade.Sign);
        const double rate = BiasedRate(static_cast<double>(trade.Price) - base, base, direction);
        Style::DoubleToAscii(rate, row.Rate, sizeof(row.Rate), 2);
        WritePrice(row.Best2Color, row.Best2Price, base, trade.Best2Price);
        WritePrice(row.Best1Color, row.Best1Price, base, trade.Best1Price);
        Style::LongToAscii(trade.TotalVolume, row.TotalVolume, sizeof(row.TotalVolume));
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
        const int32_t base = Style::AsciiToLong(row.BasePrice, sizeof(row.BasePrice));
        WritePrice(row.Best2Color, row.Best2Price, base, book.Levels[0].Side2Price);
        WritePrice(row.Best1Color, row.Best1Price, base, book.Levels[0].Side1Price);
        Style::LongToAscii(book.Levels[0].Side2Qty, row.Side2Qty, sizeof(row.Side2Qty));
        Style::LongToAscii(book.Levels[0].Side1Qty, row.Side1Qty, sizeof(row.Side1Qty));
        return 1;
    }

    static void WritePrice(char* tag, char (&field)[15], int32_t base, int32_t price) {
        ColorOf(Compare(price, base), tag);
        Style::LongToAscii(price, field, sizeof(field));
    }

    View<Style> m_View;
    std::vector<InterestRow> m_Rows;
    typename Style::Index m_Index;  // of the rows' codes
    std::vector<char> m_Dirty;
};

}  // namespace forms

#endif
