// A chart's periods, and the clock arithmetic on times as text HHMMSS. It knows no zone and no date: a step
// past midnight begins again at 000000.
#ifndef TICKMUX_MODULE_DECODERS_CHARTS_CANDLECLOCK_H
#define TICKMUX_MODULE_DECODERS_CHARTS_CANDLECLOCK_H

#include <cstdint>

#include "module/wire/codecs.h"
#include "module/wire/shapes.h"

// Times are texts of six digits and compare as such.
struct ClockTime {
    char Text[6];

    bool operator==(const ClockTime& other) const { return SameBytes(*this, other); }
    bool After(const ClockTime& other) const { return Order() > other.Order(); }

    // A number for each text, in the order of the texts: what compilers know as two loads.
    uint64_t Order() const {
        const auto at = [this](int place) { return uint32_t{static_cast<unsigned char>(Text[place])}; };
        const uint64_t first = at(0) << 24 | at(1) << 16 | at(2) << 8 | at(3);
        return first << 16 | at(4) << 8 | at(5);
    }
};
static_assert(sizeof(ClockTime) == 6);

inline constexpr ClockTime kNoTime = {{'9', '9', '9', '9', '9', '9'}};  // behind every time of a day

inline ClockTime TimeOf(const char (&text)[6]) {
    ClockTime time;
    Put(time.Text, text);
    return time;
}

// One period: a time lies on a boundary if the number that its last digits make leaves no remainder. The
// number MMSS is decimal, so that three minutes are 300.
struct Period {
    char Char;
    int Digits;  // 2: SS, 4: MMSS; 0: no clock rule
    int Divisor;
    int StepSeconds;

    int Remainder(const ClockTime& time) const {
        return AsciiToLong(time.Text + sizeof(time.Text) - Digits, Digits) % Divisor;
    }
    bool OnBoundary(const ClockTime& time) const { return Remainder(time) == 0; }
};

inline constexpr char kHalfMinutes = 'B';
inline constexpr char kMinutes = 'C';
inline constexpr char kHours = 'K';
inline constexpr char kDays = 'L';

// clang-format off
inline constexpr Period kPeriods[] = {
    {kTickList,    0, 1,     0},
    {kHalfMinutes, 2, 30,    30},
    {kMinutes,     4, 100,   60},
    {'E',          4, 300,   3 * 60},
    {'G',          4, 500,   5 * 60},
    {'H',          4, 1000,  10 * 60},
    {'I',          4, 1500,  15 * 60},
    {'J',          4, 3000,  30 * 60},
    {kHours,       4, 10000, 60 * 60},  // MMSS is 0000
    {kDays,        0, 1,     0},        // one candle, the day's
};
// clang-format on
inline constexpr Period kNoPeriod = {' ', 0, 1, 0};

// Gives null for a char that stands for no period.
const Period* FindPeriod(char period);

// `time` and so many seconds more.
ClockTime Later(const ClockTime& time, int seconds);

#endif
