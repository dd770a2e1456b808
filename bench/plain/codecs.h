// The field codecs as the formatted print and the C library's text-to-number functions give them.
//
// A writer fills exactly `len` characters: right-aligned, and of a longer text the first ones.
#ifndef TICKMUX_BENCH_PLAIN_CODECS_H
#define TICKMUX_BENCH_PLAIN_CODECS_H

#include <cstdint>

namespace plain {

// The direction of a sign char, +1, -1 or 0; writes its colour to `dst` unless that is null.
int SignToColor(char* dst, char sign);

// The colour of a direction.
void ColorOf(int direction, char* dst);

// Numbers beyond 32 or 64 bits give the nearest end of the range.
int32_t AsciiToLong(const char* src, int n);
int64_t AsciiToInt64(const char* src, int n);
double AsciiToDouble(const char* src, int n);

void LongToAscii(int32_t value, char* dst, int len);
void Int64ToAscii(int64_t value, char* dst, int len);
void DoubleToAscii(double value, char* dst, int len, int dec);

}  // namespace plain

#endif
