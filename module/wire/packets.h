// The real-time packets, as they enter behind their type byte.
//
// A packet has no header besides its type char, no terminator and no checksum; one whose payload is not
// exactly its struct's size is dropped. Texts are space-padded and not ended. Sign chars: '1' to '4' a rise,
// '5' to '8' a fall, anything else no change. Times are HHMMSS. Stock prices are whole numbers; index values
// and changes stand for the value times 10000.
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

// Ten price levels on each side of a stock's book.
struct PacketLevel {
    Little<int32_t> Side1Price;
    Little<int32_t> Side1Qty;
    Little<int32_t> Side2Price;
    Little<int32_t> Side2Qty;
};
static_assert(sizeof(PacketLevel) == 16);

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

// Ten rows of broker totals for a stock.
struct BrokerRow {
    char Broker1[4];
    char Qty1[10];
    char Broker2[4];
    char Qty2[10];
};
static_assert(sizeof(BrokerRow) == 28);

struct BrokerPacket {
    static constexpr char kType = 'C';

    StockKey Key;
    char Time[6];
    char Reserved1[3];
    BrokerRow Rows[10];
};
static_assert(sizeof(BrokerPacket) == 300 && alignof(BrokerPacket) == 1);
static_assert(offsetof(BrokerPacket, Rows) == 20);

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

// Carried through only.
struct MarketPacket {
    static constexpr char kType = 'M';

    char Code[5];
    char Reserved1[34];
};
static_assert(sizeof(MarketPacket) == 39);

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

// One order notice.
struct OrderPacket {
    static constexpr char kType = '0';

    char Time[6];
    char Reserved1[3];
    char RecordKind[2];  // "01", or the notice is ignored
    char NoticeKind;     // '1' sending, '2' answer
    char OrderAction;    // '1' new order, '2' amendment, '3' cancellation, '4' closing cancellation
    char OrderState;     // '0' acceptance, '1' fill, '2' confirmation
    char ResultFlag;     // '0' normal, '1' refused
    char Reserved2[6];
    char UserField[6];
    char OrderNo[7];
    char ParentOrderNo[7];  // the order that this one amends or cancels
    char Code[12];
    char Side;  // '1' or '2'
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

// Carried through only.
struct SpecialPacket {
    static constexpr char kType = '@';

    char Code[11];
    char Reserved1[166];
};
static_assert(sizeof(SpecialPacket) == 177);

#endif
