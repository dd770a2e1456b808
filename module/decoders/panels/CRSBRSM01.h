// Broker summary: ten rows of broker totals of one stock.
//
// Takes C packets of the stock, each of which replaces the whole picture; sends it once per batch.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_CRSBRSM01_H
#define TICKMUX_MODULE_DECODERS_PANELS_CRSBRSM01_H

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/layouts/RSBRSM01.h"

class CRSBRSM01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSBRSM01_R";

    explicit CRSBRSM01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnRelease() override;

    int OnBrokerPacket(const BrokerPacket& brokers);

    FollowedCode<StockKey, kStockClass, kWantBrokers> m_Key{*this};
};

#endif
