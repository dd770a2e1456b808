#include "terminal/packet_tally.h"

#include <array>
#include <cstdio>

#include "module/wire/packets.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr int kUnknown = -1;

// Payload bytes by type char.
template <class... Packets>
constexpr std::array<int, 256> PayloadLengths() {
    std::array<int, 256> lengths{};
    lengths.fill(kUnknown);
    ((lengths[static_cast<unsigned char>(Packets::kType)] = static_cast<int>(sizeof(Packets))), ...);
    return lengths;
}

constexpr std::array<int, 256> kPayloadLengths =
    PayloadLengths<TradePacket, BookPacket, BrokerPacket, BarPacket, IndexPacket, IndexBarPacket,
                   MarketPacket, NavPacket, CompactTradePacket, NewsPacket, OrderPacket, SpecialPacket>();

std::string UnknownType(unsigned char type) {
    char text[sizeof("unknown type 0x00")];
    std::snprintf(text, sizeof(text), "unknown type 0x%02x", static_cast<unsigned>(type));
    return text;
}

std::string TypeName(unsigned char type) {
    return std::string(1, static_cast<char>(type)) + " packet";
}

}  // namespace

bool PacketTally::Check(const CaptureRecord& packet) {
    const auto type = static_cast<unsigned char>(packet.Bytes[0]);
    const int payload = packet.Length - 1;
    if (payload == kPayloadLengths[type]) {
        return true;
    }
    Odd& odd = m_Odd[type];
    if (odd.Count++ == 0) {
        odd.FirstRecord = packet.Number;
        odd.FirstPayload = payload;
    }
    return false;
}

std::string PacketTally::Fault(const CaptureRecord& packet) {
    const auto type = static_cast<unsigned char>(packet.Bytes[0]);
    if (kPayloadLengths[type] == kUnknown) {
        return "packet of " + UnknownType(type);
    }
    return TypeName(type) + " with " + std::to_string(packet.Length - 1) + " payload bytes, expected " +
           std::to_string(kPayloadLengths[type]);
}

std::vector<std::string> PacketTally::Report() const {
    std::vector<std::string> lines;
    for (const auto& [type, odd] : m_Odd) {
        const std::string first = "first at record " + std::to_string(odd.FirstRecord);
        if (kPayloadLengths[type] == kUnknown) {
            lines.push_back(Counted(odd.Count, "record") + " of " + UnknownType(type) + " (" + first + ")");
        } else {
            lines.push_back(Counted(odd.Count, TypeName(type)) + " of wrong length (expected " +
                            std::to_string(kPayloadLengths[type]) + " payload bytes; " + first + ": " +
                            std::to_string(odd.FirstPayload) + ")");
        }
    }
    return lines;
}

}  // namespace tools
