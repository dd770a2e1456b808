// Packets with plain defaults: a case names only what it is about.
#ifndef TICKMUX_TESTS_SUPPORT_PACKETS_H
#define TICKMUX_TESTS_SUPPORT_PACKETS_H

#include <algorithm>
#include <cstring>
#include <string>

#include "framework/packets.h"

// "1ASII" is the stock ASII on board 1.
inline StockKey Key(const std::string& text) {
    StockKey key;
    FillBlank(key);
    std::memcpy(&key, text.data(), std::min(text.size(), sizeof(key)));
    return key;
}

// `text` at the left of a field, spaces behind.
template <std::size_t N>
void Fill(char (&field)[N], const std::string& text) {
    FillBlank(field);
    std::memcpy(field, text.data(), std::min(text.size(), N));
}

template <class Packet>
class PacketBuilder {
public:
    PacketBuilder() { FillBlank(m_Packet); }

    // The whole packet with its type byte.
    std::string Bytes() const {
        return Packet::kType + std::string(reinterpret_cast<const char*>(&m_Packet), sizeof(Packet));
    }

protected:
    Packet m_Packet;
};

class Trade : public PacketBuilder<TradePacket> {
public:
    explicit Trade(const std::string& key) {
        m_Packet.Key = ::Key(key);
        Time("090000").Price(1000).Volume(1).TotalVolume(100);
        m_Packet.Sign = '2';
        m_Packet.Change = 10;
        m_Packet.LotSize = 100;
    }
    Trade& Time(const std::string& time) { return Fill(m_Packet.Time, time), *this; }
    Trade& Price(int32_t price) { return m_Packet.Price = price, *this; }
    Trade& Volume(int32_t volume) { return m_Packet.Volume = volume, *this; }
    Trade& TotalVolume(int32_t volume) { return m_Packet.TotalVolume = volume, *this; }
    Trade& Value(int64_t value) { return m_Packet.Value = value, *this; }
};

class Nav : public PacketBuilder<NavPacket> {
public:
    explicit Nav(const std::string& key) {
        m_Packet.Key = ::Key(key);
        Kind("0");
    }
    Nav& Kind(const std::string& kind) { return Fill(m_Packet.Kind, kind), *this; }
    Nav& Value1(const std::string& value) { return Fill(m_Packet.Value1, value), *this; }
    Nav& Value2(const std::string& value) { return Fill(m_Packet.Value2, value), *this; }
};

#endif
