#include "module/decoders/lists/CRSDONE01.h"

#include "module/framework/init_reader.h"
#include "module/wire/broker_class.h"
#include "module/wire/change_rate.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

CRSDONE01::CRSDONE01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSDONE01::OnTradePacket>) {}

int CRSDONE01::OnInit(InitReader& in) {
    m_nBasePrice = 0;
    m_Front.Tag = in.Tag();
    FillsInit init;
    FillRow newest[1];
    if (!in.Read(init) || !in.ReadRepeatBlock(newest)) {
        return 0;
    }
    m_nBasePrice = ToLong(init.BasePrice);
    if (m_nBasePrice == 0) {
        // Without a row its blanks leave the base to the first trade.
        m_nBasePrice =
            BaseOf(ToLong(newest[0].Price), SignToColor(nullptr, newest[0].Sign), ToLong(newest[0].Change));
    }
    m_Ticks.Clear();
    m_Key.MoveTo(init.Key);
    return 1;
}

int CRSDONE01::OnTradePacket(const TradePacket& trade) {
    if (!(trade.Key == m_Key.Get()) || trade.Volume == 0) {
        return 0;
    }
    const int direction = SignToColor(nullptr, trade.Sign);
    if (m_nBasePrice == 0) {
        m_nBasePrice = BaseOf(trade.Price, direction, trade.Change);
    }
    FillRow* row = m_Ticks.Add();
    if (row == nullptr) {
        return 0;
    }
    Put(row->Time, trade.Time);
    Put(row->TradeRef, trade.TradeRef);
    PutColor(row->PriceColor, direction);
    Put(row->Price, trade.Price);
    row->Sign = trade.Sign;
    PutColor(row->ChangeColor, direction);
    Put(row->Change, trade.Change);
    PutColor(row->RateColor, direction);
    Put<2>(row->Rate, BiasedRate(static_cast<double>(trade.Price) - m_nBasePrice, m_nBasePrice, direction));
    Put(row->Volume, trade.Volume);
    PutClassColor(row->Broker1ClassColor, trade.Broker1Class);
    row->Broker1Class = trade.Broker1Class;
    Put(row->Broker1, trade.Broker1);
    PutClassColor(row->Broker2ClassColor, trade.Broker2Class);
    row->Broker2Class = trade.Broker2Class;
    Put(row->Broker2, trade.Broker2);
    return 1;
}

void CRSDONE01::OnEndUnpack() {
    SendRows(m_Front, m_Ticks);
}

void CRSDONE01::OnRelease() {
    m_Key.GiveUp();
}
