// Numbers as text without a loop over digits: how the codecs print and read what fields commonly hold.
//
// A text of up to 16 characters is made in one vector register, and decimals are read in one. A processor
// without such registers leaves both to the exact ways of the codecs; so does TICKMUX_VECTORS, set to 0.
#ifndef TICKMUX_MODULE_WIRE_DIGITS_H
#define TICKMUX_MODULE_WIRE_DIGITS_H

#ifndef TICKMUX_VECTORS
#if defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2)
#define TICKMUX_VECTORS 1
#else
#define TICKMUX_VECTORS 0
#endif
#endif
#if TICKMUX_VECTORS
#include <emmintrin.h>
#endif

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

inline constexpr uint32_t kEightDigits = 100'000'000;  // the first number that has more
inline constexpr uint64_t kFifteenDigits = 1'000'000'000'000'000;
inline constexpr uint64_t kSixteenDigits = 10 * kFifteenDigits;

template <class Part>
Part Load(const char* src) {
    Part part;
    std::memcpy(&part, src, sizeof(part));
    return part;
}

// A field's width: a number at run time, or a type that carries it, so that each width has code of its own.
template <std::size_t N>
using Width = std::integral_constant<std::size_t, N>;

// ---- reading words: their lowest byte is the first character of a text

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
        std::memcpy(text, &kSpaces, kWord);
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

// The same of 16 characters.
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

#if TICKMUX_VECTORS

// ---- a vector of characters

inline __m128i LoadVector(const void* src) {
    return _mm_loadu_si128(static_cast<const __m128i*>(src));
}

inline void StoreVector(char* dst, __m128i part) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), part);
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
    return LoadVector(kMasks.Bytes + kVector - n);
}

// ---- printing

// The digits of a number below kSixteenDigits, each as its value. Lanes of eight digits fall into lanes of
// four, these into pairs, and pairs into digits. The products that stand for the divisions are exact for what
// a lane holds; the remainder goes behind the quotient.
template <class Magnitude>
inline __m128i DigitsOf(Magnitude value) {
    const auto upper = static_cast<int>(value / kEightDigits);
    const auto lower = static_cast<int>(value % kEightDigits);
    const __m128i eights = _mm_set_epi32(0, lower, 0, upper);

    const __m128i tenThousands = _mm_srli_epi64(_mm_mul_epu32(eights, _mm_set1_epi32(0x346DC5D7)), 43);
    const __m128i belowThem = _mm_sub_epi32(eights, _mm_mul_epu32(tenThousands, _mm_set1_epi32(10000)));
    const __m128i fours = _mm_or_si128(tenThousands, _mm_slli_epi64(belowThem, 32));

    const __m128i hundreds = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(10486)), 4);
    const __m128i units = _mm_sub_epi16(fours, _mm_madd_epi16(hundreds, _mm_set1_epi16(100)));
    const __m128i pairs = _mm_or_si128(hundreds, _mm_slli_epi32(units, 16));

    const __m128i tens = _mm_mulhi_epu16(pairs, _mm_set1_epi16(6554));
    const __m128i ones = _mm_sub_epi16(pairs, _mm_mullo_epi16(tens, _mm_set1_epi16(10)));
    return _mm_or_si128(tens, _mm_slli_epi16(ones, 8));
}

// The zeros in front of the first other digit. The last `shown` digits count as others.
inline std::size_t ZerosInFront(__m128i values, std::size_t shown) {
    const uint32_t others = MaskOf(_mm_cmpgt_epi8(values, _mm_setzero_si128()));
    return static_cast<std::size_t>(std::countr_zero(others | 1U << (kVector - shown)));
}

// What makes characters of digit values by exclusive or: so many blanks, the last of them a sign if the
// number is negative, and zeros.
inline __m128i Front(std::size_t blanks, bool negative) {
    alignas(4 * kVector) static constexpr char kFronts[] =
        "                0000000000000000"
        "               -0000000000000000";
    return LoadVector(kFronts + (negative ? 2 * kVector : 0) + kVector - blanks);
}

// The last `len` of 16 characters, with further spaces in front where that is more.
inline void CopyTail(__m128i text, char* dst, std::size_t len) {
    if (len >= kVector) {
        if (len > 2 * kVector) {
            std::memset(dst, ' ', len - kVector);
        }
        StoreVector(dst, All(' '));  // the text then covers what it needs of them
        StoreVector(dst + len - kVector, text);
        return;
    }
    char characters[kVector];
    StoreVector(characters, text);
    const char* const from = characters + kVector - len;
    if (len >= kWord) {
        // Two words that overlap.
        std::memcpy(dst, from, kWord);
        std::memcpy(dst + len - kWord, characters + kWord, kWord);
    } else {
        std::memcpy(dst, from, len);
    }
}

template <std::size_t N>
void CopyTail(__m128i text, char* dst, Width<N> /*len*/) {
    if constexpr (N > kWord && N < kVector) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), _mm_srli_si128(text, kVector - N));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + N - kWord), _mm_unpackhi_epi64(text, text));
    } else {
        CopyTail(text, dst, N);
    }
}

// Values as text, right-aligned. False, and nothing written: it has more than 16 characters or does not fit.
template <class Length>
bool PrintValues(__m128i values, std::size_t blanks, bool negative, char* dst, Length len) {
    if (kVector - blanks + (negative ? 1 : 0) > std::min<std::size_t>(len, kVector)) {
        return false;
    }
    CopyTail(_mm_xor_si128(values, Front(blanks, negative)), dst, len);
    return true;
}

// False, and nothing written: the number is for the exact way, since it is too large or does not fit.
template <class Magnitude, class Length>
bool PrintMagnitude(Magnitude magnitude, bool negative, char* dst, Length len) {
    if (magnitude >= kSixteenDigits) {
        return false;
    }
    const __m128i values = DigitsOf(magnitude);
    return PrintValues(values, ZerosInFront(values, 1), negative, dst, len);
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
bool PrintScaled(double value, char* dst, Length len) {
    constexpr double kWhole = 4503599627370496.0;  // 2^52: from here on doubles are whole numbers
    const bool negative = std::signbit(value);
    const double scaled = std::fabs(value) * PowerOfTen(Decimals);
    const double sum = scaled + kWhole;
    if (!(scaled < static_cast<double>(kFifteenDigits) - 1.0) || std::fabs(scaled - (sum - kWhole)) == 0.5) {
        return false;
    }
    const uint64_t count = std::bit_cast<uint64_t>(sum) - std::bit_cast<uint64_t>(kWhole);
    if constexpr (Decimals == 0) {
        return PrintMagnitude(count, negative, dst, len);
    } else {
        // The point takes the place of the last digit in front of it; these move up, since the first is 0.
        constexpr std::size_t kPlace = kVector - 1 - Decimals;
        const __m128i values = DigitsOf(count);
        const __m128i inFront = _mm_and_si128(FirstBytes(kPlace), _mm_srli_si128(values, 1));
        const __m128i behind = _mm_andnot_si128(FirstBytes(kPlace + 1), values);
        const __m128i point = _mm_slli_si128(_mm_cvtsi32_si128('.' ^ '0'), kPlace);
        return PrintValues(_mm_or_si128(_mm_or_si128(inFront, point), behind),
                           ZerosInFront(values, 1 + Decimals) - 1, negative, dst, len);
    }
}

// ---- reading decimals

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

#else

template <class Number, class Length>
bool PrintInteger(Number /*value*/, char* /*dst*/, Length /*len*/) {
    return false;
}

template <std::size_t Decimals, class Length>
bool PrintScaled(double /*value*/, char* /*dst*/, Length /*len*/) {
    return false;
}

inline bool ReadPaddedDecimal(const Padded16& /*text*/, double& /*value*/) {
    return false;
}

#endif

}  // namespace digits

#endif
