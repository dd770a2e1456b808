// Stock panel.
#ifndef TICKMUX_BENCH_FORMS_CRSTRDE01_H
#define TICKMUX_BENCH_FORMS_CRSTRDE01_H

#include <cstring>

#include "bench/forms/colors.h"
#include "bench/forms/field_record.h"
#include "bench/forms/screen.h"
#include "bench/forms/view.h"
#include "module/layouts/RSTRDE01.h"
#include "module/wire/change_rate.h"
#include "module/wire/wrap.h"

namespace forms {

template <class Style>
class CRSTRDE01 : public Screen {
public:
    explicit CRSTRDE01(HWND window) : m_View(window), m_Fields(kStockPanel) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSTRDE01::OnTradePacket);
        SetSlot(BookPacket::kType, sizeof(BookPacket), &CRSTRDE01::OnBookPacket);
    }

    int Init(const char* buffer) override {
        InitText<Style> in(buffer);
        m_View.TakeTag(in);
        StockPanelInit init;
        if (!in.ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int from = Style::AsciiToLong(init.FirstField, sizeof(init.FirstField));
        const int to = Style::AsciiToLong(init.LastField, sizeof(init.LastField));
        if (from < 0 || from > to || to >= m_Fields.Fields()) {
            return 0;
        }
        const int length = m_Fields.OffsetOf(to + 1) - m_Fields.OffsetOf(from);
        if (in.Remain() != length) {
            return 0;
        }
        m_View.AllocPicture(length);
        m_nFromField = from;
        m_nToField = to;
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        m_Fields.Clear();
        in.ReadBytes(m_Fields.Color(from), length);
        const bool hasBase = from <= Field::BasePrice && Field::BasePrice <= to;
        m_nBasePrice = hasBase ? m_Fields.ReadLong(Field::BasePrice) : 0;
        return 1;
    }

    void EndUnpack() override {
        memcpy(m_View.PictureBody(), m_Fields.Color(m_nFromField),
               static_cast<size_t>(m_Fields.OffsetOf(m_nToField + 1) - m_Fields.OffsetOf(m_nFromField)));
        m_View.PostPicture();
    }

private:
    using Field = StockField;

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (memcmp(&trade.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        const int direction = SignToColor(nullptr, trade.Sign);
        if (m_nBasePrice == 0) {
            m_nBasePrice = BaseOf(trade.Price, direction, trade.Change);
        }
        const double rate =
            BiasedRate(static_cast<double>(trade.Price) - m_nBasePrice, m_nBasePrice, direction);
        m_Fields.WriteLong(Field::Price, trade.Price);
        *m_Fields.Value(Field::Sign) = trade.Sign;
        m_Fields.WriteLong(Field::Change, trade.Change);
        m_Fields.WriteDouble(Field::Rate, rate, 2);
        m_Fields.WriteLong(Field::TradeCount, trade.TradeCount);
        for (const int number : {Field::Price, Field::Change, Field::Rate}) {
            SignToColor(m_Fields.Color(number), trade.Sign);
        }
        m_Fields.WriteLong(Field::TotalVolume, trade.TotalVolume);
        m_Fields.WriteDouble(Field::TotalValue, static_cast<double>(trade.TotalValue) / 1000.0, 0);
        WriteAgainstBase(Field::Best1Price, trade.Best1Price);
        WriteAgainstBase(Field::Best2Price, trade.Best2Price);
        WriteAgainstBase(Field::Open, trade.Open);
        WriteAgainstBase(Field::High, trade.High);
        WriteAgainstBase(Field::Low, trade.Low);
        const double shares = static_cast<double>(trade.LotSize) * trade.TotalVolume;
        if (shares != 0.0) {
            m_Fields.WriteDouble(Field::AveragePrice, static_cast<double>(trade.TotalValue) / shares, 2);
        } else {
            memset(m_Fields.Value(Field::AveragePrice), ' ',
                   static_cast<size_t>(m_Fields.Width(Field::AveragePrice)));
        }
        if (m_nToField < Field::CapitalUnits) {
            return 1;
        }
        m_Fields.WriteDouble(
            Field::CapitalValue,
            m_Fields.ReadDouble(Field::CapitalUnits) * trade.Price * trade.LotSize / 1000000.0, 0);
        if (m_nToField < Field::Side1Total) {
            return 1;
        }
        const int32_t value = WrapMultiply(trade.Volume, trade.Price);
        if (trade.Broker1Class == 'F') {
            m_Fields.AddDouble(Field::Broker1Qty, trade.Volume);
            m_Fields.AddDouble(Field::Broker1Value, value);
            m_Fields.AddDouble(Field::Broker1Count, 1);
        } else if (trade.Broker2Class == 'F') {
            m_Fields.AddDouble(Field::Broker2Qty, trade.Volume);
            m_Fields.AddDouble(Field::Broker2Value, value);
            m_Fields.AddDouble(Field::Broker2Count, 1);
        }
        return 1;
    }

    int OnBookPacket(const char* payload) {
        const auto& book = *reinterpret_cast<const BookPacket*>(payload);
        if (m_nToField < Field::Best2Price || memcmp(&book.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        WriteAgainstBase(Field::Best1Price, book.Levels[0].Side1Price);
        WriteAgainstBase(Field::Best2Price, book.Levels[0].Side2Price);
        m_Fields.WriteLong(Field::Best1Qty, book.Levels[0].Side1Qty);
        m_Fields.WriteLong(Field::Best2Qty, book.Levels[0].Side2Qty);
        m_Fields.WriteLong(Field::Side2Total, book.Side2Total);
        m_Fields.WriteLong(Field::Side1Total, book.Side1Total);
        return 1;
    }

    void WriteAgainstBase(int number, int32_t price) {
        m_Fields.WriteLong(number, price);
        ColorOf(Compare(price, m_nBasePrice), m_Fields.Color(number));
    }

    View<Style> m_View;
    char m_Key[sizeof(StockKey)];
    FieldRecord<Style> m_Fields;
    int32_t m_nBasePrice = 0;
    int m_nFromField = -1;
    int m_nToField = -1;
};

}  // namespace forms

#endif
