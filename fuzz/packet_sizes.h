// How records of the packets target read.
#ifndef TICKMUX_FUZZ_PACKET_SIZES_H
#define TICKMUX_FUZZ_PACKET_SIZES_H

#include <cstddef>
#include <string_view>

#include "framework/packets.h"

namespace fuzz {

template <class... Packets>
constexpr std::size_t SizeOf(char type) {
    return ((type == Packets::kType ? sizeof(Packets) : 0) + ...);
}

constexpr std::size_t PayloadSize(char type) {
    return SizeOf<TradePacket, BookPacket, BrokerPacket, BarPacket, IndexPacket, IndexBarPacket, MarketPacket,
                  NavPacket, CompactTradePacket, NewsPacket, OrderPacket, SpecialPacket>(type);
}

// A mark's low bits: the right length, or what is wrong with it.
inline constexpr unsigned kRight = 0;
inline constexpr unsigned kOneShort = 5;
inline constexpr unsigned kOneLong = 6;
inline constexpr unsigned kBatchEnd = 7;
inline constexpr unsigned kMarks = 8;

constexpr bool IsBatchEnd(unsigned mark) {
    return mark % kMarks == kBatchEnd;
}

// Of a packet that begins so.
constexpr std::size_t PayloadSize(std::string_view packet, unsigned mark) {
    const std::size_t right = packet.empty() ? 0 : PayloadSize(packet.front());
    return right == 0 ? 0 : right - (mark % kMarks == kOneShort ? 1 : 0) + (mark % kMarks == kOneLong ? 1 : 0);
}

}  // namespace fuzz

#endif
