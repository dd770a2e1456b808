// Shapes that packets, Init texts and display buffers have in common. All are plain bytes, alignment 1.
//
// A shape describes itself: Describe(shape, visit) calls visit(name, member) for each field in order.
#ifndef TICKMUX_MODULE_WIRE_SHAPES_H
#define TICKMUX_MODULE_WIRE_SHAPES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

// True if all bytes are spaces: an empty field or key.
template <class Bytes>
bool IsBlank(const Bytes& bytes) {
    static_assert(alignof(Bytes) == 1);
    const char* text = reinterpret_cast<const char*>(&bytes);
    return text[0] == ' ' && std::memcmp(text, text + 1, sizeof(Bytes) - 1) == 0;
}

template <class Bytes>
void FillBlank(Bytes& bytes) {
    static_assert(alignof(Bytes) == 1);
    std::memset(&bytes, ' ', sizeof(Bytes));
}

// The first bytes of something, as many as fit, in one word.
template <class Bytes>
uint64_t HeadOf(const Bytes& bytes) {
    uint64_t word = 0;
    std::memcpy(&word, &bytes, std::min(sizeof(word), sizeof(Bytes)));
    return word;
}

// The last ones, which for a short one are the same.
template <class Bytes>
uint64_t TailOf(const Bytes& bytes) {
    uint64_t word = 0;
    constexpr std::size_t kSize = std::min(sizeof(word), sizeof(Bytes));
    std::memcpy(&word, reinterpret_cast<const char*>(&bytes) + sizeof(Bytes) - kSize, kSize);
    return word;
}

// Equality of up to 16 bytes, without a call.
template <class Bytes>
bool SameBytes(const Bytes& one, const Bytes& other) {
    static_assert(alignof(Bytes) == 1);
    static_assert(sizeof(Bytes) <= 2 * sizeof(uint64_t));
    if constexpr (sizeof(Bytes) <= sizeof(uint64_t)) {
        return HeadOf(one) == HeadOf(other);
    } else {
        return ((HeadOf(one) ^ HeadOf(other)) | (TailOf(one) ^ TailOf(other))) == 0;
    }
}

// A stock: board char and code, spaces behind.
struct StockKey {
    char Board;
    char Code[10];

    bool operator==(const StockKey& other) const { return SameBytes(*this, other); }
};
static_assert(sizeof(StockKey) == 11 && alignof(StockKey) == 1);

// A stock on whatever board.
struct StockCode {
    char Text[10];
};
static_assert(sizeof(StockCode) == sizeof(StockKey::Code));

inline const StockCode& CodeOf(const StockKey& key) {
    return reinterpret_cast<const StockCode&>(key.Code);
}

template <class Visitor>
void Describe(const StockKey& key, Visitor&& visit) {
    visit("Board", key.Board);
    visit("Code", key.Code);
}

// The key of an index.
struct IndexKey {
    char IndexCode[4];

    bool operator==(const IndexKey& other) const { return SameBytes(*this, other); }
};
static_assert(sizeof(IndexKey) == 4);

template <class Visitor>
void Describe(const IndexKey& key, Visitor&& visit) {
    visit("IndexCode", key.IndexCode);
}

// The first two bytes of an Init text, opaque; every buffer to the view begins with them.
struct RequestTag {
    char Bytes[2];
};
static_assert(sizeof(RequestTag) == 2);

// In front of a list: how many items, and how long each is, as digits.
struct RepeatHead {
    char Count[4];
    char Size[4];
    char Reserved[16];
};
static_assert(sizeof(RepeatHead) == 24);

template <class Visitor>
void Describe(const RepeatHead& head, Visitor&& visit) {
    visit("Count", head.Count);
    visit("Size", head.Size);
}

// What tick and candle screens keep in front of their rows. It comes with the Init text and goes out with
// every buffer; reserved bytes are the screen's own and pass through.
struct DisplayHead {
    char Period;     // 'A' for a tick list
    char RowAction;  // kUpdateRow or kAppendRow
    char Reserved1;
    char Price[12];  // current price or index value
    char Reserved2[12];
    char Quantity[15];  // total of the day
    char Reserved3[44];
};
static_assert(sizeof(DisplayHead) == 86 && alignof(DisplayHead) == 1);
static_assert(offsetof(DisplayHead, Price) == 3 && offsetof(DisplayHead, Quantity) == 27);

inline constexpr char kTickList = 'A';   // DisplayHead::Period
inline constexpr char kUpdateRow = '1';  // DisplayHead::RowAction: the row replaces the newest one
inline constexpr char kAppendRow = '2';  // DisplayHead::RowAction: the row opens a new one

template <class Visitor>
void Describe(const DisplayHead& head, Visitor&& visit) {
    visit("Period", head.Period);
    visit("RowAction", head.RowAction);
    visit("Reserved1", head.Reserved1);
    visit("Price", head.Price);
    visit("Reserved2", head.Reserved2);
    visit("Quantity", head.Quantity);
    visit("Reserved3", head.Reserved3);
}

// The front of a buffer of rows behind a display head; the rows follow.
struct HeadedRows {
    RequestTag Tag;
    DisplayHead Head;
    RepeatHead Repeat;
};
static_assert(sizeof(HeadedRows) == 112 && offsetof(HeadedRows, Repeat) == 88);

template <class Visitor>
void Describe(const HeadedRows& front, Visitor&& visit) {
    visit("Head", front.Head);
    visit("Repeat", front.Repeat);
}

// The front of a buffer of rows without a display head; the rows follow.
struct PlainRows {
    RequestTag Tag;
    RepeatHead Repeat;
};
static_assert(sizeof(PlainRows) == 26);

template <class Visitor>
void Describe(const PlainRows& front, Visitor&& visit) {
    visit("Repeat", front.Repeat);
}

#endif
