#include "module/wire/codecs.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <system_error>

namespace {

bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

const char* SkipSpaces(const char* at, const char* end) {
    return std::find_if_not(at, end, IsSpace);
}

// A number of either width is read as a magnitude that stops growing beyond what any sign allows.
template <class Number>
Number ReadInteger(const char* src, int n) {
    constexpr uint64_t kLargest = std::numeric_limits<Number>::max();
    const char* const end = src + n;
    const char* at = SkipSpaces(src, end);
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) {
        ++at;
    }
    uint64_t magnitude = 0;
    for (; at != end && IsDigit(*at); ++at) {
        const auto digit = static_cast<uint64_t>(*at - '0');
        magnitude = magnitude > (kLargest - digit) / 10 ? kLargest + 1 : magnitude * 10 + digit;
        if (magnitude > kLargest) {
            return negative ? std::numeric_limits<Number>::min() : std::numeric_limits<Number>::max();
        }
    }
    const auto value = static_cast<int64_t>(magnitude);
    return static_cast<Number>(negative ? -value : value);
}

bool IsHexDigit(char c) {
    return IsDigit(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
}

// "0x" and a digit, also one behind a point.
bool IsHexNumber(const char* at, const char* end) {
    if (end - at < 3 || at[0] != '0' || (at[1] | 0x20) != 'x') {
        return false;
    }
    const char* digit = at[2] == '.' ? at + 3 : at + 2;
    return digit != end && IsHexDigit(*digit);
}

// What lies beyond the range of a double is infinite or zero, as its exponent's sign tells: the few
// characters of a field cannot reach either end by their digits alone.
double BeyondRange(const char* at, const char* end, bool hex) {
    const char mark = hex ? 'p' : 'e';
    const char* exponent = std::find_if(at, end, [mark](char c) { return (c | 0x20) == mark; });
    const bool small = end - exponent > 1 && exponent[1] == '-';
    return small ? 0.0 : std::numeric_limits<double>::infinity();
}

void AlignRight(const char* text, std::size_t textLen, char* dst, std::size_t len) {
    const std::size_t blanks = len - std::min(textLen, len);
    std::memset(dst, ' ', blanks);
    std::memcpy(dst + blanks, text, len - blanks);
}

}  // namespace

int32_t AsciiToLong(const char* src, int n) {
    return codecs::ReadLong(src, static_cast<std::size_t>(n));
}

int32_t codecs::ReadAnyLong(const char* src, std::size_t n) {
    return ReadInteger<int32_t>(src, static_cast<int>(n));
}

int64_t AsciiToInt64(const char* src, int n) {
    return ReadInteger<int64_t>(src, n);
}

double AsciiToDouble(const char* src, int n) {
    constexpr int kLongest = 31;
    return TextToDouble(src, std::min(n, kLongest));
}

double TextToDouble(const char* src, int n) {
    for (; n > static_cast<int>(digits::kVector) && *src == ' '; --n) {
        ++src;
    }
    double plain = 0.0;
    if (n <= static_cast<int>(digits::kVector) &&
        digits::ReadPaddedDecimal(digits::Padded16::Of(src, static_cast<std::size_t>(n)), plain)) {
        return plain;
    }
    const char* const end = src + n;
    const char* at = SkipSpaces(src, end);
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) {
        ++at;
    }
    if (at != end && *at == '-') {
        return 0.0;  // two signs: no number
    }
    double value = 0.0;
    const bool hex = IsHexNumber(at, end);
    std::from_chars_result result{at, std::errc::invalid_argument};
    if (hex) {
        result = std::from_chars(at + 2, end, value, std::chars_format::hex);
    }
    if (result.ec == std::errc::invalid_argument) {
        result = std::from_chars(at, end, value, std::chars_format::general);
    }
    if (result.ec == std::errc::invalid_argument) {
        return 0.0;  // also behind a minus sign
    }
    if (result.ec == std::errc::result_out_of_range) {
        value = BeyondRange(at, end, hex);
    }
    return negative ? -value : value;
}

void LongToAscii(int32_t value, char* dst, int len) {
    codecs::PrintInteger(value, dst, static_cast<std::size_t>(len));
}

void Int64ToAscii(int64_t value, char* dst, int len) {
    codecs::PrintInteger(value, dst, static_cast<std::size_t>(len));
}

void codecs::PrintWide(int64_t value, char* dst, std::size_t len) {
    char text[std::numeric_limits<int64_t>::digits10 + 2];  // one more digit, and the sign
    const std::to_chars_result result = std::to_chars(text, text + sizeof(text), value);
    AlignRight(text, static_cast<std::size_t>(result.ptr - text), dst, len);
}

void DoubleToAscii(double value, char* dst, int len, int dec) {
    using Print = bool (*)(double value, char* dst, std::size_t len);
    constexpr Print kPrints[] = {digits::PrintScaled<0>, digits::PrintScaled<1>, digits::PrintScaled<2>,
                                 digits::PrintScaled<3>, digits::PrintScaled<4>};
    const auto width = static_cast<std::size_t>(len);
    if (dec >= static_cast<int>(std::size(kPrints)) || !kPrints[dec](value, dst, width)) {
        codecs::PrintExactly(value, dst, width, dec);
    }
}

void codecs::PrintExactly(double value, char* dst, std::size_t len, int dec) {
    // Sign, the digits of the largest double, the point; decimals come on top.
    constexpr int kLongestInteger = 2 + std::numeric_limits<double>::max_exponent10 + 1;
    constexpr int kMostDecimals = 40;
    char text[kLongestInteger + kMostDecimals];
    const std::to_chars_result result = std::to_chars(text, text + sizeof(text), value,
                                                      std::chars_format::fixed, std::min(dec, kMostDecimals));
    AlignRight(text, static_cast<std::size_t>(result.ptr - text), dst, len);
    if (value == 0.0 && len > 0) {
        dst[len - 1] = '0';
    }
}

void CopyRightAligned(char* dst, const char* src, int dstLen, int srcLen) {
    const int blanks = std::max(dstLen - srcLen, 0);
    const int copied = dstLen - blanks;
    const char* const from = src + (srcLen - copied);
    std::memset(dst, ' ', static_cast<std::size_t>(blanks));
    const char* const stop = std::find(from, from + copied, '\0');
    char* const rest = std::copy(from, stop, dst + blanks);
    std::fill(rest, dst + dstLen, '\0');
}
