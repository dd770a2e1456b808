#include "module/decoders/boards/CRSODER01.h"

#include <algorithm>
#include <bit>

#include "host/services/services.h"
#include "module/framework/init_reader.h"
#include "module/framework/settings_file.h"
#include "module/wire/change_rate.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

namespace {

void PutDiff(BookRowSide& shown, int64_t diff) {
    const int direction = DirectionFrom(int64_t{0}, diff);
    PutColor(shown.DiffColor, direction);
    shown.DiffSign = direction > 0 ? '+' : direction < 0 ? '-' : ' ';
    PutColor(shown.DiffAmountColor, direction);
    Put(shown.Diff, diff * direction);
}

}  // namespace

CRSODER01::CRSODER01(HWND hWnd)
    : CRTMPacketDecoder(hWnd, Takes<&CRSODER01::OnTradePacket, &CRSODER01::OnBookPacket>),
      m_bUseHogaRect(
          SettingsFile(CEnvMgr::GetDataDir(), "\\EnvVar.ini").Integer("USER_TABLE_HOGARECT", "USE", 1)),
      m_nCurPrice(kNone),
      m_nBasePrice(kNone) {}

int CRSODER01::OnInit(InitReader& in) {
    if (!AllocOutput<BookDisplay>()) {
        return 0;
    }
    m_bPrinted = false;
    auto& display = Output<BookDisplay>();
    display.Front.Tag = in.Tag();
    BookInit init;
    if (!in.Read(init) || !in.ReadWholeBlock(display.Front.Repeat, display.Rows) || !in.AtEnd()) {
        return 0;
    }
    const StockKey former = m_Key.Take(init.Key);
    m_nCurPrice = kNone;
    m_nBasePrice = kNone;
    m_RatedBase.reset();
    for (std::size_t number = 0; number < kBookRows; ++number) {
        m_Side1.Levels[number] = Parse(display.Rows[number].Side1);
        m_Side2.Levels[number] = Parse(display.Rows[number].Side2);
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
    m_RatedBase = m_nBasePrice;
    TakeTotal(m_Side1.Levels[kBookTotals], book.Side1Total);
    TakeTotal(m_Side2.Levels[kBookTotals], book.Side2Total);
    return 1;
}

// A price that the former book did not have counts with its whole quantity. One that stays where it was keeps
// its rate, as long as that is of the same base.
template <auto Price, auto Qty>
void CRSODER01::TakeLevels(BookSide& side, const BookPacket& book) const {
    const auto former = side.Levels;
    const auto* const levelsEnd = former.begin() + kBookTotals;
    const bool sameBase = m_RatedBase == m_nBasePrice;
    for (std::size_t number = 0; number < kBookTotals; ++number) {
        const int32_t price = book.Levels[number].*Price;
        const int32_t quantity = book.Levels[number].*Qty;
        const auto* const same = std::find_if(
            former.begin(), levelsEnd, [price](const SideLevel& level) { return level.Price == price; });
        const int32_t diff = same == levelsEnd ? quantity : WrapSubtract(quantity, same->Qty);
        const double rate = sameBase && price == former[number].Price ? former[number].Rate : RateOf(price);
        side.Levels[number] = {diff, quantity, rate, price};
    }
}

double CRSODER01::RateOf(int32_t price) const {
    return MovedToZero(BiasedRate(static_cast<double>(price) - m_nBasePrice, m_nBasePrice, 0));
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

void CRSODER01::OnEndUnpack() {
    auto& display = Output<BookDisplay>();
    for (std::size_t number = 0; number < kBookRows; ++number) {
        BookRow& row = display.Rows[number];
        PutFigures(row.Side1, m_Side1, number);
        PutFigures(row.Side2, m_Side2, number);
        if (m_bUseHogaRect == 0 || m_nCurPrice <= 0) {
            continue;
        }
        if (m_nCurPrice == m_Side1.Levels[number].Price) {
            row.Side1.PriceColor[1] = kCurrentPrice;
        } else if (m_nCurPrice == m_Side2.Levels[number].Price) {
            row.Side2.PriceColor[1] = kCurrentPrice;
        }
    }
    if (!m_bPrinted) {
        Put(display.Front.Repeat.Count, static_cast<int32_t>(kBookRows));
        Put(display.Front.Repeat.Size, static_cast<int32_t>(sizeof(BookRow)));
    }
    m_bPrinted = true;
    // The totals' quantities have a colour of their own.
    PutColor(display.Rows[kBookTotals].Side1.QtyColor, -1);
    PutColor(display.Rows[kBookTotals].Side2.QtyColor, 1);
    PostOutput();
}

// Most of a book is as it was: what the image shows already is not printed again.
void CRSODER01::PutFigures(BookRowSide& shown, BookSide& side, std::size_t number) const {
    const SideLevel& level = side.Levels[number];
    SideLevel& printed = side.Printed[number];
    if (!m_bPrinted || level.Price != printed.Price) {
        Put(shown.Price, level.Price);
    }
    if (!m_bPrinted || std::bit_cast<uint64_t>(level.Rate) != std::bit_cast<uint64_t>(printed.Rate)) {
        Put<2>(shown.Rate, level.Rate);
    }
    if (!m_bPrinted || level.Qty != printed.Qty) {
        Put(shown.Qty, level.Qty);
    }
    if (!m_bPrinted || level.Diff != printed.Diff) {
        PutDiff(shown, level.Diff);
    }
    // Without a base the colours stay as the inquiry gave them. Writing them wipes the former mark.
    if (m_nBasePrice != kNone) {
        PutPriceColors(shown, level.Price);
    }
    printed = level;
}

void CRSODER01::PutPriceColors(BookRowSide& shown, int32_t price) const {
    const int direction = DirectionFrom(m_nBasePrice, price);
    PutColor(shown.PriceColor, direction);
    PutColor(shown.QtyColor, direction);
    PutColor(shown.RateColor, direction);
}

void CRSODER01::OnRelease() {
    m_Key.GiveUp();
}
