#include "module/decoders/charts/CandleClock.h"

namespace {

constexpr int kMinute = 60;
constexpr int kHour = 60 * kMinute;
constexpr int kDay = 24 * kHour;

void PutTwoDigits(char* dst, int value) {
    dst[0] = static_cast<char>('0' + value / 10);
    dst[1] = static_cast<char>('0' + value % 10);
}

}  // namespace

const Period* FindPeriod(char period) {
    for (const Period& known : kPeriods) {
        if (known.Char == period) {
            return &known;
        }
    }
    return nullptr;
}

ClockTime Later(const ClockTime& time, int seconds) {
    const int hours = AsciiToLong(time.Text, 2);
    const int minutes = AsciiToLong(time.Text + 2, 2);
    const int rest = AsciiToLong(time.Text + 4, 2);
    const int sum = hours * kHour + minutes * kMinute + rest + seconds;
    const int ofDay = (sum % kDay + kDay) % kDay;
    ClockTime later;
    PutTwoDigits(later.Text, ofDay / kHour);
    PutTwoDigits(later.Text + 2, ofDay % kHour / kMinute);
    PutTwoDigits(later.Text + 4, ofDay % kMinute);
    return later;
}
