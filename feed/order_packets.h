// From the flow of orders to packets.
#ifndef TICKMUX_FEED_ORDER_PACKETS_H
#define TICKMUX_FEED_ORDER_PACKETS_H

#include "feed/emitters.h"
#include "feed/orders.h"

namespace tools {

WholePacket<OrderPacket> MakeOrder(const OrderNotice& notice);

}  // namespace tools

#endif
