// Numbers as text, eight characters at a time: how the codecs print and read without a loop over digits.
//
// A word holds text as it lies in memory, its first character in the lowest byte.
#ifndef TICKMUX_FRAMEWORK_DIGITS_H
#define TICKMUX_FRAMEWORK_DIGITS_H

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace digits {

static_assert(std::endian::native == std::endian::little);

using Word = uint64_t;
inline constexpr std::size_t kWord = sizeof(Word);
inline constexpr std::size_t kBits = 8;  // of a character

inline constexpr Word kSpaces = 0x2020202020202020;
inline constexpr Word kZeros = 0x3030303030303030;
inline constexpr uint32_t kEightDigits = 100'000'000;  // the first number that has more

template <class Part>
void Store(char* dst, Part part) {
    std::memcpy(dst, &part, sizeof(part));
}

inline Word Load(const char* src) {
    Word word;
    std::memcpy(&word, src, sizeof(word));
    return word;
}

// ---- eight digits and their values

// The digits of a number below kEightDigits, each as its value. The number falls into halves, these into
// pairs, and pairs into digits, in lanes of one word. The products that stand for the divisions by 100 and 10
// are exact below 10000 and 100. Each step writes lane - quotient * divisor behind the quotient: one product.
constexpr Word Split(uint32_t value) {
    const Word halves = (Word{value} << 32) - Word{value / 10000} * ((Word{10000} << 32) - 1);
    const Word hundreds = ((halves * 10486) >> 20) & 0x0000007F0000007F;
    const Word pairs = (halves << 16) - hundreds * ((100 << 16) - 1);
    const Word tens = ((pairs * 103) >> 10) & 0x000F000F000F000F;
    return (pairs << 8) - tens * ((10 << 8) - 1);
}

// The way back.
constexpr uint32_t Join(Word values) {
    values = (values * 10 + (values >> 8)) & 0x00FF00FF00FF00FF;
    values = (values * 100 + (values >> 16)) & 0x0000FFFF0000FFFF;
    return static_cast<uint32_t>(values * 10000 + (values >> 32));
}

// ---- printing

// Characters of digit values, zeros in front of the first other digit as spaces; the last digit shows in any
// case. Gives the length without the spaces.
constexpr std::size_t Blank(Word& word) {
    const auto zeroBits = static_cast<std::size_t>(std::countr_zero(word | Word{1} << 56)) & ~(kBits - 1);
    const Word inFront = (Word{1} << zeroBits) - 1;
    word = (word | kZeros) ^ (inFront & (kZeros ^ kSpaces));
    return kWord - zeroBits / kBits;
}

// A number's text at the right end of 16 characters, spaces in front.
struct Text16 {
    Word Left;
    Word Right;
    std::size_t nLength;  // without the spaces

    // The last `len` characters, with further spaces in front where that is more than 16. The text must fit.
    void CopyTo(char* dst, std::size_t len) const {
        constexpr std::size_t kHalf = kWord / 2;
        if (len >= 2 * kWord) {
            std::memset(dst, ' ', len - 2 * kWord);
            Store(dst + len - 2 * kWord, Left);
            Store(dst + len - kWord, Right);
        } else if (len > kWord) {
            // Two words that overlap, the first put together in a register.
            const std::size_t more = (len - kWord) * kBits;
            Store(dst, Left >> (kWord * kBits - more) | Right << more);
            Store(dst + len - kWord, Right);
        } else if (len >= kHalf) {
            Store(dst, static_cast<uint32_t>(Right >> (kWord - len) * kBits));
            Store(dst + len - kHalf, static_cast<uint32_t>(Right >> kHalf * kBits));
        } else {
            for (std::size_t at = 0; at < len; ++at) {
                dst[at] = static_cast<char>(Right >> (kWord - len + at) * kBits);
            }
        }
    }
};

// 16 characters hold any number below it with its sign.
inline constexpr uint64_t kFits16 = 1'000'000'000'000'000;

// A magnitude below kFits16.
template <class Magnitude>
constexpr Text16 Print(Magnitude magnitude, bool negative) {
    Text16 text{kSpaces, 0, 0};
    if (magnitude < kEightDigits) {
        text.Right = Split(static_cast<uint32_t>(magnitude));
        text.nLength = Blank(text.Right);
    } else {
        const auto head = static_cast<uint32_t>(magnitude / kEightDigits);
        text.Left = Split(head);
        text.nLength = kWord + Blank(text.Left);
        text.Right = Split(static_cast<uint32_t>(magnitude % kEightDigits)) | kZeros;
    }
    if (negative) {
        constexpr Word kMinus = '-' ^ ' ';
        const std::size_t place = 2 * kWord - ++text.nLength;
        (place < kWord ? text.Left : text.Right) ^= kMinus << place % kWord * kBits;
    }
    return text;
}

constexpr uint64_t PowerOfTen(int exponent) {
    uint64_t power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

// A value with so many decimals, at most four, at the right end of its field. False, and nothing written: it
// is for the exact way, since it is too large, does not fit, lies at a tie, or is no number.
//
// Scaled by a power of ten, the product is rounded once, by at most half of its last bit. Its distance from
// the nearest whole number is a multiple of that bit, so unless it is exactly a half, the unrounded product
// lies on the same side of every tie, and the whole number is the one nearest to the exact value too.
template <int Decimals>
bool PrintScaled(double value, char* dst, std::size_t len) {
    constexpr double kOneBit = 4503599627370496.0;  // 2^52: from here on doubles are whole numbers
    constexpr auto kScale = static_cast<uint32_t>(PowerOfTen(Decimals));
    constexpr std::size_t kTail = Decimals == 0 ? 0 : Decimals + 1;
    const double scaled = std::fabs(value) * kScale;
    if (!(scaled < static_cast<double>(kFits16))) {
        return false;
    }
    const double sum = scaled + kOneBit;
    if (std::fabs(scaled - (sum - kOneBit)) == 0.5) {
        return false;
    }
    const uint64_t count = std::bit_cast<uint64_t>(sum) - std::bit_cast<uint64_t>(kOneBit);
    const Text16 whole = Print(count / kScale, std::signbit(value));
    if (whole.nLength + kTail > len) {
        return false;
    }
    whole.CopyTo(dst, len - kTail);
    if constexpr (Decimals > 0) {
        const Word parts = Split(static_cast<uint32_t>(count % kScale)) | kZeros;
        dst[len - kTail] = '.';
        for (std::size_t at = 0; at < Decimals; ++at) {
            dst[len - Decimals + at] = static_cast<char>(parts >> (kWord - Decimals + at) * kBits);
        }
    }
    return true;
}

// ---- reading

// The text of up to 16 characters as two words, spaces in front.
struct Padded16 {
    Word Left;
    Word Right;

    static Padded16 Of(const char* src, std::size_t len) {
        if (len > kWord) {
            const std::size_t more = (len - kWord) * kBits;
            return {more == kWord * kBits ? Load(src) : Load(src) << (kWord * kBits - more) | kSpaces >> more,
                    Load(src + len - kWord)};
        }
        char text[kWord];
        Store(text, kSpaces);
        std::memcpy(text + kWord - len, src, len);
        return {kSpaces, Load(text)};
    }
};

// Digit values of a word; false if another character is among them.
constexpr bool AreDigits(Word values) {
    constexpr Word kHigh = 0x8080808080808080;
    constexpr Word kAboveNine = 0x7676767676767676;
    return ((((values & ~kHigh) + kAboveNine) | values) & kHigh) == 0;
}

// Digits behind spaces, or spaces alone, which count as 0. False: the text has something else in it.
constexpr bool ReadPadded(Word word, uint32_t& value) {
    if (word == kSpaces) {
        value = 0;
        return true;
    }
    const int spaceBits = std::countr_zero(word ^ kSpaces) & ~7;
    const Word values = (word ^ kZeros) >> spaceBits << spaceBits;
    value = Join(values);
    return AreDigits(values);
}

// The same of 16 characters.
constexpr bool ReadPadded(const Padded16& text, uint64_t& value) {
    uint32_t head = 0;
    uint32_t tail = 0;
    if (text.Left == kSpaces) {
        const bool isNumber = ReadPadded(text.Right, tail);
        value = tail;
        return isNumber;
    }
    const Word values = text.Right ^ kZeros;
    const bool isNumber = ReadPadded(text.Left, head) && AreDigits(values);
    value = uint64_t{head} * kEightDigits + Join(values);
    return isNumber;
}

}  // namespace digits

#endif
