// What the communication manager is told: a code of a class, and the packet types wanted of it.
#ifndef TICKMUX_MODULE_WIRE_SUBSCRIPTION_RECORD_H
#define TICKMUX_MODULE_WIRE_SUBSCRIPTION_RECORD_H

#include <cstddef>
#include <cstdint>

#include "module/wire/little.h"

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

// The record has this form when it takes everything back.
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

#endif
