#include "module/decoders/passing/CRRPASS01.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "host/services/services.h"
#include "module/framework/init_reader.h"
#include "module/wire/codecs.h"

namespace {

constexpr ItemClass kItemClasses[] = {
    {.Class = kStockClass,
     .CodeLength = sizeof(StockKey),
     .Columns = {{'A', kWantTrades}, {'B', kWantBook}, {'C', kWantBrokers}, {'D', kWantBars}},
     .SkipsBlank = true},
    {.Class = kIndexClass,
     .CodeLength = sizeof(IndexKey),
     .Columns = {{'E', kWantIndex}, {}, {}, {'F', kWantIndexBars}},
     .SkipsBlank = true},
    {.Class = kMarketClass,
     .CodeLength = sizeof(MarketPacket::Code),
     .Columns = {{'M', kWantMarket}, {}, {}, {}},
     .SkipsBlank = true},
    {.Class = kSpecialClass, .CodeLength = sizeof(SpecialPacket::Code), .Columns = {{'@', kWantSpecial}}},
    {.Class = kFundClass, .CodeLength = sizeof(StockKey), .Columns = {{'N', kWantFund}}},
    // Packets of these types come without a request.
    {.Class = '/', .CodeLength = 0, .Columns = {{NewsPacket::kType, 0}, {OrderPacket::kType, 0}}},
};

constexpr const ItemClass& ClassOfType(char type) {
    return *std::find_if(std::begin(kItemClasses), std::end(kItemClasses), [type](const ItemClass& each) {
        return std::any_of(std::begin(each.Columns), std::end(each.Columns),
                           [type](const WantColumn& column) { return column.Type == type; });
    });
}

}  // namespace

CRRPASS01::CRRPASS01(HWND hWnd)
    : CRTMPacketDecoder(hWnd, Takes<&CRRPASS01::OnPacket<TradePacket>, &CRRPASS01::OnPacket<BookPacket>,
                                    &CRRPASS01::OnPacket<BrokerPacket>, &CRRPASS01::OnPacket<BarPacket>,
                                    &CRRPASS01::OnPacket<IndexPacket>, &CRRPASS01::OnPacket<IndexBarPacket>,
                                    &CRRPASS01::OnPacket<MarketPacket>, &CRRPASS01::OnPacket<NavPacket>,
                                    &CRRPASS01::OnPacket<SpecialPacket>, &CRRPASS01::OnPacket<NewsPacket>,
                                    &CRRPASS01::OnPacket<OrderPacket>>) {}

int CRRPASS01::OnInit(InitReader& in) {
    in.ReadTagAsBody();
    PassInit init;
    if (!in.Read(init)) {
        return 0;
    }
    constexpr auto kItemSize = static_cast<int>(sizeof(SubscriptionItem));
    const int items = ToLong(init.Count);
    CodeRequests::List requests;
    if (items < 1 || in.Remain() != items * kItemSize ||
        !ListRequests(kItemClasses, in.RestAs<SubscriptionItem>(), requests) ||
        !m_Codes.Reset(static_cast<std::size_t>(items))) {
        return 0;
    }
    TakeItems(in.RestAs<SubscriptionItem>());
    m_Requests.MoveTo(std::move(requests));
    m_Pending.Clear();  // also what came from within the requests
    return 1;
}

void CRRPASS01::TakeItems(std::span<const SubscriptionItem> items) {
    std::fill(std::begin(m_Wanted), std::end(m_Wanted), false);
    std::memset(m_szUserId, 0, sizeof(m_szUserId));
    for (const SubscriptionItem& item : items) {
        if (const ItemClass* itemClass = FindClass(kItemClasses, item.Class)) {
            m_Codes.Put(MakeCode(*itemClass, item.Key), 0);
        }
        ForEachWanted(kItemClasses, item, [this](const ItemClass& /*itemClass*/, const WantColumn& column) {
            Wanted(column.Type) = true;
        });
    }
    if (Wanted(OrderPacket::kType)) {
        std::memcpy(m_szUserId, CQelData21::GetUserID(), sizeof(m_szUserId));
    }
}

CRRPASS01::ListedCode CRRPASS01::MakeCode(const ItemClass& itemClass, const char* code) {
    ListedCode listed;
    FillBlank(listed);
    listed.Class = itemClass.Class;
    std::memcpy(listed.Code, code, static_cast<std::size_t>(itemClass.CodeLength));
    return listed;
}

template <class Packet>
int CRRPASS01::OnPacket(const Packet& packet) {
    if (!Wanted(Packet::kType) || !Passes(packet)) {
        return 0;
    }
    char* copy = m_Pending.Append(1 + sizeof(Packet));
    if (copy == nullptr) {
        return 0;
    }
    *copy = Packet::kType;
    std::memcpy(copy + 1, &packet, sizeof(Packet));
    return 1;
}

// A packet begins with its code.
template <class Packet>
bool CRRPASS01::Passes(const Packet& packet) const {
    const char* code = reinterpret_cast<const char*>(&packet);
    return m_Codes.Find(MakeCode(ClassOfType(Packet::kType), code)) != KeyIndex<ListedCode>::kNowhere;
}

bool CRRPASS01::Passes(const SpecialPacket& /*packet*/) const {
    return true;
}

// Further entries behind a headline would make the packet longer than it is.
bool CRRPASS01::Passes(const NewsPacket& news) const {
    return AsciiToLong(news.RelatedCount(), NewsPacket::kRelatedCountWidth) == 0;
}

bool CRRPASS01::Passes(const OrderPacket& notice) const {
    return std::memcmp(notice.UserId, m_szUserId, sizeof(m_szUserId)) == 0;
}

void CRRPASS01::OnEndUnpack() {
    // The window may call back: each packet is off the queue before its message goes out.
    while (!IsStopped() && !m_Pending.Empty()) {
        const char* packet = m_Pending.First();
        const std::size_t size = 1 + PayloadLength(*packet);
        ViewBuffer copy = ViewBuffer::OfPacket(packet, size);
        if (!copy) {
            KeepChange();  // the next batch end goes on from here
            return;
        }
        m_Pending.DropFirst(size);
        PostToView(std::move(copy));
    }
}

void CRRPASS01::OnRelease() {
    m_Requests.GiveUpAll();
}
