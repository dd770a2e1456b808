// Stock tick list: every trade of one stock becomes a row.
//
// Takes A packets of the stock; the rows of a batch leave together behind a display head that shows the
// latest price and the day's quantity.
#ifndef TICKMUX_MODULE_DECODERS_LISTS_CRSTICK11_H
#define TICKMUX_MODULE_DECODERS_LISTS_CRSTICK11_H

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/framework/waiting_rows.h"
#include "module/layouts/RSTICK11.h"

class CRSTICK11 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSTICK11_R";

    explicit CRSTICK11(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    int OnTradePacket(const TradePacket& trade);

    FollowedCode<StockKey, kStockClass, kWantTrades> m_Key{*this};
    HeadedRows m_Front;  // tag and display head of the next buffer
    char m_Date[8];      // YYYYMMDD, in every row
    WaitingRows<TickRow> m_Ticks;
    int32_t m_nTotalVolume = 0;  // of the day, by the latest trade
    bool m_bHeadIsDue = false;   // the head does not show the latest trade yet
};

#endif
