// Order book.
#ifndef TICKMUX_BENCH_FORMS_CRSODER01_H
#define TICKMUX_BENCH_FORMS_CRSODER01_H

#include <cstring>

#include "bench/forms/colors.h"
#include "bench/forms/screen.h"
#include "bench/forms/view.h"
#include "module/layouts/RSODER01.h"
#include "module/wire/wrap.h"

namespace forms {

template <class Style>
class CRSODER01 : public Screen {
public:
    explicit CRSODER01(HWND window) : m_View(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSODER01::OnTradePacket);
        SetSlot(BookPacket::kType, sizeof(BookPacket), &CRSODER01::OnBookPacket);
    }

    int Init(const char* buffer) override {
        InitText<Style> in(buffer);
        m_View.TakeTag(in);
        m_View.AllocPicture(sizeof(BookDisplay) - sizeof(RequestTag));
        BookInit init;
        auto& display = m_View.template Picture<BookDisplay>();
        if (!in.ReadBytes(&init, sizeof(init)) ||
            !in.ReadRepeatBlock(&display.Front.Repeat, display.Rows, sizeof(BookRow), kBookRows) ||
            in.Remain() != 0) {
            return 0;
        }
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        m_nCurPrice = -1;
        m_nBasePrice = -1;
        for (size_t i = 0; i < kBookRows; ++i) {
            ParseSide(display.Rows[i].Side1, m_Levels[i].Side1);
            ParseSide(display.Rows[i].Side2, m_Levels[i].Side2);
        }
        return 1;
    }

    void EndUnpack() override {
        auto& display = m_View.template Picture<BookDisplay>();
        for (size_t i = 0; i < kBookRows; ++i) {
            BookRow& row = display.Rows[i];
            const Level& level = m_Levels[i];
            WriteFigures(row.Side1, level.Side1);
            WriteFigures(row.Side2, level.Side2);
            if (m_nBasePrice != -1) {
                WritePriceColors(row.Side1, level.Side1.Price);
                WritePriceColors(row.Side2, level.Side2.Price);
            }
            if (m_nCurPrice > 0) {
                if (m_nCurPrice == level.Side1.Price) {
                    row.Side1.PriceColor[1] = kCurrentPrice;
                } else if (m_nCurPrice == level.Side2.Price) {
                    row.Side2.PriceColor[1] = kCurrentPrice;
                }
            }
            WriteDiff(row.Side1, level.Side1.Diff);
            WriteDiff(row.Side2, level.Side2.Diff);
        }
        RepeatHead& head = display.Front.Repeat;
        Style::LongToAscii(kBookRows, head.Count, sizeof(head.Count));
        Style::LongToAscii(sizeof(BookRow), head.Size, sizeof(head.Size));
        ColorOf(-1, display.Rows[kBookTotals].Side1.QtyColor);
        ColorOf(1, display.Rows[kBookTotals].Side2.QtyColor);
        m_View.PostPicture();
    }

private:
    struct Side {
        int32_t Diff;
        int32_t Qty;
        double Rate;
        int32_t Price;
    };
    struct Level {
        Side Side1;
        Side Side2;
    };

    static void ParseSide(const BookRowSide& shown, Side& side) {
        side.Price = Style::AsciiToLong(shown.Price, sizeof(shown.Price));
        side.Qty = Style::AsciiToLong(shown.Qty, sizeof(shown.Qty));
        side.Rate = Style::AsciiToDouble(shown.Rate, sizeof(shown.Rate));
        side.Diff = Style::AsciiToLong(shown.Diff, sizeof(shown.Diff));
        if (shown.DiffSign == '-') {
            side.Diff = WrapSubtract(0, side.Diff);
        }
    }

    int OnBookPacket(const char* payload) {
        const auto& book = *reinterpret_cast<const BookPacket*>(payload);
        if (memcmp(&book.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        m_nBasePrice = book.BasePrice;
        Level levels[kBookTotals];
        for (size_t i = 0; i < kBookTotals; ++i) {
            const PacketLevel& from = book.Levels[i];
            TakeSide(&Level::Side1, from.Side1Price, from.Side1Qty, levels[i].Side1);
            TakeSide(&Level::Side2, from.Side2Price, from.Side2Qty, levels[i].Side2);
        }
        memcpy(m_Levels, levels, sizeof(levels));
        TakeTotal(m_Levels[kBookTotals].Side1, book.Side1Total);
        TakeTotal(m_Levels[kBookTotals].Side2, book.Side2Total);
        return 1;
    }

    // The quantity is compared with that of the same price in the former book.
    void TakeSide(Side Level::*which, int32_t price, int32_t quantity, Side& side) const {
        side.Rate = 0.0;
        if (m_nBasePrice != 0) {
            side.Rate = (static_cast<double>(price) - m_nBasePrice) / m_nBasePrice * 100.0;
            if (side.Rate < 0.0) {
                side.Rate += 0.00499;
            } else if (side.Rate > 0.0) {
                side.Rate -= 0.00499;
            }
        }
        side.Price = price;
        side.Qty = quantity;
        side.Diff = quantity;
        for (size_t i = 0; i < kBookTotals; ++i) {
            const Side& former = m_Levels[i].*which;
            if (former.Price == price) {
                side.Diff = WrapSubtract(quantity, former.Qty);
                break;
            }
        }
    }

    static void TakeTotal(Side& side, int32_t total) {
        side.Diff = total != 0 ? WrapSubtract(total, side.Qty) : 0;
        side.Qty = total;
    }

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (memcmp(&trade.Key, m_Key, sizeof(m_Key)) != 0 || trade.Price == m_nCurPrice) {
            return 0;
        }
        if (m_nBasePrice <= 0) {
            m_nBasePrice = BaseOf(trade.Price, SignToColor(nullptr, trade.Sign), trade.Change);
        }
        m_nCurPrice = trade.Price;
        return 1;
    }

    static void WriteFigures(BookRowSide& shown, const Side& side) {
        Style::LongToAscii(side.Price, shown.Price, sizeof(shown.Price));
        Style::DoubleToAscii(side.Rate, shown.Rate, sizeof(shown.Rate), 2);
        Style::LongToAscii(side.Qty, shown.Qty, sizeof(shown.Qty));
    }

    void WritePriceColors(BookRowSide& shown, int32_t price) const {
        ColorOf(Compare(price, m_nBasePrice), shown.PriceColor);
        memcpy(shown.QtyColor, shown.PriceColor, sizeof(shown.QtyColor));
        memcpy(shown.RateColor, shown.PriceColor, sizeof(shown.RateColor));
    }

    static void WriteDiff(BookRowSide& shown, int64_t diff) {
        ColorOf(Compare(diff, int64_t{0}), shown.DiffColor);
        shown.DiffSign = diff > 0 ? '+' : diff < 0 ? '-' : ' ';
        memcpy(shown.DiffAmountColor, shown.DiffColor, sizeof(shown.DiffAmountColor));
        Style::Int64ToAscii(diff < 0 ? -diff : diff, shown.Diff, sizeof(shown.Diff));
    }

    View<Style> m_View;
    char m_Key[sizeof(StockKey)];
    Level m_Levels[kBookRows] = {};
    int32_t m_nCurPrice = -1;
    int32_t m_nBasePrice = -1;
};

}  // namespace forms

#endif
