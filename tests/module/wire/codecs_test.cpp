// The codecs by table, and against the C library's formatted print and scan, which they stand for.

#include "module/wire/codecs.h"

#include <gtest/gtest.h>

#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "module/wire/change_rate.h"
#include "tests/support/text.h"

namespace {

#if defined(NDEBUG) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
constexpr int kRandomValues = 400000;  // 24 million decimals
#else
constexpr int kRandomValues = 10000;
#endif

// What a writer leaves in a field of `len` bytes.
template <class Write>
std::string Field(int len, Write write) {
    std::string text(static_cast<std::size_t>(len), '#');
    write(text.data());
    return text;
}

std::string Long(int32_t value, int len) {
    return Field(len, [=](char* dst) { LongToAscii(value, dst, len); });
}
std::string Int64(int64_t value, int len) {
    return Field(len, [=](char* dst) { Int64ToAscii(value, dst, len); });
}
std::string Double(double value, int len, int dec) {
    return Field(len, [=](char* dst) { DoubleToAscii(value, dst, len, dec); });
}

template <std::size_t Len, int Dec>
std::string Inlined(double value) {
    char field[Len];
    Put<Dec>(field, value);
    return {field, Len};
}

template <class... Arguments>
std::string Printed(int len, const char* format, Arguments... arguments) {
    char text[400];
    std::snprintf(text, sizeof(text), format, len, arguments...);
    return std::string(text).substr(0, static_cast<std::size_t>(len));
}

double ReadDouble(const std::string& text) {
    return AsciiToDouble(text.data(), static_cast<int>(text.size()));
}

int32_t ReadLong(const std::string& text) {
    return AsciiToLong(text.data(), static_cast<int>(text.size()));
}

TEST(Codecs, IntegersAreRightAlignedAndLoseTheirLowDigits) {
    EXPECT_EQ(Long(INT32_MIN, 12), " -2147483648");
    EXPECT_EQ(Int64(INT64_MIN, 22), "  -9223372036854775808");
    EXPECT_EQ(Int64(-123456, 4), "-123");
    std::mt19937_64 random(1);
    for (int i = 0; i < kRandomValues; ++i) {
        const int len = 1 + static_cast<int>(random() % 23);
        const auto wide = static_cast<int64_t>(random()) >> (random() % 64);
        ASSERT_EQ(Int64(wide, len), Printed(len, "%*" PRId64, wide));
        const auto value = static_cast<int32_t>(wide);
        ASSERT_EQ(Long(value, len), Printed(len, "%*" PRId32, value));
    }
}

// What is no number gives +0; not every C library does so.
double Scanned(const std::string& text) {
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    return end == text.c_str() ? 0.0 : value;
}

#ifdef _WIN32
constexpr bool kPrintsSignOfNaN = false;
#else
constexpr bool kPrintsSignOfNaN = true;
#endif

// The last three have the widths and decimals of screens, which take another way.
TEST(Codecs, DecimalsAreTheNearestTextOfTheExactValueTiesToEven) {
    EXPECT_EQ(Double(0.0, 6, 2) + Double(-0.0, 6, 2) + Double(-0.004, 6, 2), "  0.00 -0.00 -0.00");
    EXPECT_EQ((Inlined<18, 0>(0.0)), Right("0", 18));
    EXPECT_EQ((Inlined<15, 4>(-0.0)), Right("-0.0000", 15));
    EXPECT_EQ(Double(0.125, 6, 2) + Double(1.005, 6, 2), "  0.12  1.00") << "a tie, and below one";
    std::mt19937_64 random(2);
    for (int i = 0; i < kRandomValues; ++i) {
        const int len = 3 + static_cast<int>(random() % 28);
        const int dec = static_cast<int>(random() % 7);
        const auto any = std::bit_cast<double>(random() >> (i % 2 * 12));  // now and then too small to print
        const auto whole = static_cast<double>(static_cast<int64_t>(random()) >> (13 + random() % 50));
        const double rate = static_cast<double>(static_cast<int32_t>(random()) % 100000) / 997.0;
        for (const double centre : {any, whole / 10000.0, whole / 1024.0, whole / 32.0, rate}) {
            for (const double value :
                 {centre, std::nextafter(centre, 1e308), std::nextafter(centre, -1e308)}) {
                if (std::isnan(value) && !kPrintsSignOfNaN) {
                    continue;
                }
                ASSERT_EQ(Double(value, len, dec), Printed(len, "%*.*f", dec, value)) << value;
                ASSERT_EQ((Inlined<6, 2>(value)), Printed(6, "%*.*f", 2, value)) << value;
                ASSERT_EQ((Inlined<15, 4>(value)), Printed(15, "%*.*f", 4, value)) << value;
                ASSERT_EQ((Inlined<18, 0>(value)), Printed(18, "%*.*f", 0, value)) << value;
            }
        }
    }
}

TEST(Codecs, IntegersAreReadUpToTheFirstOtherCharacter) {
    for (const auto& [text, value] : std::vector<std::pair<std::string, int32_t>>{
             {"\t\r -12x9", -12},
             {"+7 8", 7},
             {"- 7", 0},
             {"", 0},
             {std::string("1\0002", 3), 1},
             {"2147483647", 2147483647},
             {"4294967297", 2147483647},  // a large number stays large
             {"-99999999999999999999999", INT32_MIN}}) {
        EXPECT_EQ(ReadLong(text), value) << text;
    }
    EXPECT_EQ(AsciiToInt64("99999999999", 11), 99999999999);
    EXPECT_EQ(AsciiToInt64("-9223372036854775808", 20), INT64_MIN);
    EXPECT_EQ(AsciiToInt64("9223372036854775808", 19), INT64_MAX);
    EXPECT_EQ(AsciiToInt64("40000000000000000000", 20), INT64_MAX) << "wraps in 64 bits";
    EXPECT_EQ(AsciiToLong("123456", 3), 123);
}

TEST(Codecs, DecimalsAreReadAsTheScanOfTheLibraryDoes) {
    EXPECT_EQ(ReadDouble("125"), 125.0) << "no point is put in";
    EXPECT_EQ(AsciiToDouble("1.25", 3), 1.2);
    EXPECT_EQ(ReadDouble("0." + std::string(28, '0') + "19"), 1e-29) << "31 characters count";
    for (const char* text :
         {"-5",   "+.5", "5.",       "1e3",       "1e999", "-1e-999",   "1e-320", "0x1.8p3",
          "0x",   "0xg", "0x1p9999", "0x1p-9999", "inf",   "-Infinity", "--5",    "0xinf",
          "0x-1", "+-5", ".",        "e5",        "1.5.2", "1,5",       "\n7"}) {
        const double expected = Scanned(text);
        EXPECT_EQ(ReadDouble(text), expected) << text;
        EXPECT_EQ(std::signbit(ReadDouble(text)), std::signbit(expected)) << text;
    }
    EXPECT_TRUE(std::isnan(ReadDouble("nan")));
    std::mt19937_64 random(3);
    constexpr char kCharacters[] = "0123456789012345678901234567890123456789.. -+eExXpPinfa";
    for (int i = 0; i < kRandomValues; ++i) {
        std::string text(random() % 32, ' ');
        for (char& c : text) {
            c = kCharacters[random() % (sizeof(kCharacters) - 1)];
        }
        ASSERT_EQ(std::bit_cast<uint64_t>(ReadDouble(text)), std::bit_cast<uint64_t>(Scanned(text)))
            << "[" << text << "]";
    }
}

TEST(Codecs, SignsAndDirectionsGiveColors) {
    for (int c = 0; c < 256; ++c) {
        char tag[2];
        const int direction = c >= '1' && c <= '4' ? 1 : c >= '5' && c <= '8' ? -1 : 0;
        EXPECT_EQ(SignToColor(tag, static_cast<char>(c)), direction);
        EXPECT_EQ(std::string(tag, 2), direction > 0 ? "1 " : direction < 0 ? "4 " : "5 ");
    }
    EXPECT_EQ(DirectionFrom(10.0, 10.5), 1);
    EXPECT_EQ(DirectionFrom(10, 9), -1);
    EXPECT_EQ(DirectionFrom(0.0, std::nan("")), 0);
}

TEST(Codecs, TextIsCopiedToTheRightEnd) {
    const auto copied = [](const std::string& src, int dstLen) {
        return Field(dstLen, [&](char* dst) {
            CopyRightAligned(dst, src.data(), dstLen, static_cast<int>(src.size()));
        });
    };
    EXPECT_EQ(copied("ABCDEFGHIJ", 4), "GHIJ");
    EXPECT_EQ(copied(std::string("AB\0DE", 5), 7), std::string("  AB\0\0\0", 7));
    EXPECT_EQ(copied(std::string("\0BCD", 4), 3), "BCD");
}

TEST(Codecs, RatesAreBiasedTowardsZeroSoThatThePrintCuts) {
    EXPECT_EQ(Double(BiasedRate(19.99, 1000, 1), 6, 2), "  1.99");
    EXPECT_EQ(Double(BiasedRate(-19.99, 1000, -1), 6, 2), " -1.99");
    EXPECT_EQ(Double(BiasedRate(0.01, 1000, 1), 6, 2), " -0.00");
    EXPECT_EQ(BiasedRate(5, 1000, 0), 0.5);
    EXPECT_EQ(BiasedRate(5, 0, 1), 0.0);
}

}  // namespace
