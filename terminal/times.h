// Times of captures, real time, and how they read on the exchange's clock.
#ifndef TICKMUX_TERMINAL_TIMES_H
#define TICKMUX_TERMINAL_TIMES_H

#include <chrono>
#include <string>

#include "host/tickhost.h"

namespace tools {

using Timestamp = std::chrono::sys_time<std::chrono::nanoseconds>;
using UtcOffset = std::chrono::minutes;

tickhost_time BrokenDown(Timestamp time);

std::string DateText(Timestamp time);   // YYYYMMDD
std::string TimeText(Timestamp time);   // HHMMSS, as packets have it
std::string ClockText(Timestamp time);  // HH:MM:SS.mmm

// Midnight of a day. BadInput unless it is a day from 19710101 to 20991231.
Timestamp ParseDate(const std::string& text);

// +HH:MM or -HH:MM; BadInput otherwise.
UtcOffset ParseUtcOffset(const std::string& text);

}  // namespace tools

#endif
