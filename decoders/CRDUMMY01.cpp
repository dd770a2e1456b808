#include "decoders/CRDUMMY01.h"

#include "framework/codecs.h"
#include "framework/init_reader.h"

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

CRDUMMY01::CRDUMMY01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<>), m_List(kItemClasses) {}

CRDUMMY01::~CRDUMMY01() {
    m_List.GiveUp();
}

int CRDUMMY01::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
    HolderInit init;
    if (!in.Read(init)) {
        return 0;
    }
    constexpr auto kItemSize = static_cast<int>(sizeof(SubscriptionItem));
    const int items = ToLong(init.Repeat.Count);
    SubscriptionList::Items former;
    if (items < 1 || in.Remain() != items * kItemSize || !m_List.Take(in, items, former)) {
        return 0;
    }
    m_List.MoveFrom(former);
    return 1;
}

void CRDUMMY01::Release() {
    CRTMPacketDecoder::Release();
    m_List.GiveUp();
}
