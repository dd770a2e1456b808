// Packets with plain defaults: a case names only what it is about.
#ifndef TICKMUX_TESTS_SUPPORT_PACKETS_H
#define TICKMUX_TESTS_SUPPORT_PACKETS_H

#include <algorithm>
#include <cstring>
#include <string>

#include "module/wire/packets.h"

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
        Change('2', 10)
            .Day(995, 1010, 990)
            .Best(995, 1005)
            .Totals(7, 100, 10000000)
            .Lot(100)
            .Brokers('D', 'D');
    }
    Trade& Time(const std::string& time) { return Fill(m_Packet.Time, time), *this; }
    Trade& Price(int32_t price) { return m_Packet.Price = price, *this; }
    Trade& Volume(int32_t volume) { return m_Packet.Volume = volume, *this; }
    Trade& TotalVolume(int32_t volume) { return m_Packet.TotalVolume = volume, *this; }
    Trade& Value(int64_t value) { return m_Packet.Value = value, *this; }
    Trade& Change(char sign, int32_t change) { return m_Packet.Sign = sign, m_Packet.Change = change, *this; }
    Trade& Day(int32_t open, int32_t high, int32_t low) {
        m_Packet.Open = open, m_Packet.High = high, m_Packet.Low = low;
        return *this;
    }
    Trade& Best(int32_t side1, int32_t side2) {
        m_Packet.Best1Price = side1, m_Packet.Best2Price = side2;
        return *this;
    }
    Trade& Totals(int32_t trades, int32_t volume, int64_t value) {
        m_Packet.TradeCount = trades;
        m_Packet.TotalValue = value;
        return TotalVolume(volume);
    }
    Trade& Lot(int32_t size) { return m_Packet.LotSize = size, *this; }
    Trade& Brokers(char class1, char class2, const std::string& broker1 = "",
                   const std::string& broker2 = "") {
        m_Packet.Broker1Class = class1, m_Packet.Broker2Class = class2;
        Fill(m_Packet.Broker1, broker1);
        Fill(m_Packet.Broker2, broker2);
        return *this;
    }
    Trade& Ref(const std::string& ref) { return Fill(m_Packet.TradeRef, ref), *this; }
};

// A book whose first level alone is filled.
class Book : public PacketBuilder<BookPacket> {
public:
    explicit Book(const std::string& key) {
        std::memset(m_Packet.Levels, 0, sizeof(m_Packet.Levels));
        m_Packet.Key = ::Key(key);
        Base(990).Side1(995, 10, 100).Side2(1005, 20, 200);
    }
    Book& Base(int32_t price) { return m_Packet.BasePrice = price, *this; }
    // A further level; a total is that of the side.
    Book& Level(std::size_t number, int32_t price1, int32_t quantity1, int32_t price2, int32_t quantity2) {
        PacketLevel& level = m_Packet.Levels[number];
        level.Side1Price = price1, level.Side1Qty = quantity1;
        level.Side2Price = price2, level.Side2Qty = quantity2;
        return *this;
    }
    Book& Totals(int32_t side1, int32_t side2) {
        return m_Packet.Side1Total = side1, m_Packet.Side2Total = side2, *this;
    }
    Book& Side1(int32_t price, int32_t quantity, int32_t total) {
        m_Packet.Levels[0].Side1Price = price, m_Packet.Levels[0].Side1Qty = quantity,
        m_Packet.Side1Total = total;
        return *this;
    }
    Book& Side2(int32_t price, int32_t quantity, int32_t total) {
        m_Packet.Levels[0].Side2Price = price, m_Packet.Levels[0].Side2Qty = quantity,
        m_Packet.Side2Total = total;
        return *this;
    }
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
        m_Packet.Open = open, m_Packet.High = high, m_Packet.Low = low, m_Packet.Close = close;
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
        Change('2', 0).TotalValue(0).Counts(1, 2, 3, 4, 5);
    }
    IndexUpdate& Change(char sign, int32_t change) {
        return m_Packet.Sign = sign, m_Packet.Change = change, *this;
    }
    IndexUpdate& TotalValue(int64_t value) { return m_Packet.TotalValue = value, *this; }
    IndexUpdate& Counts(int32_t first, int32_t second, int32_t third, int32_t fourth, int32_t fifth) {
        m_Packet.Count1 = first, m_Packet.Count2 = second, m_Packet.Count3 = third, m_Packet.Count4 = fourth,
        m_Packet.Count5 = fifth;
        return *this;
    }
    IndexUpdate& Time(const std::string& time) { return Fill(m_Packet.Time, time), *this; }
    IndexUpdate& Index(int32_t index) { return m_Packet.Index = index, *this; }
    IndexUpdate& Volume(int32_t volume) { return m_Packet.Volume = volume, *this; }
    IndexUpdate& TotalVolume(int32_t volume) { return m_Packet.TotalVolume = volume, *this; }
    IndexUpdate& Value(int64_t value) { return m_Packet.Value = value, *this; }
    IndexUpdate& Day(int32_t open, int32_t high, int32_t low) {
        m_Packet.Open = open, m_Packet.High = high, m_Packet.Low = low;
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

// A packet of which only the code at its head matters.
template <class Packet>
class Coded : public PacketBuilder<Packet> {
public:
    explicit Coded(const std::string& code) { std::memcpy(&this->m_Packet, code.data(), code.size()); }
};

class CompactTrade : public PacketBuilder<CompactTradePacket> {
public:
    explicit CompactTrade(const std::string& key) {
        m_Packet.Key = ::Key(key);
        Fill(m_Packet.Time, "090000");
        Price(1000).Change('2', 10).Volume(1);
    }
    CompactTrade& Price(int32_t price) { return m_Packet.Price = price, *this; }
    CompactTrade& Change(char sign, int32_t change) {
        return m_Packet.Sign = sign, m_Packet.Change = change, *this;
    }
    CompactTrade& Volume(int32_t volume) { return m_Packet.Volume = volume, *this; }
};

class News : public PacketBuilder<NewsPacket> {
public:
    explicit News(const std::string& category, const std::string& title = "Title") {
        m_Packet.NewsKind = 'K';
        Fill(m_Packet.Date, "20261120");
        Fill(m_Packet.Time, "090000");
        Fill(m_Packet.NewsRef1, "ref 1");
        Fill(m_Packet.NewsRef2, "ref 2");
        Fill(m_Packet.Category, category);
        Fill(m_Packet.Title, title + std::string(title.size() < sizeof(m_Packet.Title) ? 1 : 0, '\0'));
        Related("00");
    }
    News& Code(const std::string& code) { return Fill(m_Packet.Code, code), *this; }
    News& Related(const std::string& count) {
        std::memcpy(m_Packet.Title + sizeof(m_Packet.Title) - 2, count.data(), 2);
        return *this;
    }
};

// Ten rows of the same four texts.
class Brokers : public PacketBuilder<BrokerPacket> {
public:
    Brokers(const std::string& key, const std::string& time) {
        m_Packet.Key = ::Key(key);
        Fill(m_Packet.Time, time);
        for (BrokerRow& row : m_Packet.Rows) {
            Fill(row.Broker1, "AB");
            Fill(row.Qty1, "0000012345");
            Fill(row.Broker2, "WXYZ");
            Fill(row.Qty2, "678");
        }
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
