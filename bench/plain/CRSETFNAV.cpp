// Fund values in their plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "framework/subscription_record.h"
#include "layouts/RSETFNAV.h"

namespace plain {

class CRSETFNAV : public Decoder {
public:
    explicit CRSETFNAV(HWND window) : Decoder(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(NavPacket::kType, sizeof(NavPacket), &CRSETFNAV::OnNavPacket);
    }

    ~CRSETFNAV() override { DelTrStcd(m_Key, sizeof(m_Key), kFundClass, kWantFund); }

    int Init(const char* buffer) override {
        Decoder::Init(buffer);
        NavInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        char oldKey[sizeof(m_Key)];
        memcpy(oldKey, m_Key, sizeof(m_Key));
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        m_dBaseValue = AsciiToDouble(init.BaseValue, sizeof(init.BaseValue));
        memset(&m_Image, ' ', sizeof(m_Image));
        m_Image.Tag = TagOf(buffer);
        WriteValue(m_Image.Field2, init.FirstValue, sizeof(init.FirstValue));
        WriteValue(m_Image.Field3, init.SecondValue, sizeof(init.SecondValue));
        AllocOutput(m_Image.Tag, sizeof(m_Image) - sizeof(m_Image.Tag));
        AddTrStcd(m_Key, sizeof(m_Key), kFundClass, kWantFund);
        DelTrStcd(oldKey, sizeof(oldKey), kFundClass, kWantFund);
        return 1;
    }

    void Release() override {
        Decoder::Release();
        DelTrStcd(m_Key, sizeof(m_Key), kFundClass, kWantFund);
        memset(m_Key, ' ', sizeof(m_Key));
    }

    void EndUnpack() override {
        if (m_bChanged != 0 && m_bStopped == 0) {
            memcpy(m_pOutput, &m_Image, sizeof(m_Image));
            PostToView(nullptr, 0);
            m_bChanged = 0;
        }
    }

private:
    int OnNavPacket(const char* payload) {
        const auto& nav = *reinterpret_cast<const NavPacket*>(payload);
        if (memcmp(&nav.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        const int kind = AsciiToLong(nav.Kind, sizeof(nav.Kind));
        if (kind > 1) {
            return 0;
        }
        if (kind == 1) {
            WriteValue(m_Image.Field2, nav.Value1, sizeof(nav.Value1));
            WriteValue(m_Image.Field3, nav.Value2, sizeof(nav.Value2));
        } else {
            WriteValue(m_Image.Field1, nav.Value1, sizeof(nav.Value1));
        }
        return 1;
    }

    void WriteValue(NavField& field, const char* text, int length) const {
        double value = AsciiToDouble(text, length);
        if (!(value > 0.0)) {
            value = 0.0;
        }
        ColorOf(Compare(value, m_dBaseValue), field.Color);
        DoubleToAscii(value, field.Value, sizeof(field.Value), 2);
    }

    char m_Key[sizeof(StockKey)];
    NavDisplay m_Image;
    double m_dBaseValue = 0.0;
};

Decoder* NewCRSETFNAV(HWND window) {
    return new CRSETFNAV(window);
}

}  // namespace plain
