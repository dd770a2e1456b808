#include "bench/plain/codecs.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace plain {

int32_t Codecs::AsciiToLong(const char* src, int n) {
    return static_cast<int32_t>(std::clamp<int64_t>(AsciiToInt64(src, n), INT32_MIN, INT32_MAX));
}

int64_t Codecs::AsciiToInt64(const char* src, int n) {
    char text[24] = {};
    memcpy(text, src, static_cast<size_t>(n));
    return strtoll(text, nullptr, 10);
}

double Codecs::AsciiToDouble(const char* src, int n) {
    char text[32] = {};
    memcpy(text, src, static_cast<size_t>(n));
    return strtod(text, nullptr);
}

void Codecs::LongToAscii(int32_t value, char* dst, int len) {
    char text[24] = {};
    snprintf(text, sizeof(text), "%*" PRId32, len, value);
    memcpy(dst, text, static_cast<size_t>(len));
}

void Codecs::Int64ToAscii(int64_t value, char* dst, int len) {
    char text[24] = {};
    snprintf(text, sizeof(text), "%*" PRId64, len, value);
    memcpy(dst, text, static_cast<size_t>(len));
}

void Codecs::DoubleToAscii(double value, char* dst, int len, int dec) {
    char text[32] = {};
    snprintf(text, sizeof(text), "%*.*f", len, dec, value);
    if (value == 0.0) {
        text[len - 1] = '0';
    }
    memcpy(dst, text, static_cast<size_t>(len));
}

}  // namespace plain
