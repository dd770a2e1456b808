// The records of the packets target.
#ifndef TICKMUX_FUZZ_PACKET_RECORDS_H
#define TICKMUX_FUZZ_PACKET_RECORDS_H

#include <string>
#include <string_view>

#include "framework/packets.h"
#include "fuzz/input.h"

namespace fuzz {

template <class... Packets>
constexpr std::size_t SizeOf(char type) {
    return ((type == Packets::kType ? sizeof(Packets) : 0) + ...);
}

// 0 for an unknown type.
constexpr std::size_t PayloadSize(char type) {
    return SizeOf<TradePacket, BookPacket, BrokerPacket, BarPacket, IndexPacket, IndexBarPacket, MarketPacket,
                  NavPacket, CompactTradePacket, NewsPacket, OrderPacket, SpecialPacket>(type);
}

// A mark modulo kMarks; what is none of these means the right length.
inline constexpr unsigned kOneShort = 5;
inline constexpr unsigned kOneLong = 6;
inline constexpr unsigned kBatchEnd = 7;
inline constexpr unsigned kMarks = 8;

struct Record {
    unsigned Mark;
    char Type;
    std::size_t Size;  // of the payload that goes in
    std::string_view Payload;
};

inline bool IsBatchEnd(const Record& record) {
    return record.Mark % kMarks == kBatchEnd;
}

inline Record NextRecord(Input& in) {
    Record record{in.Byte(), '\0', 0, {}};
    if (IsBatchEnd(record)) {
        return record;
    }
    record.Type = static_cast<char>(in.Byte());
    if (const std::size_t size = PayloadSize(record.Type); size > 0) {
        const unsigned mark = record.Mark % kMarks;
        record.Size = mark == kOneShort ? size - 1 : mark == kOneLong ? size + 1 : size;
    }
    record.Payload = in.Take(record.Size);
    return record;
}

inline std::string PacketOf(const Record& record) {
    std::string packet = record.Type + std::string(record.Payload);
    packet.resize(1 + record.Size);
    return packet;
}

}  // namespace fuzz

#endif
