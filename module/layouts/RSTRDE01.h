// Stock panel: the 56 numbered fields, of which a screen takes a range.
//
// Init text:       request tag, StockPanelInit, then the range of fields and nothing behind it.
// Display buffer:  request tag, then the range of fields; one for each batch that changes a field.
#ifndef TICKMUX_MODULE_LAYOUTS_RSTRDE01_H
#define TICKMUX_MODULE_LAYOUTS_RSTRDE01_H

#include "module/layouts/field_panel.h"

struct StockPanelInit {
    StockKey Key;
    char FirstField[3];  // digits
    char LastField[3];
};
static_assert(sizeof(StockPanelInit) == 17 && alignof(StockPanelInit) == 1);

template <class Visitor>
void Describe(const StockPanelInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("FirstField", init.FirstField);
    visit("LastField", init.LastField);
}

// The fields that the decoder reads or writes. The others keep what the inquiry delivered.
struct StockField {
    enum Number : int {
        Price = 3,
        BasePrice = 4,
        Sign = 8,
        Change = 9,
        Rate = 10,
        TradeCount = 11,
        TotalVolume = 12,
        TotalValue = 13,
        Open = 14,
        High = 15,
        Low = 16,
        AveragePrice = 17,
        CapitalValue = 18,
        Best2Price = 21,
        Best1Price = 22,
        Best2Qty = 23,
        Best1Qty = 24,
        CapitalUnits = 28,
        Side2Total = 44,
        Side1Total = 45,
        Broker1Qty = 48,
        Broker1Value = 49,
        Broker1Count = 50,
        Broker2Qty = 51,
        Broker2Value = 52,
        Broker2Count = 53,
    };
};

// clang-format off
inline constexpr PanelField kStockPanel[] = {
    // number, width, colour, content
    {0, 4, false, "inquiry"},
    {1, 8, false, "inquiry"},
    {2, 1, false, "inquiry"},
    {StockField::Price, 14, true, "Price"},
    {StockField::BasePrice, 14, true, "base price, from the inquiry"},
    {5, 1, false, "inquiry"},
    {6, 14, true, "inquiry"},
    {7, 8, true, "inquiry"},
    {StockField::Sign, 1, false, "Sign"},
    {StockField::Change, 14, true, "Change"},
    {StockField::Rate, 8, true, "rate, per cent"},
    {StockField::TradeCount, 8, false, "TradeCount"},
    {StockField::TotalVolume, 15, false, "TotalVolume"},
    {StockField::TotalValue, 18, false, "TotalValue, thousands"},
    {StockField::Open, 14, true, "Open"},
    {StockField::High, 14, true, "High"},
    {StockField::Low, 14, true, "Low"},
    {StockField::AveragePrice, 14, true, "average price"},
    {StockField::CapitalValue, 18, false, "capital value, millions"},
    {19, 12, false, "inquiry"},
    {20, 12, false, "inquiry"},
    {StockField::Best2Price, 14, true, "book side 2, best price"},
    {StockField::Best1Price, 14, true, "book side 1, best price"},
    {StockField::Best2Qty, 15, false, "book side 2, best quantity"},
    {StockField::Best1Qty, 15, false, "book side 1, best quantity"},
    {25, 12, false, "inquiry"},
    {26, 12, false, "inquiry"},
    {27, 30, false, "inquiry"},
    {StockField::CapitalUnits, 14, false, "capital units, from the inquiry"},
    {29, 14, false, "inquiry"},
    {30, 14, false, "inquiry"},
    {31, 80, false, "inquiry"},
    {32, 80, false, "inquiry"},
    {33, 30, false, "inquiry"},
    {34, 30, false, "inquiry"},
    {35, 30, false, "inquiry"},
    {36, 30, false, "inquiry"},
    {37, 30, false, "inquiry"},
    {38, 30, false, "inquiry"},
    {39, 80, false, "inquiry"},
    {40, 10, false, "inquiry"},
    {41, 8, false, "inquiry"},
    {42, 80, false, "inquiry"},
    {43, 8, false, "inquiry"},
    {StockField::Side2Total, 15, false, "book total of side 2"},
    {StockField::Side1Total, 15, false, "book total of side 1"},
    {46, 15, false, "inquiry"},
    {47, 15, false, "inquiry"},
    {StockField::Broker1Qty, 15, false, "Broker1Class F, quantity"},
    {StockField::Broker1Value, 18, false, "Broker1Class F, value"},
    {StockField::Broker1Count, 8, false, "Broker1Class F, trades"},
    {StockField::Broker2Qty, 15, false, "Broker2Class F, quantity"},
    {StockField::Broker2Value, 18, false, "Broker2Class F, value"},
    {StockField::Broker2Count, 8, false, "Broker2Class F, trades"},
    {54, 14, false, "inquiry"},
    {55, 5, false, "inquiry"},
};
// clang-format on
static_assert(WidthOf(kStockPanel) == 1067);

#endif
