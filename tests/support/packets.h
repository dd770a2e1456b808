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

// A closed minute of a stock; open, high, low and close are one price until told otherwise.
class Bar : public PacketBuilder<BarPacket> {
public:
    Bar(const std::string& key, const std::string& time) {
        m_Packet.Key = ::Key(key);
        Fill(m_Packet.Time, time);
        Prices(1000, 1000, 1000, 1000).Volume(1);
    }
    Bar& Prices(int32_t open, int32_t high, int32_t low, int32_t close) {
        m_Packet.Open = open;
        m_Packet.High = high;
        m_Packet.Low = low;
        m_Packet.Close = close;
        return *this;
    }
    Bar& Volume(int32_t volume) { return m_Packet.Volume = volume, *this; }
};

// Index values in ten-thousandths, as they travel.
class IndexUpdate : public PacketBuilder<IndexPacket> {
public:
    explicit IndexUpdate(const std::string& code) {
        Fill(m_Packet.Key.IndexCode, code);
        Time("090000").Index(70000000).Volume(1).TotalVolume(100).Value(0).Day(0, 0, 0);
        m_Packet.Sign = '2';
    }
    IndexUpdate& Time(const std::string& time) { return Fill(m_Packet.Time, time), *this; }
    IndexUpdate& Index(int32_t index) { return m_Packet.Index = index, *this; }
    IndexUpdate& Volume(int32_t volume) { return m_Packet.Volume = volume, *this; }
    IndexUpdate& TotalVolume(int32_t volume) { return m_Packet.TotalVolume = volume, *this; }
    IndexUpdate& Value(int64_t value) { return m_Packet.Value = value, *this; }
    IndexUpdate& Day(int32_t open, int32_t high, int32_t low) {
        m_Packet.Open = open;
        m_Packet.High = high;
        m_Packet.Low = low;
        return *this;
    }
};

class IndexBar : public PacketBuilder<IndexBarPacket> {
public:
    IndexBar(const std::string& code, const std::string& time, int32_t index, int32_t volume) {
        Fill(m_Packet.Key.IndexCode, code);
        Fill(m_Packet.Time, time);
        m_Packet.Index = index;
        m_Packet.Volume = volume;
    }
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
