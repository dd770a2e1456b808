// Index panel in its plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/field_record.h"
#include "framework/subscription_record.h"
#include "layouts/RITRDE01.h"

namespace plain {

class CRITRDE01 : public Decoder {
public:
    explicit CRITRDE01(HWND window) : Decoder(window), m_Fields(kIndexPanel) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(IndexPacket::kType, sizeof(IndexPacket), &CRITRDE01::OnIndexPacket);
    }

    ~CRITRDE01() override { DelTrStcd(m_Key, sizeof(m_Key), kIndexClass, kWantIndex); }

    int Init(const char* buffer) override {
        Decoder::Init(buffer);
        IndexPanelInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int from = AsciiToLong(init.FirstField, sizeof(init.FirstField));
        const int to = AsciiToLong(init.LastField, sizeof(init.LastField));
        if (from < 0 || from > to || to >= m_Fields.Fields()) {
            return 0;
        }
        const int length = m_Fields.OffsetOf(to + 1) - m_Fields.OffsetOf(from);
        if (m_nInitRemain != length) {
            return 0;
        }
        AllocOutput(TagOf(buffer), length);
        m_nFromField = from;
        char oldKey[sizeof(m_Key)];
        memcpy(oldKey, m_Key, sizeof(m_Key));
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        m_Fields.Clear();
        ReadBytes(m_Fields.Tag(from), length);
        if (from <= Field::BaseValue && Field::BaseValue <= to) {
            m_dBaseValue = m_Fields.ReadDouble(Field::BaseValue);
        } else if (from == Field::Index && to >= Field::Change) {
            const int direction = SignToColor(nullptr, *m_Fields.Value(Field::Sign));
            m_dBaseValue = m_Fields.ReadDouble(Field::Index) - direction * m_Fields.ReadDouble(Field::Change);
        } else {
            m_dBaseValue = 0.0;
        }
        AddTrStcd(m_Key, sizeof(m_Key), kIndexClass, kWantIndex);
        DelTrStcd(oldKey, sizeof(oldKey), kIndexClass, kWantIndex);
        return 1;
    }

    void Release() override {
        Decoder::Release();
        DelTrStcd(m_Key, sizeof(m_Key), kIndexClass, kWantIndex);
        memset(m_Key, ' ', sizeof(m_Key));
    }

    void EndUnpack() override {
        if (m_bChanged != 0 && m_bStopped == 0) {
            memcpy(m_pOutput + sizeof(RequestTag), m_Fields.Tag(m_nFromField),
                   static_cast<size_t>(m_nOutputLen));
            PostToView(nullptr, 0);
            m_bChanged = 0;
        }
    }

private:
    using Field = IndexField;

    int OnIndexPacket(const char* payload) {
        const auto& index = *reinterpret_cast<const IndexPacket*>(payload);
        if (memcmp(&index.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        const int direction = SignToColor(nullptr, index.Sign);
        if (m_dBaseValue == 0.0) {
            m_dBaseValue = BaseOf(index.Index, direction, index.Change) / 10000.0;
        }
        const double change = index.Change / 10000.0;
        m_Fields.WriteDouble(Field::Index, index.Index / 10000.0, 4);
        *m_Fields.Value(Field::Sign) = index.Sign;
        m_Fields.WriteDouble(Field::Change, change, 4);
        m_Fields.WriteDouble(Field::Rate, ChangeRate(change, m_dBaseValue, direction), 2);
        for (const int number : {Field::Index, Field::Change, Field::Rate}) {
            SignToColor(m_Fields.Tag(number), index.Sign);
        }
        m_Fields.WriteLong(Field::TotalVolume, index.TotalVolume);
        m_Fields.WriteInt64(Field::TotalValue, index.TotalValue);
        WriteAgainstBase(Field::Open, index.Open / 10000.0);
        WriteAgainstBase(Field::High, index.High / 10000.0);
        WriteAgainstBase(Field::Low, index.Low / 10000.0);
        m_Fields.WriteLong(Field::Count1, index.Count1);
        m_Fields.WriteLong(Field::Count2, index.Count2);
        m_Fields.WriteLong(Field::Count3, index.Count3);
        m_Fields.WriteLong(Field::Count4, index.Count4);
        m_Fields.WriteLong(Field::Count5, index.Count5);
        memcpy(m_Fields.Value(Field::Time), index.Time, sizeof(index.Time));
        return 1;
    }

    void WriteAgainstBase(int number, double value) {
        m_Fields.WriteDouble(number, value, 4);
        ColorOf(Compare(value, m_dBaseValue), m_Fields.Tag(number));
    }

    char m_Key[sizeof(IndexKey)];
    FieldRecord m_Fields;
    double m_dBaseValue = 0.0;
    int m_nFromField = -1;
};

Decoder* NewCRITRDE01(HWND window) {
    return new CRITRDE01(window);
}

}  // namespace plain
