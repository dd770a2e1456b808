#include "module/decoders/panels/CRITRDE01.h"

#include "module/wire/change_rate.h"
#include "module/wire/wrap.h"

namespace {

using Field = IndexField;

}  // namespace

CRITRDE01::CRITRDE01(HWND hWnd) : PanelDecoder(hWnd, Takes<&CRITRDE01::OnIndexPacket>) {}

void CRITRDE01::TakeFields() {
    if (Range().Holds(Field::BaseValue)) {
        m_dBaseValue = ToDouble(Value<Field::BaseValue>());
    } else if (Range().Holds(Field::Index) && Range().Holds(Field::Change)) {
        const int direction = SignToColor(nullptr, Value<Field::Sign>()[0]);
        m_dBaseValue = ToDouble(Value<Field::Index>()) - direction * ToDouble(Value<Field::Change>());
    } else {
        m_dBaseValue = 0.0;
    }
}

int CRITRDE01::OnIndexPacket(const IndexPacket& index) {
    if (!Follows(index.Key)) {
        return 0;
    }
    const int direction = SignToColor(nullptr, index.Sign);
    if (m_dBaseValue == 0.0) {
        m_dBaseValue = BaseOf(index.Index, direction, index.Change) / kIndexScale;
    }
    const double change = index.Change / kIndexScale;
    Put<4>(Value<Field::Index>(), index.Index / kIndexScale);
    Value<Field::Sign>()[0] = index.Sign;
    Put<4>(Value<Field::Change>(), change);
    Put<2>(Value<Field::Rate>(), BiasedRate(change, m_dBaseValue, direction));
    PutColor(Color<Field::Index>(), direction);
    PutColor(Color<Field::Change>(), direction);
    PutColor(Color<Field::Rate>(), direction);

    Put(Value<Field::TotalVolume>(), index.TotalVolume);
    Put(Value<Field::TotalValue>(), index.TotalValue);
    PutAgainstBase<Field::Open>(index.Open / kIndexScale);
    PutAgainstBase<Field::High>(index.High / kIndexScale);
    PutAgainstBase<Field::Low>(index.Low / kIndexScale);
    Put(Value<Field::Count1>(), index.Count1);
    Put(Value<Field::Count2>(), index.Count2);
    Put(Value<Field::Count3>(), index.Count3);
    Put(Value<Field::Count4>(), index.Count4);
    Put(Value<Field::Count5>(), index.Count5);
    Put(Value<Field::Time>(), index.Time);
    return 1;
}

template <int Number>
void CRITRDE01::PutAgainstBase(double value) {
    Put<4>(Value<Number>(), value);
    ColorAgainst<Number>(m_dBaseValue, value);
}
