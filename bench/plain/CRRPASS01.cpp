// Pass-through in its plain form.
#include <cstring>
#include <list>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "framework/subscription_record.h"
#include "host/services.h"
#include "layouts/RRPASS01.h"
#include "layouts/SubscriptionItem.h"

namespace plain {

// What a Want byte of an item class asks for. Flags 0: the packets come without a request.
struct Wish {
    char Class;
    int Column;
    char Type;
    int CodeLen;
    uint32_t Flags;
};

static const Wish kWishes[] = {
    {'1', 0, 'A', 11, kWantTrades},
    {'1', 1, 'B', 11, kWantBook},
    {'1', 2, 'C', 11, kWantBrokers},
    {'1', 3, 'D', 11, kWantBars},
    {'A', 0, 'E', 4, kWantIndex},
    {'A', 3, 'F', 4, kWantIndexBars},
    {'M', 0, 'M', 5, kWantMarket},
    {'@', 0, '@', 11, kWantSpecial},
    {'N', 0, 'N', 11, kWantFund},
    {'/', 0, 'T', 0, 0},
    {'/', 1, '0', 0, 0},
};

class CRRPASS01 : public Decoder {
public:
    explicit CRRPASS01(HWND window) : Decoder(window) {
        SetSlot('A', sizeof(TradePacket), &CRRPASS01::OnPacket<'A', '1', TradePacket>);
        SetSlot('B', sizeof(BookPacket), &CRRPASS01::OnPacket<'B', '1', BookPacket>);
        SetSlot('C', sizeof(BrokerPacket), &CRRPASS01::OnPacket<'C', '1', BrokerPacket>);
        SetSlot('D', sizeof(BarPacket), &CRRPASS01::OnPacket<'D', '1', BarPacket>);
        SetSlot('E', sizeof(IndexPacket), &CRRPASS01::OnPacket<'E', 'A', IndexPacket>);
        SetSlot('F', sizeof(IndexBarPacket), &CRRPASS01::OnPacket<'F', 'A', IndexBarPacket>);
        SetSlot('M', sizeof(MarketPacket), &CRRPASS01::OnPacket<'M', 'M', MarketPacket>);
        SetSlot('N', sizeof(NavPacket), &CRRPASS01::OnPacket<'N', 'N', NavPacket>);
        SetSlot('@', sizeof(SpecialPacket), &CRRPASS01::OnSpecialPacket);
        SetSlot('T', sizeof(NewsPacket), &CRRPASS01::OnNewsPacket);
        SetSlot('0', sizeof(OrderPacket), &CRRPASS01::OnOrderPacket);
    }

    ~CRRPASS01() override {
        FreeList();
        ClearPending();
    }

    int Init(const char* buffer) override {
        m_pInit = buffer;  // there is no tag
        m_nInitRemain = static_cast<int>(strlen(buffer));
        m_bStopped = 0;
        char digits[sizeof(PassInit::Count)];
        if (!ReadBytes(digits, sizeof(digits))) {
            return 0;
        }
        const int count = AsciiToLong(digits, sizeof(digits));
        if (count < 1 || m_nInitRemain != count * static_cast<int>(sizeof(SubscriptionItem))) {
            return 0;
        }
        memset(m_bWanted, 0, sizeof(m_bWanted));
        memset(m_szUserId, 0, sizeof(m_szUserId));
        SubscriptionItem* oldList = m_pList;
        const int oldCount = m_nItems;
        m_pList = new SubscriptionItem[static_cast<size_t>(count)];
        m_nItems = count;
        ReadBytes(m_pList, m_nInitRemain);
        for (int i = 0; i < m_nItems; ++i) {
            TakeItem(m_pList[i]);
        }
        for (int i = 0; i < oldCount; ++i) {
            GiveUpItem(oldList[i]);
        }
        delete[] oldList;
        ClearPending();
        return 1;
    }

    void Release() override {
        Decoder::Release();
        FreeList();
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        m_bChanged = 0;
        for (const Packet& packet : m_Pending) {
            PostToView(packet.pBytes, packet.nSize);
        }
        m_Pending.clear();
    }

private:
    struct Packet {
        char* pBytes;
        int nSize;
    };

    static bool Asks(const SubscriptionItem& item, const Wish& wish) {
        return item.Class == wish.Class && item.Want[wish.Column] == '1';
    }

    // These classes take no item without a code.
    static bool IsSkipped(const SubscriptionItem& item, const Wish& wish) {
        const bool looks = item.Class == '1' || item.Class == 'A' || item.Class == 'M';
        return looks && Trimmed(item.Key, wish.CodeLen).empty();
    }

    void TakeItem(const SubscriptionItem& item) {
        for (const Wish& wish : kWishes) {
            if (!Asks(item, wish) || IsSkipped(item, wish)) {
                continue;
            }
            if (wish.Flags != 0) {
                AddTrStcd(item.Key, wish.CodeLen, wish.Class, wish.Flags);
            }
            if (wish.Type == '0') {
                memcpy(m_szUserId, CQelData21::GetUserID(), kUserIdLen);
            }
            m_bWanted[wish.Type - kFirstPacketType] = true;
        }
    }

    static void GiveUpItem(const SubscriptionItem& item) {
        for (const Wish& wish : kWishes) {
            if (wish.Flags != 0 && Asks(item, wish) && !IsSkipped(item, wish)) {
                DelTrStcd(item.Key, wish.CodeLen, wish.Class, wish.Flags);
            }
        }
    }

    bool IsWanted(char type) const { return m_bWanted[type - kFirstPacketType]; }

    bool IsListed(char chClass, const char* code, size_t codeLen) const {
        for (int i = 0; i < m_nItems; ++i) {
            if (m_pList[i].Class == chClass && memcmp(m_pList[i].Key, code, codeLen) == 0) {
                return true;
            }
        }
        return false;
    }

    int Keep(char type, const char* payload, int length) {
        char* copy = new char[static_cast<size_t>(length) + 1];
        copy[0] = type;
        memcpy(copy + 1, payload, static_cast<size_t>(length));
        m_Pending.push_back({copy, length + 1});
        return 1;
    }

    template <char Type, char Class, class Struct>
    int OnPacket(const char* payload) {
        const size_t codeLen = Class == '1' || Class == 'N' ? sizeof(StockKey)
                               : Class == 'A'               ? sizeof(IndexKey)
                                                            : sizeof(MarketPacket::Code);
        return IsWanted(Type) && IsListed(Class, payload, codeLen) ? Keep(Type, payload, sizeof(Struct)) : 0;
    }

    int OnSpecialPacket(const char* payload) {
        return IsWanted('@') ? Keep('@', payload, sizeof(SpecialPacket)) : 0;
    }

    int OnNewsPacket(const char* payload) {
        const auto& news = *reinterpret_cast<const NewsPacket*>(payload);
        const int related = AsciiToLong(news.RelatedCount(), NewsPacket::kRelatedCountWidth);
        return IsWanted('T') && related == 0 ? Keep('T', payload, sizeof(NewsPacket)) : 0;
    }

    int OnOrderPacket(const char* payload) {
        const auto& notice = *reinterpret_cast<const OrderPacket*>(payload);
        const bool mine = memcmp(notice.UserId, m_szUserId, kUserIdLen) == 0;
        return IsWanted('0') && mine ? Keep('0', payload, sizeof(OrderPacket)) : 0;
    }

    void FreeList() {
        for (int i = 0; i < m_nItems; ++i) {
            GiveUpItem(m_pList[i]);
        }
        delete[] m_pList;
        m_pList = nullptr;
        m_nItems = 0;
    }

    void ClearPending() {
        for (const Packet& packet : m_Pending) {
            delete[] packet.pBytes;
        }
        m_Pending.clear();
    }

    static constexpr size_t kUserIdLen = 19;

    SubscriptionItem* m_pList = nullptr;
    int m_nItems = 0;
    std::list<Packet> m_Pending;
    bool m_bWanted[kPacketTypes] = {};
    char m_szUserId[kUserIdLen] = {};
};

Decoder* NewCRRPASS01(HWND window) {
    return new CRRPASS01(window);
}

}  // namespace plain
