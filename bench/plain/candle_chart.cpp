#include "bench/plain/candle_chart.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace plain {

int StepSeconds(char period) {
    switch (period) {
        case 'B':
            return 30;
        case 'C':
            return 60;
        case 'E':
            return 3 * 60;
        case 'G':
            return 5 * 60;
        case 'H':
            return 10 * 60;
        case 'I':
            return 15 * 60;
        case 'J':
            return 30 * 60;
        case 'K':
            return 60 * 60;
        default:
            return 0;
    }
}

int Remainder(char period, const std::string& time) {
    if (period == 'B') {
        return atoi(time.substr(4, 2).c_str()) % 30;
    }
    const int minutesAndSeconds = atoi(time.substr(2, 4).c_str());
    if (period == 'K') {
        return minutesAndSeconds;
    }
    return minutesAndSeconds % std::max(1, StepSeconds(period) / 60 * 100);
}

std::string LaterTime(const std::string& time, int seconds) {
    const int day = 24 * 60 * 60;
    const int hour = atoi(time.substr(0, 2).c_str());
    const int minute = atoi(time.substr(2, 2).c_str());
    const int second = atoi(time.substr(4, 2).c_str());
    const int total = (((hour * 60 + minute) * 60 + second + seconds) % day + day) % day;
    char text[40];
    snprintf(text, sizeof(text), "%02d%02d%02d", total / 3600, total / 60 % 60, total % 60);
    return text;
}

}  // namespace plain
