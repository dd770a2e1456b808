#include "module/decoders/panels/CRSTRDE01.h"

#include "module/wire/change_rate.h"
#include "module/wire/wrap.h"

namespace {

using Field = StockField;

constexpr char kForeign = 'F';  // the broker class whose trades are counted

}  // namespace

CRSTRDE01::CRSTRDE01(HWND hWnd)
    : PanelDecoder(hWnd, Takes<&CRSTRDE01::OnTradePacket, &CRSTRDE01::OnBookPacket>) {}

void CRSTRDE01::TakeFields() {
    m_nBasePrice = Range().Holds(Field::BasePrice) ? ToLong(Value<Field::BasePrice>()) : 0;
    m_dCapitalUnits = ToDouble(Value<Field::CapitalUnits>());
    for (RunningSum& sum : m_Sums) {
        sum.Forget();
    }
}

int CRSTRDE01::OnTradePacket(const TradePacket& trade) {
    if (!Follows(trade.Key)) {
        return 0;
    }
    PutPrices(trade, SignToColor(nullptr, trade.Sign));
    // What the screen does not reach is not worked out.
    if (Range().Last < Field::CapitalUnits) {
        return 1;
    }
    Put<0>(Value<Field::CapitalValue>(), m_dCapitalUnits * trade.Price * trade.LotSize / 1000000.0);
    if (Range().Last < Field::Side1Total) {
        return 1;
    }
    if (trade.Broker1Class == kForeign) {
        AddToGroup<Field::Broker1Qty, Field::Broker1Value, Field::Broker1Count>(trade);
    } else if (trade.Broker2Class == kForeign) {
        AddToGroup<Field::Broker2Qty, Field::Broker2Value, Field::Broker2Count>(trade);
    }
    return 1;
}

void CRSTRDE01::PutPrices(const TradePacket& trade, int direction) {
    if (m_nBasePrice == 0) {
        m_nBasePrice = BaseOf(trade.Price, direction, trade.Change);
    }
    Put(Value<Field::Price>(), trade.Price);
    Value<Field::Sign>()[0] = trade.Sign;
    Put(Value<Field::Change>(), trade.Change);
    Put<2>(Value<Field::Rate>(),
           BiasedRate(static_cast<double>(trade.Price) - m_nBasePrice, m_nBasePrice, direction));
    Put(Value<Field::TradeCount>(), trade.TradeCount);
    PutColor(Color<Field::Price>(), direction);
    PutColor(Color<Field::Change>(), direction);
    PutColor(Color<Field::Rate>(), direction);

    Put(Value<Field::TotalVolume>(), trade.TotalVolume);
    Put<0>(Value<Field::TotalValue>(), static_cast<double>(trade.TotalValue) / 1000.0);
    PutBest(trade.Best1Price, trade.Best2Price);
    Put(Value<Field::Open>(), trade.Open);
    Put(Value<Field::High>(), trade.High);
    Put(Value<Field::Low>(), trade.Low);
    ColorAgainst<Field::Open, int32_t>(m_nBasePrice, trade.Open);
    ColorAgainst<Field::High, int32_t>(m_nBasePrice, trade.High);
    ColorAgainst<Field::Low, int32_t>(m_nBasePrice, trade.Low);

    const double shares = static_cast<double>(trade.LotSize) * static_cast<double>(trade.TotalVolume);
    if (shares == 0.0) {
        FillBlank(Value<Field::AveragePrice>());  // there is none
    } else {
        Put<2>(Value<Field::AveragePrice>(), static_cast<double>(trade.TotalValue) / shares);
    }
}

// Side 2 stands first.
void CRSTRDE01::PutBest(int32_t best1, int32_t best2) {
    Put(Value<Field::Best1Price>(), best1);
    Put(Value<Field::Best2Price>(), best2);
    ColorAgainst<Field::Best1Price>(m_nBasePrice, best1);
    ColorAgainst<Field::Best2Price>(m_nBasePrice, best2);
}

template <int Quantity, int Money, int Count>
void CRSTRDE01::AddToGroup(const TradePacket& trade) {
    AddTo<Quantity>(trade.Volume);
    AddTo<Money>(WrapMultiply(int32_t{trade.Volume}, int32_t{trade.Price}));
    AddTo<Count>(1);
}

int CRSTRDE01::OnBookPacket(const BookPacket& book) {
    if (Range().Last < Field::Best2Price || !Follows(book.Key)) {
        return 0;
    }
    const PacketLevel& best = book.Levels[0];
    PutBest(best.Side1Price, best.Side2Price);
    Put(Value<Field::Best1Qty>(), best.Side1Qty);
    Put(Value<Field::Best2Qty>(), best.Side2Qty);
    Put(Value<Field::Side2Total>(), book.Side2Total);
    Put(Value<Field::Side1Total>(), book.Side1Total);
    return 1;
}
