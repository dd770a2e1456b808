// Index tick list in its plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "bench/plain/waiting_rows.h"
#include "framework/subscription_record.h"
#include "layouts/RINTIK01.h"

namespace plain {

class CRINTIK01 : public Decoder {
public:
    explicit CRINTIK01(HWND window) : Decoder(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(IndexPacket::kType, sizeof(IndexPacket), &CRINTIK01::OnIndexPacket);
    }

    ~CRINTIK01() override { DelTrStcd(m_Key, sizeof(m_Key), kIndexClass, kWantIndex); }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        IndexTickInit init;
        if (!ReadBytes(&init, sizeof(init)) || m_nInitRemain != 0) {
            return 0;
        }
        m_Ticks.Clear();
        char oldKey[sizeof(m_Key)];
        memcpy(oldKey, m_Key, sizeof(m_Key));
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        m_dBaseValue = AsciiToDouble(init.BaseValue, sizeof(init.BaseValue));
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
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        if (m_Ticks.Count() > 0) {
            char* buffer =
                NewRowsBuffer(m_Tag, offsetof(PlainRows, Repeat), m_Ticks.Count(), sizeof(IndexTickRow));
            char* end = m_Ticks.MoveTo(buffer + sizeof(PlainRows));
            PostToView(buffer, static_cast<int>(end - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
        m_bChanged = 0;
    }

private:
    int OnIndexPacket(const char* payload) {
        const auto& index = *reinterpret_cast<const IndexPacket*>(payload);
        if (memcmp(&index.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        IndexTickRow* row = m_Ticks.Add();
        const int direction = SignToColor(row->IndexTag, index.Sign);
        if (m_dBaseValue == 0.0) {
            m_dBaseValue = BaseOf(index.Index, direction, index.Change) / 10000.0;
        }
        const double change = index.Change / 10000.0;
        memcpy(row->Time, index.Time, sizeof(row->Time));
        DoubleToAscii(index.Index / 10000.0, row->Index, sizeof(row->Index), 4);
        row->Sign = index.Sign;
        SignToColor(row->ChangeTag, index.Sign);
        DoubleToAscii(change, row->Change, sizeof(row->Change), 4);
        SignToColor(row->RateTag, index.Sign);
        DoubleToAscii(ChangeRate(change, m_dBaseValue, direction), row->Rate, sizeof(row->Rate), 2);
        LongToAscii(index.Volume, row->Volume, sizeof(row->Volume));
        return 1;
    }

    char m_Key[sizeof(IndexKey)];
    RequestTag m_Tag{};
    WaitingRows<IndexTickRow> m_Ticks;
    double m_dBaseValue = 0.0;
};

Decoder* NewCRINTIK01(HWND window) {
    return new CRINTIK01(window);
}

}  // namespace plain
