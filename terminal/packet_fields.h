// The packets' fields by name, as their structs tell them.
#ifndef TICKMUX_TERMINAL_PACKET_FIELDS_H
#define TICKMUX_TERMINAL_PACKET_FIELDS_H

#include <string>
#include <string_view>
#include <vector>

#include "module/wire/packets.h"
#include "terminal/fields.h"

template <class Visitor>
void Describe(const TradePacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Reserved1", packet.Reserved1);
    visit("Time", packet.Time);
    visit("Sign", packet.Sign);
    visit("Broker1", packet.Broker1);
    visit("Broker1Class", packet.Broker1Class);
    visit("Broker2", packet.Broker2);
    visit("Broker2Class", packet.Broker2Class);
    visit("Reserved2", packet.Reserved2);
    visit("TradeRef", packet.TradeRef);
    visit("Price", packet.Price);
    visit("Change", packet.Change);
    visit("Open", packet.Open);
    visit("High", packet.High);
    visit("Low", packet.Low);
    visit("Best1Price", packet.Best1Price);
    visit("Best2Price", packet.Best2Price);
    visit("TradeCount", packet.TradeCount);
    visit("Volume", packet.Volume);
    visit("TotalVolume", packet.TotalVolume);
    visit("Value", packet.Value);
    visit("TotalValue", packet.TotalValue);
    visit("LotSize", packet.LotSize);
}

template <class Visitor>
void Describe(const PacketLevel& level, Visitor&& visit) {
    visit("Side1Price", level.Side1Price);
    visit("Side1Qty", level.Side1Qty);
    visit("Side2Price", level.Side2Price);
    visit("Side2Qty", level.Side2Qty);
}

template <class Visitor>
void Describe(const BookPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Reserved1", packet.Reserved1);
    visit("BasePrice", packet.BasePrice);
    visit("Levels", packet.Levels);
    visit("Side1Total", packet.Side1Total);
    visit("Side2Total", packet.Side2Total);
}

template <class Visitor>
void Describe(const BrokerRow& row, Visitor&& visit) {
    visit("Broker1", row.Broker1);
    visit("Qty1", row.Qty1);
    visit("Broker2", row.Broker2);
    visit("Qty2", row.Qty2);
}

template <class Visitor>
void Describe(const BrokerPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Time", packet.Time);
    visit("Reserved1", packet.Reserved1);
    visit("Rows", packet.Rows);
}

template <class Visitor>
void Describe(const BarPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Reserved1", packet.Reserved1);
    visit("Time", packet.Time);
    visit("Reserved2", packet.Reserved2);
    visit("Open", packet.Open);
    visit("High", packet.High);
    visit("Low", packet.Low);
    visit("Close", packet.Close);
    visit("Volume", packet.Volume);
    visit("Reserved3", packet.Reserved3);
}

template <class Visitor>
void Describe(const IndexPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Time", packet.Time);
    visit("Sign", packet.Sign);
    visit("Reserved1", packet.Reserved1);
    visit("Index", packet.Index);
    visit("Change", packet.Change);
    visit("Reserved2", packet.Reserved2);
    visit("Volume", packet.Volume);
    visit("Value", packet.Value);
    visit("Count5", packet.Count5);
    visit("TotalVolume", packet.TotalVolume);
    visit("TotalValue", packet.TotalValue);
    visit("Count2", packet.Count2);
    visit("Count1", packet.Count1);
    visit("Count3", packet.Count3);
    visit("Count4", packet.Count4);
    visit("Open", packet.Open);
    visit("High", packet.High);
    visit("Low", packet.Low);
}

template <class Visitor>
void Describe(const IndexBarPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Time", packet.Time);
    visit("Reserved1", packet.Reserved1);
    visit("Index", packet.Index);
    visit("Volume", packet.Volume);
    visit("Reserved2", packet.Reserved2);
}

template <class Visitor>
void Describe(const MarketPacket& packet, Visitor&& visit) {
    visit("Code", packet.Code);
    visit("Reserved1", packet.Reserved1);
}

template <class Visitor>
void Describe(const NavPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Reserved1", packet.Reserved1);
    visit("Kind", packet.Kind);
    visit("Value1", packet.Value1);
    visit("Reserved2", packet.Reserved2);
    visit("Value2", packet.Value2);
    visit("Reserved3", packet.Reserved3);
}

template <class Visitor>
void Describe(const NewsPacket& packet, Visitor&& visit) {
    visit("NewsKind", packet.NewsKind);
    visit("Date", packet.Date);
    visit("Time", packet.Time);
    visit("NewsRef2", packet.NewsRef2);
    visit("Reserved1", packet.Reserved1);
    visit("Category", packet.Category);
    visit("NewsRef1", packet.NewsRef1);
    visit("Code", packet.Code);
    visit("Title", packet.Title);
}

template <class Visitor>
void Describe(const OrderPacket& packet, Visitor&& visit) {
    visit("Time", packet.Time);
    visit("Reserved1", packet.Reserved1);
    visit("RecordKind", packet.RecordKind);
    visit("NoticeKind", packet.NoticeKind);
    visit("OrderAction", packet.OrderAction);
    visit("OrderState", packet.OrderState);
    visit("ResultFlag", packet.ResultFlag);
    visit("Reserved2", packet.Reserved2);
    visit("UserField", packet.UserField);
    visit("OrderNo", packet.OrderNo);
    visit("ParentOrderNo", packet.ParentOrderNo);
    visit("Code", packet.Code);
    visit("Side", packet.Side);
    visit("Quantity", packet.Quantity);
    visit("Price", packet.Price);
    visit("Reserved3", packet.Reserved3);
    visit("Name", packet.Name);
    visit("Reserved4", packet.Reserved4);
    visit("GroupCode", packet.GroupCode);
    visit("Reserved5", packet.Reserved5);
    visit("ChannelCode", packet.ChannelCode);
    visit("UserId", packet.UserId);
    visit("Reserved6", packet.Reserved6);
    visit("DisplayText", packet.DisplayText);
    visit("BoardName", packet.BoardName);
    visit("LotSize", packet.LotSize);
    visit("Reserved7", packet.Reserved7);
}

template <class Visitor>
void Describe(const SpecialPacket& packet, Visitor&& visit) {
    visit("Code", packet.Code);
    visit("Reserved1", packet.Reserved1);
}

namespace tools {

// What the pass-through lets through: whole packets, the type byte first.
const std::vector<LayoutTable>& PassedPackets();

// "Name=value" of a packet's fields, reserved ones only if they hold something: lines of one width, and one
// for each of its rows. The layout is one of PassedPackets.
std::string PacketLines(const LayoutTable& layout, std::string_view packet);

}  // namespace tools

#endif
