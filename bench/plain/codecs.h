// The field codecs as the formatted print and the C library's text-to-number functions give them.
//
// A writer fills exactly `len` characters: right-aligned, and of a longer text the first ones.
#ifndef TICKMUX_BENCH_PLAIN_CODECS_H
#define TICKMUX_BENCH_PLAIN_CODECS_H

#include <cstdint>

namespace plain {

struct Codecs {
    // Numbers beyond 32 or 64 bits give the nearest end of the range.
    static int32_t AsciiToLong(const char* src, int n);
    static int64_t AsciiToInt64(const char* src, int n);
    static double AsciiToDouble(const char* src, int n);

    static void LongToAscii(int32_t value, char* dst, int len);
    static void Int64ToAscii(int64_t value, char* dst, int len);
    static void DoubleToAscii(double value, char* dst, int len, int dec);
};

}  // namespace plain

#endif
