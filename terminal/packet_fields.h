// Packets by the names of their fields.
#ifndef TICKMUX_TERMINAL_PACKET_FIELDS_H
#define TICKMUX_TERMINAL_PACKET_FIELDS_H

#include <string>
#include <string_view>
#include <vector>

#include "module/wire/packets.h"
#include "terminal/fields.h"

namespace tools {

// What the pass-through lets through: whole packets, the type byte first.
const std::vector<LayoutTable>& PassedPackets();

// "Name=value" of a packet's fields, reserved ones only if they hold something: lines of one width, and one
// for each of its rows. The layout is one of PassedPackets.
std::string PacketLines(const LayoutTable& layout, std::string_view packet);

}  // namespace tools

#endif
