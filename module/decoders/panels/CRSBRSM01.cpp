#include "module/decoders/panels/CRSBRSM01.h"

#include "module/framework/init_reader.h"
#include "module/wire/codecs.h"

CRSBRSM01::CRSBRSM01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSBRSM01::OnBrokerPacket>) {}

int CRSBRSM01::OnInit(InitReader& in) {
    if (!AllocOutput<BrokerDisplay>()) {
        return 0;
    }
    BrokerFront& front = Output<BrokerDisplay>().Front;
    front.Tag = in.Tag();
    StockKey key;
    if (!in.Read(key) || !in.AtEnd()) {
        return 0;
    }
    Put(front.Repeat.Count, static_cast<int32_t>(kBrokerRows));
    Put(front.Repeat.Size, static_cast<int32_t>(sizeof(BrokerDisplayRow)));
    m_Key.MoveTo(key);
    return 1;
}

int CRSBRSM01::OnBrokerPacket(const BrokerPacket& brokers) {
    if (!(brokers.Key == m_Key.Get())) {
        return 0;
    }
    auto& display = Output<BrokerDisplay>();
    Put(display.Front.Time, brokers.Time);
    for (std::size_t number = 0; number < kBrokerRows; ++number) {
        const BrokerRow& totals = brokers.Rows[number];
        BrokerDisplayRow& row = display.Rows[number];
        PutRight(row.Qty2, totals.Qty2);
        PutRight(row.Broker2, totals.Broker2);
        PutRight(row.Broker1, totals.Broker1);
        PutRight(row.Qty1, totals.Qty1);
    }
    return 1;
}

void CRSBRSM01::OnRelease() {
    m_Key.GiveUp();
}
