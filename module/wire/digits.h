// Numbers as text, eight characters at a time: how the codecs print and read without a loop over digits.
//
// A word holds text as it lies in memory, its first character in the lowest byte.
#ifndef TICKMUX_MODULE_WIRE_DIGITS_H
#define TICKMUX_MODULE_WIRE_DIGITS_H

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace digits {

static_assert(std::endian::native == std::endian::little);

inline constexpr std::size_t kWord = sizeof(uint64_t);
inline constexpr std::size_t kVector = 2 * kWord;
inline constexpr std::size_t kBits = 8;  // of a character

inline constexpr uint64_t kSpaces = 0x2020202020202020;
inline constexpr uint64_t kZeros = 0x3030303030303030;
inline constexpr uint64_t kMinus = '-' ^ ' ';  // turns a space into a sign

inline constexpr uint32_t kEightDigits = 100'000'000;       // the first number that has more
inline constexpr uint64_t kFits16 = 1'000'000'000'000'000;  // 16 characters hold less than it with its sign

template <class Part>
void Store(char* dst, Part part) {
    std::memcpy(dst, &part, sizeof(part));
}

template <class Part>
Part Load(const char* src) {
    Part part;
    std::memcpy(&part, src, sizeof(part));
    return part;
}

// A field's width: a number at run time, or a type that carries it, so that each width has code of its own.
template <std::size_t N>
using Width = std::integral_constant<std::size_t, N>;

// The caller knows that a text of up to `longest` characters fits.
constexpr bool AlwaysFits(std::size_t /*len*/, std::size_t /*longest*/) {
    return false;
}
template <std::size_t N>
constexpr bool AlwaysFits(Width<N> /*len*/, std::size_t longest) {
    return N >= longest;
}

// ---- printing

// The digits of a number below kEightDigits, each as its value. The number falls into halves, these into
// pairs, and pairs into digits, in lanes of one word. The products that stand for the divisions by 100 and 10
// are exact below 10000 and 100. Each step writes lane - quotient * divisor behind the quotient: one product.
constexpr uint64_t Split(uint32_t value) {
    const uint64_t halves = (uint64_t{value} << 32) - uint64_t{value / 10000} * ((uint64_t{10000} << 32) - 1);
    const uint64_t hundreds = ((halves * 10486) >> 20) & 0x0000007F0000007F;
    const uint64_t pairs = (halves << 16) - hundreds * ((100 << 16) - 1);
    const uint64_t tens = ((pairs * 103) >> 10) & 0x000F000F000F000F;
    return (pairs << 8) - tens * ((10 << 8) - 1);
}

// The zeros in front of the first other digit, in bits. The last `shown` digits count as others.
constexpr std::size_t ZerosInFront(uint64_t values, std::size_t shown) {
    const uint64_t last = uint64_t{1} << (kWord - shown) * kBits;
    return static_cast<std::size_t>(std::countr_zero(values | last)) & ~(kBits - 1);
}

// Characters of digit values, of which so many bits in front become spaces.
constexpr uint64_t Characters(uint64_t values, std::size_t blankBits) {
    const uint64_t inFront = (uint64_t{1} << blankBits) - 1;
    return (values | kZeros) ^ (inFront & (kZeros ^ kSpaces));
}

// The last `len` characters of eight, with further spaces in front where that is more.
template <class Length>
void CopyTail(uint64_t text, char* dst, Length length) {
    const std::size_t len = length;
    if (len > 2 * kWord) {
        std::memset(dst, ' ', len - kWord);
        Store(dst + len - kWord, text);
    } else if (len >= kWord) {
        Store(dst, kSpaces);  // the text then covers what it needs of them
        Store(dst + len - kWord, text);
    } else if (len >= kWord / 2) {
        Store(dst, static_cast<uint32_t>(text >> (kWord - len) * kBits));
        Store(dst + len - kWord / 2, static_cast<uint32_t>(text >> kWord / 2 * kBits));
    } else {
        for (std::size_t at = 0; at < len; ++at) {
            dst[at] = static_cast<char>(text >> (kWord - len + at) * kBits);
        }
    }
}

// The same for 16 characters in two words.
template <class Length>
void CopyTail(uint64_t left, uint64_t right, char* dst, Length length) {
    const std::size_t len = length;
    if (len >= 2 * kWord) {
        std::memset(dst, ' ', len - 2 * kWord);
        Store(dst + len - 2 * kWord, left);
        Store(dst + len - kWord, right);
    } else if (len > kWord) {
        // Two words that overlap, the first put together in a register.
        const std::size_t more = (len - kWord) % kWord * kBits;
        Store(dst, left >> 1 >> (kWord * kBits - 1 - more) | right << more);
        Store(dst + len - kWord, right);
    } else {
        CopyTail(right, dst, length);
    }
}

// A magnitude and its sign, right-aligned. False, and nothing written: the number is for the exact way, since
// it is too large or does not fit.
template <class Magnitude, class Length>
bool PrintMagnitude(Magnitude magnitude, bool negative, char* dst, Length len) {
    constexpr std::size_t kLongest = sizeof(Magnitude) > sizeof(uint32_t) ? 2 * kWord : 11;
    std::size_t length = negative ? 1 : 0;
    if (magnitude < kEightDigits) {
        const uint64_t values = Split(static_cast<uint32_t>(magnitude));
        const std::size_t blank = ZerosInFront(values, 1);
        length += kWord - blank / kBits;
        if (!AlwaysFits(len, kLongest) && length > len) {
            return false;
        }
        CopyTail(Characters(values, blank), dst, len);
    } else if (magnitude < kFits16) {
        const uint64_t values = Split(static_cast<uint32_t>(magnitude / kEightDigits));
        const std::size_t blank = ZerosInFront(values, 1);
        length += 2 * kWord - blank / kBits;
        if (!AlwaysFits(len, kLongest) && length > len) {
            return false;
        }
        CopyTail(Characters(values, blank), Split(static_cast<uint32_t>(magnitude % kEightDigits)) | kZeros,
                 dst, len);
    } else {
        return false;
    }
    if (negative) {
        dst[len - length] = '-';
    }
    return true;
}

template <class Number, class Length>
bool PrintInteger(Number value, char* dst, Length len) {
    using Magnitude = std::make_unsigned_t<Number>;
    const auto bits = static_cast<Magnitude>(value);
    return PrintMagnitude(value < 0 ? Magnitude{0} - bits : bits, value < 0, dst, len);
}

constexpr uint32_t PowerOfTen(std::size_t exponent) {
    return exponent == 0 ? 1 : 10 * PowerOfTen(exponent - 1);
}

// With so many decimals, at most four. False, and nothing written: the value is for the exact way, since it
// is too large, does not fit, lies at a tie, or is no number.
//
// Scaled by a power of ten, the product is rounded once, by at most half of its last bit. Its distance from
// the nearest whole number is a multiple of that bit, so unless it is exactly a half, the unrounded product
// lies on the same side of every tie, and the whole number is the one nearest to the exact value too.
template <std::size_t Decimals, class Length>
bool PrintScaled(double value, char* dst, Length length) {
    constexpr double kWhole = 4503599627370496.0;  // 2^52: from here on doubles are whole numbers
    constexpr uint32_t kScale = PowerOfTen(Decimals);
    constexpr uint32_t kSevenDigits = kEightDigits / 10;
    const std::size_t len = length;
    const bool negative = std::signbit(value);
    const double scaled = std::fabs(value) * kScale;
    const double sum = scaled + kWhole;
    if (!(scaled < static_cast<double>(kFits16) - 1.0) || std::fabs(scaled - (sum - kWhole)) == 0.5) {
        return false;
    }
    const uint64_t count = std::bit_cast<uint64_t>(sum) - std::bit_cast<uint64_t>(kWhole);
    if constexpr (Decimals == 0) {
        return PrintMagnitude(count, negative, dst, length);
    } else {
        // The last eight characters are the end of the whole number, the point, and the decimals.
        constexpr std::size_t kTail = 1 + Decimals;
        constexpr uint64_t kPoint = uint64_t{'.'} << (kWord - kTail) * kBits;
        constexpr uint64_t kInFront = (uint64_t{1} << (kWord - kTail) * kBits) - 1;
        constexpr uint64_t kBehind = ~(kInFront << kBits | 0xFF);
        const uint64_t sign = negative ? kMinus : 0;
        uint64_t left = 0;
        uint64_t right = 0;
        std::size_t textLength = kTail + (negative ? 1 : 0);
        if (count < (negative ? kSevenDigits : kEightDigits)) {
            // All digits in one word; those in front of the point make room for it.
            const uint64_t values = Split(static_cast<uint32_t>(count));
            const std::size_t blank = ZerosInFront(values, kTail);
            const uint64_t all = Characters(values, blank) ^ sign << (blank - kBits) % (kWord * kBits);
            left = kSpaces >> kBits | all << (kWord - 1) * kBits;
            right = (all >> kBits & kInFront) | kPoint | (all & kBehind);
            textLength += kWord - Decimals - blank / kBits;
        } else if (count < uint64_t{kSevenDigits} * kScale) {
            const uint64_t values = Split(static_cast<uint32_t>(count / kScale));
            const std::size_t blank = ZerosInFront(values, 1);
            const uint64_t whole = Characters(values, blank) ^ sign << (blank - kBits);
            const uint64_t parts = Split(static_cast<uint32_t>(count % kScale)) | kZeros;
            left = whole << (kWord - kTail) * kBits | kSpaces >> kTail * kBits;
            right = whole >> kTail * kBits | kPoint | (parts & kBehind);
            textLength += kWord - blank / kBits;
        } else {
            return false;
        }
        if (textLength > len) {
            return false;
        }
        CopyTail(left, right, dst, length);
        return true;
    }
}

// ---- reading

// A text of up to 16 characters as two words, spaces in front.
struct Padded16 {
    uint64_t Left;
    uint64_t Right;

    static Padded16 Of(const char* src, std::size_t len) {
        if (len > kWord) {
            const std::size_t more = (len - kWord) * kBits;
            const auto left = Load<uint64_t>(src);
            return {len == kVector ? left : left << (kWord * kBits - more) | kSpaces >> more,
                    Load<uint64_t>(src + len - kWord)};
        }
        char text[kWord];
        Store(text, kSpaces);
        std::memcpy(text + kWord - len, src, len);
        return {kSpaces, Load<uint64_t>(text)};
    }
};

// The number of eight digit values.
constexpr uint32_t Join(uint64_t values) {
    values = (values * 10 + (values >> 8)) & 0x00FF00FF00FF00FF;
    values = (values * 100 + (values >> 16)) & 0x0000FFFF0000FFFF;
    return static_cast<uint32_t>(values * 10000 + (values >> 32));
}

constexpr bool AreDigits(uint64_t values) {
    constexpr uint64_t kHigh = 0x8080808080808080;
    constexpr uint64_t kAboveNine = 0x7676767676767676;
    return ((((values & ~kHigh) + kAboveNine) | values) & kHigh) == 0;
}

// Digits behind spaces, or spaces alone, which count as 0. False: the text has something else in it.
constexpr bool ReadPadded(uint64_t word, uint32_t& value) {
    if (word == kSpaces) {
        value = 0;
        return true;
    }
    const auto spaceBits = static_cast<std::size_t>(std::countr_zero(word ^ kSpaces)) & ~(kBits - 1);
    const uint64_t values = (word ^ kZeros) >> spaceBits << spaceBits;
    value = Join(values);
    return AreDigits(values);
}

// The number in two words, if it is padded digits.
constexpr bool ReadPadded(const Padded16& text, uint64_t& value) {
    uint32_t upper = 0;
    uint32_t lower = 0;
    if (text.Left == kSpaces) {
        const bool isNumber = ReadPadded(text.Right, lower);
        value = lower;
        return isNumber;
    }
    const uint64_t values = text.Right ^ kZeros;
    const bool isNumber = ReadPadded(text.Left, upper) && AreDigits(values);
    value = uint64_t{upper} * kEightDigits + Join(values);
    return isNumber;
}

// One bit for each byte of a comparison.
inline constexpr uint32_t kAllBytes = 0xFFFF;
inline uint32_t MaskOf(__m128i comparison) {
    return static_cast<uint32_t>(_mm_movemask_epi8(comparison));
}

inline __m128i All(char character) {
    return _mm_set1_epi8(character);
}

// The first n bytes set, the others clear.
inline __m128i FirstBytes(std::size_t n) {
    struct Masks {
        alignas(2 * kVector) unsigned char Bytes[2 * kVector];
    };
    static constexpr Masks kMasks = {{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,  //
                                      0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(kMasks.Bytes + kVector - n));
}

// Digits behind spaces, with one point among them or none. Of up to 15 digits the whole number and the power
// of ten are exact doubles, so that their quotient is the one nearest to the text. False: the text is for the
// full scan.
inline bool ReadPaddedDecimal(const Padded16& text, double& value) {
    constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const __m128i characters =
        _mm_set_epi64x(static_cast<int64_t>(text.Right), static_cast<int64_t>(text.Left));
    const uint32_t points = MaskOf(_mm_cmpeq_epi8(characters, All('.')));
    // Without a point it stands behind the text. What is in front of it moves up to take its place.
    const auto place = static_cast<std::size_t>(std::countr_zero(points | 1U << kVector));
    const __m128i moved = FirstBytes(std::min(place + 1, kVector));
    const __m128i shifted = _mm_or_si128(_mm_slli_si128(characters, 1), _mm_cvtsi32_si128(' '));
    const __m128i joined =
        points == 0 ? characters
                    : _mm_or_si128(_mm_and_si128(moved, shifted), _mm_andnot_si128(moved, characters));
    const __m128i spaces = _mm_cmpeq_epi8(joined, All(' '));
    const __m128i values = _mm_andnot_si128(spaces, _mm_sub_epi8(joined, All('0')));
    // Spaces in front only, one at least, and none behind the point: such a mask and the next number have no
    // bit in common.
    const uint32_t inFront = MaskOf(spaces);
    if (inFront == kAllBytes) {
        value = 0.0;  // no digit at all
        return true;
    }
    if ((inFront & (inFront + 1)) != 0 || inFront >> (place + 1) != 0 || inFront == 0 ||
        MaskOf(_mm_cmpeq_epi8(_mm_min_epu8(values, All(9)), values)) != kAllBytes) {
        return false;
    }
    alignas(kVector) char digits[kVector];
    _mm_store_si128(reinterpret_cast<__m128i*>(digits), values);
    const uint64_t number =
        uint64_t{Join(Load<uint64_t>(digits))} * kEightDigits + Join(Load<uint64_t>(digits + kWord));
    value = static_cast<double>(number) / kPowers[points == 0 ? 0 : kVector - 1 - place];
    return true;
}

}  // namespace digits

#endif
