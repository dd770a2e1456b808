// Packets with plain defaults: a case names only what it is about.
#ifndef TICKMUX_TESTS_SUPPORT_PACKETS_H
#define TICKMUX_TESTS_SUPPORT_PACKETS_H

#include <algorithm>
#include <cstring>
#include <string>

#include "module/wire/packets.h"

// `text` at the left of a field, spaces behind.
template <std::size_t N>
void Fill(char (&field)[N], const std::string& text) {
    FillBlank(field);
    std::memcpy(field, text.data(), std::min(text.size(), N));
}

// A packet with a key or a code at its head: "1ASII" is the stock ASII on board 1. All else is blank.
template <class Packet>
class PacketBuilder {
public:
    explicit PacketBuilder(const std::string& key = "") {
        FillBlank(m_Packet);
        std::memcpy(&m_Packet, key.data(), key.size());
    }

    // The whole packet with its type byte.
    std::string Bytes() const {
        return Packet::kType + std::string(reinterpret_cast<const char*>(&m_Packet), sizeof(Packet));
    }

protected:
    Packet m_Packet;
};
template <class Packet>
using Coded = PacketBuilder<Packet>;

// Figures that several packets have.
template <class Builder, class Packet>
class Figures : public PacketBuilder<Packet> {
public:
    using PacketBuilder<Packet>::PacketBuilder;

    Builder& Time(const std::string& time) { return Fill(this->m_Packet.Time, time), Self(); }
    Builder& Price(int32_t price) { return this->m_Packet.Price = price, Self(); }
    Builder& Volume(int32_t volume) { return this->m_Packet.Volume = volume, Self(); }
    Builder& TotalVolume(int32_t volume) { return this->m_Packet.TotalVolume = volume, Self(); }
    Builder& Value(int64_t value) { return this->m_Packet.Value = value, Self(); }
    Builder& TotalValue(int64_t value) { return this->m_Packet.TotalValue = value, Self(); }
    Builder& Change(char sign, int32_t change) {
        return this->m_Packet.Sign = sign, this->m_Packet.Change = change, Self();
    }
    Builder& Day(int32_t open, int32_t high, int32_t low) {
        return this->m_Packet.Open = open, this->m_Packet.High = high, this->m_Packet.Low = low, Self();
    }

private:
    Builder& Self() { return static_cast<Builder&>(*this); }
};

class Trade : public Figures<Trade, TradePacket> {
public:
    explicit Trade(const std::string& key) : Figures(key) {
        Time("090000").Price(1000).Volume(1).Change('2', 10).Day(995, 1010, 990).Best(995, 1005);
        Totals(7, 100, 10000000).Lot(100).Brokers('D', 'D');
    }
    Trade& Best(int32_t side1, int32_t side2) {
        return m_Packet.Best1Price = side1, m_Packet.Best2Price = side2, *this;
    }
    Trade& Totals(int32_t trades, int32_t volume, int64_t value) {
        return m_Packet.TradeCount = trades, TotalVolume(volume).TotalValue(value);
    }
    Trade& Lot(int32_t size) { return m_Packet.LotSize = size, *this; }
    Trade& Brokers(char class1, char class2, const std::string& broker1 = "",
                   const std::string& broker2 = "") {
        m_Packet.Broker1Class = class1, m_Packet.Broker2Class = class2;
        return Fill(m_Packet.Broker1, broker1), Fill(m_Packet.Broker2, broker2), *this;
    }
    Trade& Ref(const std::string& ref) { return Fill(m_Packet.TradeRef, ref), *this; }
};

// A book whose first level alone is filled.
class Book : public PacketBuilder<BookPacket> {
public:
    explicit Book(const std::string& key) : PacketBuilder(key) {
        std::memset(m_Packet.Levels, 0, sizeof(m_Packet.Levels));
        Base(990).Level(0, 995, 10, 1005, 20).Totals(100, 200);
    }
    Book& Base(int32_t price) { return m_Packet.BasePrice = price, *this; }
    Book& Level(std::size_t number, int32_t price1, int32_t quantity1, int32_t price2, int32_t quantity2) {
        PacketLevel& level = m_Packet.Levels[number];
        level.Side1Price = price1, level.Side1Qty = quantity1;
        level.Side2Price = price2, level.Side2Qty = quantity2;
        return *this;
    }
    // Of the sides.
    Book& Totals(int32_t side1, int32_t side2) {
        return m_Packet.Side1Total = side1, m_Packet.Side2Total = side2, *this;
    }
    // One side: its first level and its total.
    Book& Side1(int32_t price, int32_t quantity, int32_t total) {
        const PacketLevel& level = m_Packet.Levels[0];
        return Level(0, price, quantity, level.Side2Price, level.Side2Qty).Totals(total, m_Packet.Side2Total);
    }
    Book& Side2(int32_t price, int32_t quantity, int32_t total) {
        const PacketLevel& level = m_Packet.Levels[0];
        return Level(0, level.Side1Price, level.Side1Qty, price, quantity).Totals(m_Packet.Side1Total, total);
    }
};

// A closed minute of a stock; open, high, low and close are one price until told otherwise.
class Bar : public Figures<Bar, BarPacket> {
public:
    Bar(const std::string& key, const std::string& time) : Figures(key) {
        Time(time).Volume(1).Prices(1000, 1000, 1000, 1000);
    }
    Bar& Prices(int32_t open, int32_t high, int32_t low, int32_t close) {
        return m_Packet.Close = close, Day(open, high, low);
    }
};

// Index values in ten-thousandths, as they travel.
class IndexUpdate : public Figures<IndexUpdate, IndexPacket> {
public:
    explicit IndexUpdate(const std::string& code) : Figures(code) {
        Time("090000").Index(70000000).Volume(1).TotalVolume(100).Value(0).Day(0, 0, 0);
        Change('2', 0).TotalValue(0).Counts(1, 2, 3, 4, 5);
    }
    IndexUpdate& Index(int32_t index) { return m_Packet.Index = index, *this; }
    IndexUpdate& Counts(int32_t first, int32_t second, int32_t third, int32_t fourth, int32_t fifth) {
        m_Packet.Count1 = first, m_Packet.Count2 = second, m_Packet.Count3 = third, m_Packet.Count4 = fourth;
        return m_Packet.Count5 = fifth, *this;
    }
};

class IndexBar : public Figures<IndexBar, IndexBarPacket> {
public:
    IndexBar(const std::string& code, const std::string& time, int32_t index, int32_t volume)
        : Figures(code) {
        m_Packet.Index = index;
        Time(time).Volume(volume);
    }
};

// Its key stands further behind.
class CompactTrade : public Figures<CompactTrade, CompactTradePacket> {
public:
    explicit CompactTrade(const std::string& key) {
        std::memcpy(&m_Packet.Key, key.data(), key.size());
        Time("090000").Price(1000).Change('2', 10).Volume(1);
    }
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
    Brokers(const std::string& key, const std::string& time) : PacketBuilder(key) {
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
    explicit Nav(const std::string& key) : PacketBuilder(key) { Kind("0"); }
    Nav& Kind(const std::string& kind) { return Fill(m_Packet.Kind, kind), *this; }
    Nav& Value1(const std::string& value) { return Fill(m_Packet.Value1, value), *this; }
    Nav& Value2(const std::string& value) { return Fill(m_Packet.Value2, value), *this; }
};

#endif
