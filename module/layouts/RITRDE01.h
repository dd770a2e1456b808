// Index panel: the 18 numbered fields, of which a screen takes a range. Values are index points, four
// decimals.
//
// Init text:       request tag, IndexPanelInit, then the range of fields and nothing behind it.
// Display buffer:  request tag, then the range of fields; one for each batch that changes a field.
#ifndef TICKMUX_MODULE_LAYOUTS_RITRDE01_H
#define TICKMUX_MODULE_LAYOUTS_RITRDE01_H

#include "module/layouts/field_panel.h"

struct IndexPanelInit {
    IndexKey Key;
    char Unused[7];
    char FirstField[2];  // digits
    char LastField[2];
};
static_assert(sizeof(IndexPanelInit) == 15 && alignof(IndexPanelInit) == 1);

template <class Visitor>
void Describe(const IndexPanelInit& init, Visitor&& visit) {
    visit("Key", init.Key);
    visit("Unused", init.Unused);
    visit("FirstField", init.FirstField);
    visit("LastField", init.LastField);
}

// The fields that the decoder reads or writes. The others keep what the inquiry delivered.
struct IndexField {
    enum Number : int {
        Index = 0,
        Sign = 1,
        Change = 2,
        Rate = 3,
        High = 4,
        Low = 5,
        Open = 6,
        TotalVolume = 7,
        TotalValue = 8,
        BaseValue = 9,
        Count1 = 10,
        Count2 = 11,
        Count3 = 12,
        Count4 = 13,
        Count5 = 14,
        Time = 17,
    };
};

// clang-format off
inline constexpr PanelField kIndexPanel[] = {
    // number, width, colour, content
    {IndexField::Index, 17, true, "Index"},
    {IndexField::Sign, 1, false, "Sign"},
    {IndexField::Change, 17, true, "Change"},
    {IndexField::Rate, 8, true, "rate, per cent"},
    {IndexField::High, 17, true, "High"},
    {IndexField::Low, 17, true, "Low"},
    {IndexField::Open, 17, true, "Open"},
    {IndexField::TotalVolume, 15, false, "TotalVolume"},
    {IndexField::TotalValue, 15, false, "TotalValue"},
    {IndexField::BaseValue, 17, true, "base value, from the inquiry"},
    {IndexField::Count1, 5, false, "Count1"},
    {IndexField::Count2, 5, false, "Count2"},
    {IndexField::Count3, 5, false, "Count3"},
    {IndexField::Count4, 5, false, "Count4"},
    {IndexField::Count5, 9, false, "Count5"},
    {15, 15, false, "inquiry"},
    {16, 8, false, "inquiry"},
    {IndexField::Time, 6, false, "Time"},
};
// clang-format on
static_assert(WidthOf(kIndexPanel) == 199);

#endif
