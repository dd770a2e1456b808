// Subscription requests: how a decoder asks the terminal's communication manager for packets of a code.
//
// Nothing is counted here: two decoders that want one code send two requests, and the communication manager
// does the counting.
#ifndef TICKMUX_FRAMEWORK_SUBSCRIPTION_H
#define TICKMUX_FRAMEWORK_SUBSCRIPTION_H

#include <cstdint>
#include <utility>

#include "framework/little.h"
#include "framework/shapes.h"

// What travels to the communication manager in a WM_COPYDATA.
struct tagRTMTRSTCDINFO {
    Little<int32_t> nOperation;  // kAddCode, kDeleteCode
    char chClass;
    char szCode[11];  // the code, spaces behind
    Little<int32_t> nCodeLen;
    Little<uint32_t> dwFlags;  // one bit per wanted packet type
};
static_assert(sizeof(tagRTMTRSTCDINFO) == 24 && alignof(tagRTMTRSTCDINFO) == 1);
static_assert(offsetof(tagRTMTRSTCDINFO, szCode) == 5 && offsetof(tagRTMTRSTCDINFO, nCodeLen) == 16);

// The same record when it takes everything back.
struct CancelRecord {
    Little<int32_t> nOperation;  // kCancelAll
    char chClass;                // not set
    char HashUserID[19];
};
static_assert(sizeof(CancelRecord) == sizeof(tagRTMTRSTCDINFO));

inline constexpr int32_t kAddCode = 0;
inline constexpr int32_t kDeleteCode = 1;
inline constexpr int32_t kCancelAll = 2;

// A class of codes, and the flag of each packet type that can be asked for in it. Flags of one class join.
//
//   class  code                   flags
//   '1'    stock key, 11 bytes    A  C  B  D
//   'A'    index key, 4           E  F
//   'M'    five characters        M
//   'N'    stock key, 11          N
//   '@'    eleven characters      @
inline constexpr char kStockClass = '1';
inline constexpr uint32_t kWantTrades = 0x80000000;
inline constexpr uint32_t kWantBrokers = 0x40000000;
inline constexpr uint32_t kWantBook = 0x20000000;
inline constexpr uint32_t kWantBars = 0x10000000;

inline constexpr char kIndexClass = 'A';
inline constexpr uint32_t kWantIndex = 0x08000000;
inline constexpr uint32_t kWantIndexBars = 0x04000000;

inline constexpr char kMarketClass = 'M';
inline constexpr uint32_t kWantMarket = 0x08000000;

inline constexpr char kFundClass = 'N';
inline constexpr uint32_t kWantFund = 0x80000000;

inline constexpr char kSpecialClass = '@';
inline constexpr uint32_t kWantSpecial = 0x80000000;

// Ask for a code, or no longer. A code of spaces sends nothing. Gives 1 if a request went out.
int AddTrStcd(const char* code, int codeLen, char chClass, uint32_t flags);
int DelTrStcd(const char* code, int codeLen, char chClass, uint32_t flags);

// Requests of one class and set of packet types.
template <class Key, char Class, uint32_t Flags>
struct Subscription {
    static void Add(const Key& key) { AddTrStcd(Bytes(key), sizeof(Key), Class, Flags); }
    static void Delete(const Key& key) { DelTrStcd(Bytes(key), sizeof(Key), Class, Flags); }

    // The new code is asked for before the former one is given up, so that one that stays is never off.
    static void Move(const Key& former, const Key& next) {
        Add(next);
        Delete(former);
    }

private:
    static const char* Bytes(const Key& key) { return reinterpret_cast<const char*>(&key); }
};

// The one code that a decoder follows. Blank: none.
template <class Key, char Class, uint32_t Flags>
class FollowedCode {
public:
    // The filter keeps to the key.
    explicit FollowedCode(KeyFilter& filter) : m_Filter(filter) { Take(Blank()); }

    const Key& Get() const { return m_Key; }

    void MoveTo(const Key& next) { MoveFrom(Take(next)); }

    // The same in two steps: the key first, and the requests when the rest is ready. Take gives the former
    // key.
    Key Take(const Key& next) {
        m_Filter.Set(next);
        return std::exchange(m_Key, next);
    }
    void MoveFrom(const Key& former) { Subscription<Key, Class, Flags>::Move(former, m_Key); }

    // Blank before the request goes out: whoever hears of it may call back and bring another key.
    void GiveUp() { Subscription<Key, Class, Flags>::Delete(Take(Blank())); }
    // Blank, and the code stays asked for.
    void Forget() { Take(Blank()); }

private:
    static Key Blank() {
        Key key;
        FillBlank(key);
        return key;
    }

    Key m_Key;
    KeyFilter& m_Filter;
};

#endif
