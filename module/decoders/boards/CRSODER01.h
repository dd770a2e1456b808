// Order book: ten price levels on each side of one stock, with the change of each quantity, and the totals.
//
// Takes B packets of the stock, and A packets for the mark at the current price; sends the whole image once
// per batch that changed it. A quantity's change is told against the same price in the former book, wherever
// that stood.
#ifndef TICKMUX_MODULE_DECODERS_BOARDS_CRSODER01_H
#define TICKMUX_MODULE_DECODERS_BOARDS_CRSODER01_H

#include <array>
#include <optional>

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/layouts/RSODER01.h"

class CRSODER01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSODER01_R";

    explicit CRSODER01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    struct SideLevel {
        int32_t Diff;  // change of the quantity
        int32_t Qty;
        double Rate;  // of the price against the base, per cent
        int32_t Price;
    };
    // The totals behind the levels.
    struct BookSide {
        std::array<SideLevel, kBookRows> Levels{};
        std::array<SideLevel, kBookRows> Printed{};  // what the image shows, once it has been sent
    };

    int OnTradePacket(const TradePacket& trade);
    int OnBookPacket(const BookPacket& book);

    static SideLevel Parse(const BookRowSide& shown);
    template <auto Price, auto Qty>
    void TakeLevels(BookSide& side, const BookPacket& book) const;
    double RateOf(int32_t price) const;
    static void TakeTotal(SideLevel& totals, int32_t total);

    void PutFigures(BookRowSide& shown, BookSide& side, std::size_t number) const;
    void PutPriceColors(BookRowSide& shown, int32_t price) const;

    FollowedCode<StockKey, kStockClass, kWantBook> m_Key{*this};
    int32_t m_bUseHogaRect;              // the user wants the current price marked
    int32_t m_nCurPrice;                 // of the latest trade, or kNone
    int32_t m_nBasePrice;                // of rates and colours, or kNone
    std::optional<int32_t> m_RatedBase;  // of the levels' rates; none: the inquiry's
    bool m_bPrinted = false;             // the image shows what the sides call printed
    BookSide m_Side1;
    BookSide m_Side2;

    static constexpr int32_t kNone = -1;
};

#endif
