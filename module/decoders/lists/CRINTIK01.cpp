#include "module/decoders/lists/CRINTIK01.h"

#include "module/framework/init_reader.h"
#include "module/wire/change_rate.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

CRINTIK01::CRINTIK01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRINTIK01::OnIndexPacket>) {}

int CRINTIK01::OnInit(InitReader& in) {
    m_Front.Tag = in.Tag();
    IndexTickInit init;
    if (!in.Read(init) || !in.AtEnd()) {
        return 0;
    }
    m_Ticks.Clear();
    m_dBaseValue = ToDouble(init.BaseValue);
    m_Key.MoveTo(init.Key);
    return 1;
}

int CRINTIK01::OnIndexPacket(const IndexPacket& index) {
    if (!(index.Key == m_Key.Get())) {
        return 0;
    }
    IndexTickRow* row = m_Ticks.Add();
    if (row == nullptr) {
        return 0;
    }
    const int direction = SignToColor(row->IndexColor, index.Sign);
    if (m_dBaseValue == 0.0) {
        m_dBaseValue = BaseOf(index.Index, direction, index.Change) / kIndexScale;
    }
    // The rate is that of the packet's change, not of the distance from the base.
    const double change = index.Change / kIndexScale;
    Put(row->Time, index.Time);
    Put<4>(row->Index, index.Index / kIndexScale);
    row->Sign = index.Sign;
    PutColor(row->ChangeColor, direction);
    Put<4>(row->Change, change);
    PutColor(row->RateColor, direction);
    Put<2>(row->Rate, BiasedRate(change, m_dBaseValue, direction));
    Put(row->Volume, index.Volume);
    return 1;
}

void CRINTIK01::OnEndUnpack() {
    SendRows(m_Front, m_Ticks);
}

void CRINTIK01::OnRelease() {
    m_Key.GiveUp();
}
