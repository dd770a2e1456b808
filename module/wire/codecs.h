// The field codecs: numbers to fixed-width text and back. None keeps state, allocates or looks at a locale.
//
// A writer fills exactly the width of its field and adds no end mark: right-aligned, spaces on the left. A
// number wider than its field keeps its first characters.
#ifndef TICKMUX_MODULE_WIRE_CODECS_H
#define TICKMUX_MODULE_WIRE_CODECS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

#include "module/wire/digits.h"

// ---- colours: the two characters beside a displayed number

// The direction of a sign char: +1 for '1' to '4', -1 for '5' to '8', else 0. Writes its colour to `dst`
// unless that is null.
inline int SignToColor(char* dst, char sign);

// Writes the colour of a direction: above 0 "1 ", below 0 "4 ", 0 "5 ".
inline void PutColor(char (&color)[2], int direction) {
    color[0] = "451"[(direction > 0) - (direction < 0) + 1];
    color[1] = ' ';
}

int SignToColor(char* dst, char sign) {
    const int direction = (sign >= '1' && sign <= '4') - (sign >= '5' && sign <= '8');
    if (dst != nullptr) {
        PutColor(*reinterpret_cast<char(*)[2]>(dst), direction);
    }
    return direction;
}

// The direction in which `value` lies from `base`.
template <class Number>
constexpr int DirectionFrom(Number base, Number value) {
    return static_cast<int>(value > base) - static_cast<int>(value < base);
}

// ---- text to numbers

// Leading white space, a sign, digits up to the first other character; 0 without digits. A number beyond the
// type's range gives the nearest end of the range, so that a large number stays large.
int32_t AsciiToLong(const char* src, int n);
int64_t AsciiToInt64(const char* src, int n);

// The number at the head of the text, in any form that strtod reads; 0.0 without one. A decimal point counts
// only if it stands in the text. 31 characters are read at the most.
double AsciiToDouble(const char* src, int n);
// This one reads a text of any length.
double TextToDouble(const char* src, int n);

// ---- numbers to text

void LongToAscii(int32_t value, char* dst, int len);
void Int64ToAscii(int64_t value, char* dst, int len);

// With `dec` decimals: the decimal text nearest to the exact binary value, and of two equally near ones the
// one with the even last digit. A negative value that rounds to zero keeps its sign.
void DoubleToAscii(double value, char* dst, int len, int dec);

// ---- text to text

// `src` at the right end of `dst`: spaces in front of a shorter one; a longer one loses its head. A zero byte
// in `src` ends the copying and zero bytes fill the rest.
void CopyRightAligned(char* dst, const char* src, int dstLen, int srcLen);

inline std::string_view WithoutBlanksBehind(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// ---- the ways beneath: a fast one for what fields commonly hold, inlined where the width is known, and the
// one for everything else

namespace codecs {

void PrintWide(int64_t value, char* dst, std::size_t len);
void PrintExactly(double value, char* dst, std::size_t len, int dec);
int32_t ReadAnyLong(const char* src, std::size_t n);

template <class Number, class Length>
void PrintInteger(Number value, char* dst, Length len) {
    if (!digits::PrintInteger(value, dst, len)) {
        PrintWide(value, dst, len);
    }
}

inline int32_t ReadLong(const char* src, std::size_t n) {
    uint64_t value = 0;
    if (n <= 2 * digits::kWord && digits::ReadPadded(digits::Padded16::Of(src, n), value)) {
        constexpr uint64_t kLargest = std::numeric_limits<int32_t>::max();
        return static_cast<int32_t>(std::min(value, kLargest));
    }
    return ReadAnyLong(src, n);
}

}  // namespace codecs

// ---- the same by array: the field tells its width

template <std::size_t N>
void Put(char (&dst)[N], int32_t value) {
    codecs::PrintInteger(value, dst, digits::Width<N>());
}

template <std::size_t N>
void Put(char (&dst)[N], int64_t value) {
    codecs::PrintInteger(value, dst, digits::Width<N>());
}

template <int Decimals, std::size_t N>
void Put(char (&dst)[N], double value) {
    if (!digits::PrintScaled<Decimals>(value, dst, digits::Width<N>())) {
        codecs::PrintExactly(value, dst, N, Decimals);
    }
}

template <std::size_t N>
void Put(char (&dst)[N], const char (&src)[N]) {
    std::memcpy(dst, src, N);
}

// Gives what CopyRightAligned gives.
template <std::size_t N, std::size_t M>
void PutRight(char (&dst)[N], const char (&src)[M]) {
    CopyRightAligned(dst, src, N, M);
}

template <std::size_t N>
int32_t ToLong(const char (&src)[N]) {
    return codecs::ReadLong(src, N);
}

template <std::size_t N>
double ToDouble(const char (&src)[N]) {
    return AsciiToDouble(src, N);
}

#endif
