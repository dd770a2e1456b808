#include "decoders/CRSODER01.h"

#include <algorithm>

#include "framework/change_rate.h"
#include "framework/codecs.h"
#include "framework/init_reader.h"
#include "framework/settings_file.h"
#include "framework/wrap.h"
#include "host/services.h"

namespace {

void PutFigures(BookRowSide& shown, int32_t price, double rate, int32_t quantity) {
    Put(shown.Price, price);
    Put<2>(shown.Rate, rate);
    Put(shown.Qty, quantity);
}

void PutDiff(BookRowSide& shown, int64_t diff) {
    const int direction = DirectionFrom(int64_t{0}, diff);
    PutColor(shown.DiffTag, direction);
    shown.DiffSign = direction > 0 ? '+' : direction < 0 ? '-' : ' ';
    PutColor(shown.DiffAmountTag, direction);
    Put(shown.Diff, diff * direction);
}

}  // namespace

CRSODER01::CRSODER01(HWND hWnd)
    : CRTMPacketDecoder(hWnd, Takes<&CRSODER01::OnTradePacket, &CRSODER01::OnBookPacket>),
      m_bUseHogaRect(
          SettingsFile(CEnvMgr::GetDataDir(), "\\EnvVar.ini").Integer("USER_TABLE_HOGARECT", "USE", 1)),
      m_nCurPrice(kNone),
      m_nBasePrice(kNone) {}

CRSODER01::~CRSODER01() {
    m_Key.GiveUp();
}

int CRSODER01::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
    if (!AllocOutput<BookDisplay>()) {
        return 0;
    }
    auto& display = Output<BookDisplay>();
    display.Front.Tag = in.Tag();
    BookInit init;
    if (!in.Read(init) || !in.ReadWholeBlock(display.Front.Repeat, display.Rows) || !in.AtEnd()) {
        return 0;
    }
    const StockKey former = m_Key.Take(init.Key);
    m_nCurPrice = kNone;
    m_nBasePrice = kNone;
    for (std::size_t number = 0; number < kBookRows; ++number) {
        m_Side1[number] = Parse(display.Rows[number].Side1);
        m_Side2[number] = Parse(display.Rows[number].Side2);
    }
    m_Key.MoveFrom(former);
    return 1;
}

CRSODER01::SideLevel CRSODER01::Parse(const BookRowSide& shown) {
    const int32_t diff = ToLong(shown.Diff);
    return {shown.DiffSign == '-' ? WrapMultiply(int32_t{-1}, diff) : diff, ToLong(shown.Qty),
            ToDouble(shown.Rate), ToLong(shown.Price)};
}

int CRSODER01::OnBookPacket(const BookPacket& book) {
    if (!(book.Key == m_Key.Get())) {
        return 0;
    }
    m_nBasePrice = book.BasePrice;
    TakeLevels<&PacketLevel::Side1Price, &PacketLevel::Side1Qty>(m_Side1, book);
    TakeLevels<&PacketLevel::Side2Price, &PacketLevel::Side2Qty>(m_Side2, book);
    TakeTotal(m_Side1[kBookTotals], book.Side1Total);
    TakeTotal(m_Side2[kBookTotals], book.Side2Total);
    return 1;
}

// A price that the former book did not have counts with its whole quantity.
template <auto Price, auto Qty>
void CRSODER01::TakeLevels(BookSide& side, const BookPacket& book) const {
    const BookSide former = side;
    const auto levelsEnd = former.begin() + kBookTotals;
    for (std::size_t number = 0; number < kBookTotals; ++number) {
        const int32_t price = book.Levels[number].*Price;
        const int32_t quantity = book.Levels[number].*Qty;
        const auto same = std::find_if(former.begin(), levelsEnd,
                                       [price](const SideLevel& level) { return level.Price == price; });
        const int32_t diff = same == levelsEnd ? quantity : WrapSubtract(quantity, same->Qty);
        const double change = static_cast<double>(price) - m_nBasePrice;
        side[number] = {diff, quantity, MovedToZero(BiasedRate(change, m_nBasePrice, 0)), price};
    }
}

// A total of zero is none.
void CRSODER01::TakeTotal(SideLevel& totals, int32_t total) {
    totals.Diff = total != 0 ? WrapSubtract(total, totals.Qty) : 0;
    totals.Qty = total;
}

int CRSODER01::OnTradePacket(const TradePacket& trade) {
    if (m_bUseHogaRect == 0 || !(trade.Key == m_Key.Get()) || trade.Price == m_nCurPrice) {
        return 0;
    }
    if (m_nBasePrice <= 0) {
        m_nBasePrice = BaseOf(trade.Price, SignToColor(nullptr, trade.Sign), trade.Change);
    }
    m_nCurPrice = trade.Price;
    return 1;
}

void CRSODER01::EndUnpack() {
    if (m_bChanged == 0 || m_bStopped != 0) {
        return;
    }
    auto& display = Output<BookDisplay>();
    for (std::size_t number = 0; number < kBookRows; ++number) {
        PutRow(display.Rows[number], m_Side1[number], m_Side2[number]);
    }
    Put(display.Front.Repeat.Count, static_cast<int32_t>(kBookRows));
    Put(display.Front.Repeat.Size, static_cast<int32_t>(sizeof(BookRow)));
    // The totals' quantities have a colour of their own.
    PutColor(display.Rows[kBookTotals].Side1.QtyTag, -1);
    PutColor(display.Rows[kBookTotals].Side2.QtyTag, 1);
    CRTMPacketDecoder::EndUnpack();
}

void CRSODER01::PutRow(BookRow& row, const SideLevel& level1, const SideLevel& level2) const {
    PutFigures(row.Side1, level1.Price, level1.Rate, level1.Qty);
    PutFigures(row.Side2, level2.Price, level2.Rate, level2.Qty);
    // Without a base the tags stay as the inquiry gave them. Writing them wipes the former mark.
    if (m_nBasePrice != kNone) {
        PutPriceTags(row.Side1, level1.Price);
        PutPriceTags(row.Side2, level2.Price);
    }
    if (m_bUseHogaRect != 0 && m_nCurPrice > 0) {
        if (m_nCurPrice == level1.Price) {
            row.Side1.PriceTag[1] = kCurrentPrice;
        } else if (m_nCurPrice == level2.Price) {
            row.Side2.PriceTag[1] = kCurrentPrice;
        }
    }
    PutDiff(row.Side1, level1.Diff);
    PutDiff(row.Side2, level2.Diff);
}

void CRSODER01::PutPriceTags(BookRowSide& shown, int32_t price) const {
    const int direction = DirectionFrom(m_nBasePrice, price);
    PutColor(shown.PriceTag, direction);
    PutColor(shown.QtyTag, direction);
    PutColor(shown.RateTag, direction);
}

void CRSODER01::Release() {
    CRTMPacketDecoder::Release();
    m_Key.GiveUp();
}
