#include "module/decoders/passing/CRDUMMY01.h"

#include "module/decoders/passing/ItemClasses.h"
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
     .SkipsBlank = true,
     .Skipped = "0001"},
};

}  // namespace

CRDUMMY01::CRDUMMY01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<>) {}

int CRDUMMY01::OnInit(InitReader& in) {
    HolderInit init;
    if (!in.Read(init)) {
        return 0;
    }
    constexpr auto kItemSize = static_cast<int>(sizeof(SubscriptionItem));
    const int items = ToLong(init.Repeat.Count);
    CodeRequests::List requests;
    if (items < 1 || in.Remain() != items * kItemSize ||
        !ListRequests(kItemClasses, in.RestAs<SubscriptionItem>(), requests)) {
        return 0;
    }
    m_Requests.MoveTo(std::move(requests));
    return 1;
}

void CRDUMMY01::OnRelease() {
    m_Requests.GiveUpAll();
}
