// Broker summary in its plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "framework/subscription_record.h"
#include "layouts/RSBRSM01.h"

namespace plain {

class CRSBRSM01 : public Decoder {
public:
    explicit CRSBRSM01(HWND window) : Decoder(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(BrokerPacket::kType, sizeof(BrokerPacket), &CRSBRSM01::OnBrokerPacket);
    }

    ~CRSBRSM01() override { DelTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantBrokers); }

    int Init(const char* buffer) override {
        AllocOutput(TagOf(buffer), sizeof(BrokerDisplay) - sizeof(RequestTag));
        Decoder::Init(buffer);
        char key[sizeof(m_Key)];
        if (!ReadBytes(key, sizeof(key)) || m_nInitRemain != 0) {
            return 0;
        }
        char oldKey[sizeof(m_Key)];
        memcpy(oldKey, m_Key, sizeof(m_Key));
        memcpy(m_Key, key, sizeof(m_Key));
        RepeatHead& head = reinterpret_cast<BrokerDisplay*>(m_pOutput)->Front.Repeat;
        LongToAscii(kBrokerRows, head.Count, sizeof(head.Count));
        LongToAscii(sizeof(BrokerDisplayRow), head.Size, sizeof(head.Size));
        AddTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantBrokers);
        DelTrStcd(oldKey, sizeof(oldKey), kStockClass, kWantBrokers);
        return 1;
    }

    void Release() override {
        Decoder::Release();
        DelTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantBrokers);
        memset(m_Key, ' ', sizeof(m_Key));
    }

private:
    int OnBrokerPacket(const char* payload) {
        const auto& brokers = *reinterpret_cast<const BrokerPacket*>(payload);
        if (memcmp(&brokers.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        auto* display = reinterpret_cast<BrokerDisplay*>(m_pOutput);
        memcpy(display->Front.Time, brokers.Time, sizeof(brokers.Time));
        for (size_t i = 0; i < kBrokerRows; ++i) {
            const BrokerRow& from = brokers.Rows[i];
            BrokerDisplayRow& to = display->Rows[i];
            CopyRightAligned(to.Qty2, from.Qty2, sizeof(to.Qty2), sizeof(from.Qty2));
            CopyRightAligned(to.Broker2, from.Broker2, sizeof(to.Broker2), sizeof(from.Broker2));
            CopyRightAligned(to.Broker1, from.Broker1, sizeof(to.Broker1), sizeof(from.Broker1));
            CopyRightAligned(to.Qty1, from.Qty1, sizeof(to.Qty1), sizeof(from.Qty1));
        }
        return 1;
    }

    char m_Key[sizeof(StockKey)];
};

Decoder* NewCRSBRSM01(HWND window) {
    return new CRSBRSM01(window);
}

}  // namespace plain
