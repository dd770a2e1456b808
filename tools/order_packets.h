// From the flow of orders to packets.
#ifndef TICKMUX_TOOLS_ORDER_PACKETS_H
#define TICKMUX_TOOLS_ORDER_PACKETS_H

#include "tools/emitters.h"
#include "tools/orders.h"

namespace tools {

WholePacket<OrderPacket> MakeOrder(const OrderNotice& notice);

}  // namespace tools

#endif
