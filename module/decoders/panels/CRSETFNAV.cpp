#include "module/decoders/panels/CRSETFNAV.h"

#include "module/framework/init_reader.h"
#include "module/wire/codecs.h"

CRSETFNAV::CRSETFNAV(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSETFNAV::OnNavPacket>) {}

int CRSETFNAV::OnInit(InitReader& in) {
    NavInit init;
    if (!in.Read(init) || !AllocOutput<NavDisplay>()) {
        return 0;
    }
    m_dBaseValue = ToDouble(init.BaseValue);
    auto& display = Output<NavDisplay>();
    display.Tag = in.Tag();
    PutValue(display.Field2, init.FirstValue);
    PutValue(display.Field3, init.SecondValue);
    m_Key.MoveTo(init.Key);
    return 1;
}

int CRSETFNAV::OnNavPacket(const NavPacket& nav) {
    if (!(nav.Key == m_Key.Get())) {
        return 0;
    }
    const int32_t kind = ToLong(nav.Kind);
    if (kind > 1) {
        return 0;
    }
    auto& display = Output<NavDisplay>();
    if (kind == 1) {
        PutValue(display.Field2, nav.Value1);
        PutValue(display.Field3, nav.Value2);
    } else {
        PutValue(display.Field1, nav.Value1);
    }
    return 1;
}

// A value not above zero shows as zero, and takes part in the comparison as zero.
template <std::size_t N>
void CRSETFNAV::PutValue(NavField& field, const char (&text)[N]) const {
    const double read = ToDouble(text);
    const double value = read > 0.0 ? read : 0.0;
    PutColor(field.Color, DirectionFrom(m_dBaseValue, value));
    Put<2>(field.Value, value);
}

void CRSETFNAV::OnRelease() {
    m_Key.GiveUp();
}
