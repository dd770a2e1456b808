// Volume by price: the table of one stock's day, a row for each price at which it has traded.
//
// Takes A packets of the stock; sends the whole table once per batch, and tells a new row at once.
#ifndef TICKMUX_MODULE_DECODERS_BOARDS_CRSTRBK01_H
#define TICKMUX_MODULE_DECODERS_BOARDS_CRSTRBK01_H

#include "module/containers/node_pool.h"
#include "module/containers/number_index.h"
#include "module/containers/plain_array.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/layouts/RSTRBK01.h"

class CRSTRBK01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSTRBK01_R";

    explicit CRSTRBK01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;
    void OnStop() override;

    struct Entry {
        int32_t Number;  // the price
        Entry* Previous;
        Entry* Next;
        PriceRow Row;
    };

    int OnTradePacket(const TradePacket& trade);

    void ClearTable();
    bool TakeRows(const char* rows, int count, std::size_t size);
    // A row with its number, at a place of the list. Null: memory failed.
    Entry* InsertRow(std::size_t place, const PriceRow& row, int32_t price);
    Entry* InsertPrice(const TradePacket& trade);

    FollowedCode<StockKey, kStockClass, kWantTrades> m_Key{*this};
    PlainRows m_Front{};
    NodePool<Entry> m_Entries;
    PlainArray<Entry*> m_List;     // highest price first, unless the inquiry had another order
    NumberIndex<Entry> m_ByPrice;  // of equal prices the first
};

#endif
