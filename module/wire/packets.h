// The real-time packets, as they enter behind their type byte.
//
// A packet has no header besides its type char, no terminator and no checksum; one whose payload is not
// exactly its struct's size is dropped. Texts are space-padded and not ended. Sign chars: '1' to '4' a rise,
// '5' to '8' a fall, anything else no change. Times are HHMMSS. Stock prices are whole numbers; index values
// and changes stand for the value times 10000. A packet describes itself: Describe(packet, visit) calls
// visit(name, member) for each field in order.
#ifndef TICKMUX_MODULE_WIRE_PACKETS_H
#define TICKMUX_MODULE_WIRE_PACKETS_H

#include <cstddef>
#include <cstdint>

#include "module/wire/little.h"
#include "module/wire/shapes.h"

inline constexpr char kFirstPacketType = '!';
inline constexpr char kLastPacketType = 'z';
inline constexpr int kPacketTypes = kLastPacketType - kFirstPacketType + 1;
static_assert(kPacketTypes == 90);

constexpr bool IsPacketType(char type) {
    return type >= kFirstPacketType && type <= kLastPacketType;
}

constexpr std::size_t TypeIndex(char type) {
    return static_cast<std::size_t>(type - kFirstPacketType);
}

// One stock trade, with the day's running figures.
struct TradePacket {
    static constexpr char kType = 'A';

    StockKey Key;
    char Reserved1;
    char Time[6];
    char Sign;  // direction of Change
    char Broker1[4];
    char Broker1Class;  // 'D' or 'F'
    char Broker2[4];
    char Broker2Class;  // 'D' or 'F'
    char Reserved2[3];
    char TradeRef[8];
    Little<int32_t> Price;
    Little<int32_t> Change;  // distance from the base price, as a magnitude
    Little<int32_t> Open;
    Little<int32_t> High;
    Little<int32_t> Low;
    Little<int32_t> Best1Price;  // level 0 of the book's side 1
    Little<int32_t> Best2Price;  // level 0 of the book's side 2
    Little<int32_t> TradeCount;  // of the day
    Little<int32_t> Volume;      // of this trade; 0 is no trade
    Little<int32_t> TotalVolume;
    Little<int64_t> Value;  // of this trade
    Little<int64_t> TotalValue;
    Little<int32_t> LotSize;  // shares in one unit of Volume
};
static_assert(sizeof(TradePacket) == 100 && alignof(TradePacket) == 1);
static_assert(offsetof(TradePacket, Time) == 12 && offsetof(TradePacket, TradeRef) == 32 &&
              offsetof(TradePacket, Price) == 40 && offsetof(TradePacket, Value) == 80 &&
              offsetof(TradePacket, LotSize) == 96);

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

// Ten price levels on each side of a stock's book.
struct PacketLevel {
    Little<int32_t> Side1Price;
    Little<int32_t> Side1Qty;
    Little<int32_t> Side2Price;
    Little<int32_t> Side2Qty;
};
static_assert(sizeof(PacketLevel) == 16);

template <class Visitor>
void Describe(const PacketLevel& level, Visitor&& visit) {
    visit("Side1Price", level.Side1Price);
    visit("Side1Qty", level.Side1Qty);
    visit("Side2Price", level.Side2Price);
    visit("Side2Qty", level.Side2Qty);
}

struct BookPacket {
    static constexpr char kType = 'B';

    StockKey Key;
    char Reserved1[9];
    Little<int32_t> BasePrice;  // base of the rates
    PacketLevel Levels[10];     // best first
    Little<int32_t> Side1Total;
    Little<int32_t> Side2Total;
};
static_assert(sizeof(BookPacket) == 192 && alignof(BookPacket) == 1);
static_assert(offsetof(BookPacket, Levels) == 24 && offsetof(BookPacket, Side1Total) == 184);

template <class Visitor>
void Describe(const BookPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Reserved1", packet.Reserved1);
    visit("BasePrice", packet.BasePrice);
    visit("Levels", packet.Levels);
    visit("Side1Total", packet.Side1Total);
    visit("Side2Total", packet.Side2Total);
}

// Ten rows of broker totals for a stock.
struct BrokerRow {
    char Broker1[4];
    char Qty1[10];
    char Broker2[4];
    char Qty2[10];
};
static_assert(sizeof(BrokerRow) == 28);

template <class Visitor>
void Describe(const BrokerRow& row, Visitor&& visit) {
    visit("Broker1", row.Broker1);
    visit("Qty1", row.Qty1);
    visit("Broker2", row.Broker2);
    visit("Qty2", row.Qty2);
}

struct BrokerPacket {
    static constexpr char kType = 'C';

    StockKey Key;
    char Time[6];
    char Reserved1[3];
    BrokerRow Rows[10];
};
static_assert(sizeof(BrokerPacket) == 300 && alignof(BrokerPacket) == 1);
static_assert(offsetof(BrokerPacket, Rows) == 20);

template <class Visitor>
void Describe(const BrokerPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Time", packet.Time);
    visit("Reserved1", packet.Reserved1);
    visit("Rows", packet.Rows);
}

// One closed minute bar of a stock.
struct BarPacket {
    static constexpr char kType = 'D';

    StockKey Key;
    char Reserved1;
    char Time[6];  // minutes and seconds pick the bars that close a longer period
    char Reserved2[2];
    Little<int32_t> Open;
    Little<int32_t> High;
    Little<int32_t> Low;
    Little<int32_t> Close;
    Little<int32_t> Volume;
    char Reserved3[12];
};
static_assert(sizeof(BarPacket) == 52 && alignof(BarPacket) == 1);
static_assert(offsetof(BarPacket, Time) == 12 && offsetof(BarPacket, Open) == 20 &&
              offsetof(BarPacket, Volume) == 36);

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

inline constexpr double kIndexScale = 10000.0;

// One index update, with the day's running figures.
struct IndexPacket {
    static constexpr char kType = 'E';

    IndexKey Key;
    char Time[6];
    char Sign;  // direction of Change
    char Reserved1;
    Little<int32_t> Index;   // scaled
    Little<int32_t> Change;  // scaled; distance from the base value, as a magnitude
    char Reserved2[4];
    Little<int32_t> Volume;  // since the last update
    Little<int64_t> Value;   // since the last update
    Little<int32_t> Count5;
    Little<int32_t> TotalVolume;
    Little<int64_t> TotalValue;
    Little<int32_t> Count2;
    Little<int32_t> Count1;
    Little<int32_t> Count3;
    Little<int32_t> Count4;
    Little<int32_t> Open;  // scaled
    Little<int32_t> High;  // scaled
    Little<int32_t> Low;   // scaled
};
static_assert(sizeof(IndexPacket) == 80 && alignof(IndexPacket) == 1);
static_assert(offsetof(IndexPacket, Index) == 12 && offsetof(IndexPacket, Volume) == 24 &&
              offsetof(IndexPacket, TotalValue) == 44 && offsetof(IndexPacket, Open) == 68);

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

// One closed minute bar of an index.
struct IndexBarPacket {
    static constexpr char kType = 'F';

    IndexKey Key;
    char Time[6];
    char Reserved1[2];
    Little<int32_t> Index;  // scaled; closing value
    Little<int32_t> Volume;
    char Reserved2[4];
};
static_assert(sizeof(IndexBarPacket) == 24 && alignof(IndexBarPacket) == 1);
static_assert(offsetof(IndexBarPacket, Index) == 12);

template <class Visitor>
void Describe(const IndexBarPacket& packet, Visitor&& visit) {
    visit("Key", packet.Key);
    visit("Time", packet.Time);
    visit("Reserved1", packet.Reserved1);
    visit("Index", packet.Index);
    visit("Volume", packet.Volume);
    visit("Reserved2", packet.Reserved2);
}

// Carried through only.
struct MarketPacket {
    static constexpr char kType = 'M';

    char Code[5];
    char Reserved1[34];
};
static_assert(sizeof(MarketPacket) == 39);

template <class Visitor>
void Describe(const MarketPacket& packet, Visitor&& visit) {
    visit("Code", packet.Code);
    visit("Reserved1", packet.Reserved1);
}

// Values of a fund.
struct NavPacket {
    static constexpr char kType = 'N';

    StockKey Key;
    char Reserved1;
    char Kind[10];  // digits; 0 or 1
    char Value1[22];
    char Reserved2[22];
    char Value2[22];  // for Kind 1
    char Reserved3[22];
};
static_assert(sizeof(NavPacket) == 110 && alignof(NavPacket) == 1);
static_assert(offsetof(NavPacket, Kind) == 12 && offsetof(NavPacket, Value1) == 22 &&
              offsetof(NavPacket, Value2) == 66);

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

// One trade of the market-wide feed, in compact form.
struct CompactTradePacket {
    static constexpr char kType = 'R';

    char Time[6];
    StockKey Key;
    char Broker1[4];
    char Broker1Class;
    char Broker2[4];
    char Broker2Class;
    Little<int32_t> Price;
    char Sign;
    Little<int32_t> Change;
    Little<int32_t> Volume;
};
static_assert(sizeof(CompactTradePacket) == 40 && alignof(CompactTradePacket) == 1);
static_assert(offsetof(CompactTradePacket, Key) == 6 && offsetof(CompactTradePacket, Price) == 27 &&
              offsetof(CompactTradePacket, Change) == 32);

template <class Visitor>
void Describe(const CompactTradePacket& packet, Visitor&& visit) {
    visit("Time", packet.Time);
    visit("Key", packet.Key);
    visit("Broker1", packet.Broker1);
    visit("Broker1Class", packet.Broker1Class);
    visit("Broker2", packet.Broker2);
    visit("Broker2Class", packet.Broker2Class);
    visit("Price", packet.Price);
    visit("Sign", packet.Sign);
    visit("Change", packet.Change);
    visit("Volume", packet.Volume);
}

// One news headline.
struct NewsPacket {
    static constexpr char kType = 'T';

    char NewsKind;
    char Date[8];
    char Time[6];
    char NewsRef2[6];
    char Reserved1[2];
    char Category[2];  // the first selects, the pair labels
    char NewsRef1[10];
    char Code[10];   // spaces if the headline concerns no one code
    char Title[80];  // a shorter one ends at a zero byte

    // The last two bytes of the title's field, as digits: how many 6-byte entries follow the packet. A packet
    // of the right length therefore has 0 there.
    const char* RelatedCount() const { return Title + sizeof(Title) - kRelatedCountWidth; }
    static constexpr int kRelatedCountWidth = 2;
};
static_assert(sizeof(NewsPacket) == 125 && alignof(NewsPacket) == 1);
static_assert(offsetof(NewsPacket, Category) == 23 && offsetof(NewsPacket, Title) == 45);

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

// What an order notice tells of itself, in the fields of these names.
enum NoticeKind : char { kSendingNotice = '1', kAnswer = '2' };
enum OrderAction : char {
    kNewOrder = '1',
    kAmendment = '2',
    kCancellation = '3',
    kClosing = '4',  // a cancellation that closes an order by itself
};
enum OrderState : char { kAcceptance = '0', kFill = '1', kConfirmation = '2' };
enum ResultFlag : char { kNormal = '0', kRefused = '1' };
enum Side : char { kSide1 = '1', kSide2 = '2' };

// One order notice.
struct OrderPacket {
    static constexpr char kType = '0';

    char Time[6];
    char Reserved1[3];
    char RecordKind[2];  // "01", or the notice is ignored
    char NoticeKind;
    char OrderAction;
    char OrderState;
    char ResultFlag;
    char Reserved2[6];
    char UserField[6];
    char OrderNo[7];
    char ParentOrderNo[7];  // the order that this one amends or cancels
    char Code[12];
    char Side;
    char Quantity[11];
    char Price[9];  // order price; fill price on fills
    char Reserved3[6];
    char Name[30];
    char Reserved4[2];
    char GroupCode[8];
    char Reserved5[74];
    char ChannelCode[2];
    char UserId[20];
    char Reserved6[37];
    char DisplayText[12];
    char BoardName[5];
    char LotSize[5];
    char Reserved7[25];
};
static_assert(sizeof(OrderPacket) == 300 && alignof(OrderPacket) == 1);
static_assert(offsetof(OrderPacket, UserField) == 21 && offsetof(OrderPacket, Side) == 53 &&
              offsetof(OrderPacket, GroupCode) == 112 && offsetof(OrderPacket, UserId) == 196 &&
              offsetof(OrderPacket, DisplayText) == 253 && offsetof(OrderPacket, LotSize) == 270);

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

// Carried through only.
struct SpecialPacket {
    static constexpr char kType = '@';

    char Code[11];
    char Reserved1[166];
};
static_assert(sizeof(SpecialPacket) == 177);

template <class Visitor>
void Describe(const SpecialPacket& packet, Visitor&& visit) {
    visit("Code", packet.Code);
    visit("Reserved1", packet.Reserved1);
}

#endif
