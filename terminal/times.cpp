#include "terminal/times.h"

#include <cstdio>

#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

namespace {

using std::chrono::days;
using std::chrono::floor;

std::chrono::hh_mm_ss<std::chrono::milliseconds> TimeOfDay(Timestamp time) {
    return std::chrono::hh_mm_ss(floor<std::chrono::milliseconds>(time - floor<days>(time)));
}

// The digits at a place of a text, or -1.
int Digits(const std::string& text, std::size_t at, std::size_t count) {
    int number = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        if (text[i] < '0' || text[i] > '9') {
            return -1;
        }
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

}  // namespace

tickhost_time BrokenDown(Timestamp time) {
    const std::chrono::year_month_day date(floor<days>(time));
    const auto clock = TimeOfDay(time);
    const auto narrow = [](auto number) { return static_cast<uint16_t>(number); };
    return {narrow(int{date.year()}),          narrow(unsigned{date.month()}),
            narrow(unsigned{date.day()}),      narrow(clock.hours().count()),
            narrow(clock.minutes().count()),   narrow(clock.seconds().count()),
            narrow(clock.subseconds().count())};
}

std::string DateText(Timestamp time) {
    const tickhost_time parts = BrokenDown(time);
    char text[sizeof("65535") + sizeof("65535") + sizeof("65535")];
    std::snprintf(text, sizeof(text), "%04u%02u%02u", parts.year, parts.month, parts.day);
    return text;
}

std::string TimeText(Timestamp time) {
    const auto clock = TimeOfDay(time);
    std::string text(6, '0');
    const auto put = [&text](std::size_t at, long number) {
        text[at] = static_cast<char>('0' + number / 10);
        text[at + 1] = static_cast<char>('0' + number % 10);
    };
    put(0, clock.hours().count());
    put(2, clock.minutes().count());
    put(4, clock.seconds().count());
    return text;
}

std::string ClockText(Timestamp time) {
    const std::string digits = TimeText(time);
    const std::string fraction = std::to_string(1000 + TimeOfDay(time).subseconds().count()).substr(1);
    return digits.substr(0, 2) + ":" + digits.substr(2, 2) + ":" + digits.substr(4) + "." + fraction;
}

Timestamp ParseDate(const std::string& text) {
    constexpr std::size_t kWidth = 8;
    constexpr int kFirstYear = 1971;
    constexpr int kLastYear = 2099;
    const int year = text.size() == kWidth ? Digits(text, 0, 4) : -1;
    const int month = year < 0 ? -1 : Digits(text, 4, 2);
    const int day = month < 0 ? -1 : Digits(text, 6, 2);
    if (day >= 0) {
        const std::chrono::year_month_day date(std::chrono::year(year),
                                               std::chrono::month(static_cast<unsigned>(month)),
                                               std::chrono::day(static_cast<unsigned>(day)));
        if (date.ok() && year >= kFirstYear && year <= kLastYear) {
            return std::chrono::sys_days(date);
        }
    }
    throw BadInput("--date " + Quoted(text) + " is no day; give YYYYMMDD from 19710101 to 20991231");
}

UtcOffset ParseUtcOffset(const std::string& text) {
    constexpr std::size_t kWidth = 6;
    constexpr int kLastHour = 14;
    constexpr int kLastMinute = 59;
    if (text.size() == kWidth && (text[0] == '+' || text[0] == '-') && text[3] == ':') {
        const int hours = Digits(text, 1, 2);
        const int minutes = Digits(text, 4, 2);
        if (hours >= 0 && hours <= kLastHour && minutes >= 0 && minutes <= kLastMinute) {
            const UtcOffset offset = std::chrono::hours(hours) + std::chrono::minutes(minutes);
            return text[0] == '-' ? -offset : offset;
        }
    }
    throw BadInput("--utc-offset " + Quoted(text) + " is none; give +HH:MM or -HH:MM");
}

}  // namespace tools
