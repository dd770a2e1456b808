#include "module/decoders/lists/CRSTICK11.h"

#include "module/framework/init_reader.h"
#include "module/framework/local_date.h"
#include "module/wire/codecs.h"

CRSTICK11::CRSTICK11(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSTICK11::OnTradePacket>) {
    FillBlank(m_Date);
    FillBlank(m_Front);
}

int CRSTICK11::OnInit(InitReader& in) {
    m_Front.Tag = in.Tag();
    StockKey key;
    TickRow newest[1];
    if (!in.Read(key) || !in.Read(m_Front.Head)) {
        return 0;
    }
    m_bHeadIsDue = false;
    // The head is taken even if what follows fails; key, subscription and rows are not.
    if (!in.ReadRepeatBlock(newest) || !in.AtEnd()) {
        return 0;
    }
    // Without a row, or without a date in it, the day is the machine's own.
    if (IsBlank(newest[0].Date)) {
        PutLocalDate(m_Date);
    } else {
        Put(m_Date, newest[0].Date);
    }
    m_Ticks.Clear();
    m_Front.Head.Period = kTickList;
    m_Front.Head.RowAction = kAppendRow;
    m_Key.MoveTo(key);
    return 1;
}

int CRSTICK11::OnTradePacket(const TradePacket& trade) {
    if (trade.Volume == 0 || !(trade.Key == m_Key.Get())) {
        return 0;
    }
    TickRow* row = m_Ticks.Add();
    if (row == nullptr) {
        return 0;
    }
    m_nTotalVolume = trade.TotalVolume;
    m_bHeadIsDue = true;
    Put(row->Date, m_Date);
    Put(row->Time, trade.Time);
    Put(row->Price, trade.Price);
    Put(row->Volume, trade.Volume);
    return 1;
}

// The head shows the latest trade, once for all rows of a batch.
void CRSTICK11::OnEndUnpack() {
    if (m_bHeadIsDue) {
        Put(m_Front.Head.Price, m_Ticks.Last().Price);
        Put(m_Front.Head.Quantity, m_nTotalVolume);
        m_bHeadIsDue = false;
    }
    SendRows(m_Front, m_Ticks);
}

void CRSTICK11::OnRelease() {
    m_Key.GiveUp();
}
