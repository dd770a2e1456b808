// The field codecs as std::to_chars and std::from_chars give them, padded by hand.
//
// A writer fills exactly `len` characters: right-aligned, and of a longer text the first ones.
#ifndef TICKMUX_BENCH_COMPETENT_CODECS_H
#define TICKMUX_BENCH_COMPETENT_CODECS_H

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

namespace competent {

struct Codecs {
    // Numbers beyond 32 or 64 bits give the nearest end of the range.
    static int32_t AsciiToLong(const char* src, int n) { return Whole<int32_t>(src, n); }
    static int64_t AsciiToInt64(const char* src, int n) { return Whole<int64_t>(src, n); }

    static double AsciiToDouble(const char* src, int n) {
        const std::string_view text = NumberIn(src, n);
        double value = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), value);
        return value;
    }

    static void LongToAscii(int32_t value, char* dst, int len) { Print(dst, len, value); }
    static void Int64ToAscii(int64_t value, char* dst, int len) { Print(dst, len, value); }
    static void DoubleToAscii(double value, char* dst, int len, int dec) {
        Print(dst, len, value, std::chars_format::fixed, dec);
        if (value == 0.0) {
            dst[len - 1] = '0';  // also where the field cuts the zero's decimals
        }
    }

private:
    // From the first character that is no space, and no plus, which from_chars does not know.
    static std::string_view NumberIn(const char* src, int n) {
        std::string_view text(src, static_cast<size_t>(n));
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        text.remove_prefix(text.starts_with('+') ? 1 : 0);
        return text;
    }

    template <class Number>
    static Number Whole(const char* src, int n) {
        const std::string_view text = NumberIn(src, n);
        Number value = 0;
        if (std::from_chars(text.data(), text.data() + text.size(), value).ec ==
            std::errc::result_out_of_range) {
            using Range = std::numeric_limits<Number>;
            return text.starts_with('-') ? Range::min() : Range::max();
        }
        return value;
    }

    template <class Number, class... Format>
    static void Print(char* dst, int len, Number value, Format... format) {
        constexpr size_t kLongest = 400;  // the largest double has 309 digits in front of its point
        char text[kLongest];
        const auto width = static_cast<size_t>(len);
        const auto size =
            static_cast<size_t>(std::to_chars(text, text + kLongest, value, format...).ptr - text);
        const size_t digits = std::min(size, width);
        memset(dst, ' ', width);
        memcpy(dst + width - digits, text, digits);
    }
};

}  // namespace competent

#endif
