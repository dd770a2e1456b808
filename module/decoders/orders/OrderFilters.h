// What a filtered order list lets in, and what of it the view gets.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_ORDERFILTERS_H
#define TICKMUX_MODULE_DECODERS_ORDERS_ORDERFILTERS_H

#include "module/decoders/orders/OrderWords.h"
#include "module/layouts/RSORDE22.h"
#include "module/wire/packets.h"

// A notice outside the filters on item, group, board and side never enters the list.
bool PassesFilters(const FilteredOrdersInit& filter, const OrderPacket& notice);

// The words that a status filter lets through to the view.
struct StatusRule {
    char Filter;
    Word Words[3];    // an empty one is none
    bool KeepsShown;  // what the view has passes as well, and is withdrawn when its word no longer does
    bool Promotes;    // a row that comes to pass goes out as new

    bool HasWordOf(const OrderRow& row) const;
};

// Null: the filter lets every row through.
const StatusRule* FindStatusRule(char filter);

#endif
