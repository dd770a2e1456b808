// Filtered order list: what the screen's inquiry answers. The message stands in Orders.h.
//
// Init text:       request tag, FilteredOrdersInit, then as many OrderRows as Repeat counts and nothing
// behind.
#ifndef TICKMUX_MODULE_LAYOUTS_RSORDE22_H
#define TICKMUX_MODULE_LAYOUTS_RSORDE22_H

#include "module/layouts/Orders.h"

inline constexpr char kBothSides = '2';  // FilteredOrdersInit::SideFilter

struct FilteredOrdersInit {
    char GroupFilter[8];  // blank: all
    char UserField[6];
    char CodeFilter[12];  // "All ", "ALL " or blank: all
    char StatusFilter;    // '0' all rows, '1' open orders, '2' done, '3' withdrawn, '4' partly filled
    char SideFilter;      // kSide1Row, kSide2Row, kBothSides or blank
    char BoardFilter[5];  // "All", "ALL" or blank: all; "NG" also takes "ADV"
    char Reserved[32];
    RepeatHead Repeat;  // only Count is read
};
static_assert(sizeof(FilteredOrdersInit) == 89 && alignof(FilteredOrdersInit) == 1);
static_assert(offsetof(FilteredOrdersInit, StatusFilter) == 26 && offsetof(FilteredOrdersInit, Repeat) == 65);

template <class Visitor>
void Describe(const FilteredOrdersInit& init, Visitor&& visit) {
    visit("GroupFilter", init.GroupFilter);
    visit("UserField", init.UserField);
    visit("CodeFilter", init.CodeFilter);
    visit("StatusFilter", init.StatusFilter);
    visit("SideFilter", init.SideFilter);
    visit("BoardFilter", init.BoardFilter);
    visit("Repeat", init.Repeat);
}

#endif
