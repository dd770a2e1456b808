// Subscription holder in its plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "framework/subscription_record.h"
#include "layouts/RDUMMY01.h"

namespace plain {

class CRDUMMY01 : public Decoder {
public:
    explicit CRDUMMY01(HWND window) : Decoder(window) {}

    ~CRDUMMY01() override { FreeList(); }

    int Init(const char* buffer) override {
        Decoder::Init(buffer);
        RepeatHead head;
        if (!ReadBytes(&head, sizeof(head))) {
            return 0;
        }
        const int count = AsciiToLong(head.Count, sizeof(head.Count));
        if (count < 1 || m_nInitRemain != count * static_cast<int>(sizeof(SubscriptionItem))) {
            return 0;
        }
        SubscriptionItem* oldList = m_pList;
        const int oldCount = m_nItems;
        m_pList = new SubscriptionItem[static_cast<size_t>(count)];
        m_nItems = count;
        ReadBytes(m_pList, m_nInitRemain);
        for (int i = 0; i < m_nItems; ++i) {
            SendRequests(m_pList[i], AddTrStcd);
        }
        for (int i = 0; i < oldCount; ++i) {
            SendRequests(oldList[i], DelTrStcd);
        }
        delete[] oldList;
        return 1;
    }

    void Release() override {
        Decoder::Release();
        FreeList();
    }

private:
    using Request = void (*)(const char* code, int codeLen, char chClass, uint32_t flags);

    static void SendRequests(const SubscriptionItem& item, Request request) {
        if (item.Class == kStockClass) {
            const uint32_t flags[] = {kWantTrades, kWantBook, kWantBrokers, kWantBars};
            for (int i = 0; i < 4; ++i) {
                if (item.Want[i] == '1') {
                    request(item.Key, sizeof(StockKey), kStockClass, flags[i]);
                }
            }
        } else if (item.Class == kIndexClass && memcmp(item.Key, "0001", 4) != 0) {
            if (item.Want[0] == '1') {
                request(item.Key, sizeof(IndexKey), kIndexClass, kWantIndex);
            }
            if (item.Want[3] == '1') {
                request(item.Key, sizeof(IndexKey), kIndexClass, kWantIndexBars);
            }
        }
    }

    void FreeList() {
        for (int i = 0; i < m_nItems; ++i) {
            SendRequests(m_pList[i], DelTrStcd);
        }
        delete[] m_pList;
        m_pList = nullptr;
        m_nItems = 0;
    }

    SubscriptionItem* m_pList = nullptr;
    int m_nItems = 0;
};

Decoder* NewCRDUMMY01(HWND window) {
    return new CRDUMMY01(window);
}

}  // namespace plain
