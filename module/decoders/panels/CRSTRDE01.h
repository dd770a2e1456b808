// Stock panel: current price, day figures, best of the book and running broker totals of one stock.
//
// Takes A and B packets of the stock; sends the range of fields that the screen asked for.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_CRSTRDE01_H
#define TICKMUX_MODULE_DECODERS_PANELS_CRSTRDE01_H

#include "module/decoders/panels/FieldPanel.h"
#include "module/decoders/panels/RunningSum.h"
#include "module/layouts/RSTRDE01.h"

struct StockPanel {
    static constexpr const auto& kTable = kStockPanel;
    using Init = StockPanelInit;
    using Key = StockKey;
    static constexpr char kClass = kStockClass;
    static constexpr uint32_t kFlags = kWantTrades | kWantBook;
};

class CRSTRDE01 : public PanelDecoder<StockPanel> {
public:
    static constexpr char kMapName[] = "RSTRDE01_R";

    explicit CRSTRDE01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnTradePacket(const TradePacket& trade);
    int OnBookPacket(const BookPacket& book);
    void TakeFields() override;

    void PutPrices(const TradePacket& trade, int direction);
    void PutBest(int32_t best1, int32_t best2);
    template <int Quantity, int Money, int Count>
    void AddToGroup(const TradePacket& trade);

    template <int Number>
    void AddTo(int32_t amount) {
        m_Sums[Number - kFirstSum].Add(Value<Number>(), amount);
    }

    static constexpr int kFirstSum = StockField::Broker1Qty;
    static constexpr int kLastSum = StockField::Broker2Count;

    int32_t m_nBasePrice = 0;  // 0: none yet
    double m_dCapitalUnits = 0.0;
    RunningSum m_Sums[kLastSum - kFirstSum + 1];
};

#endif
