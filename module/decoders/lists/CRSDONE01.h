// Stock fills: every trade of one stock becomes a row with its rate and brokers.
//
// Takes A packets of the stock; the rows of a batch leave together.
#ifndef TICKMUX_MODULE_DECODERS_LISTS_CRSDONE01_H
#define TICKMUX_MODULE_DECODERS_LISTS_CRSDONE01_H

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/framework/waiting_rows.h"
#include "module/layouts/RSDONE01.h"

class CRSDONE01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSDONE01_R";

    explicit CRSDONE01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    int OnTradePacket(const TradePacket& trade);

    FollowedCode<StockKey, kStockClass, kWantTrades> m_Key{*this};
    PlainRows m_Front{};
    int32_t m_nBasePrice = 0;  // of the rate; 0: none yet
    WaitingRows<FillRow> m_Ticks;
};

#endif
