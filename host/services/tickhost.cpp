// What tickhost.h says of clocks and windows, by the platform's own; and the reset of all.
#include <chrono>

#include "host/platform/clocks.h"
#include "host/platform/windows.h"
#include "host/services/exports.h"
#include "host/services/resets.h"

namespace {

uint16_t DayOfWeek(const tickhost_time& time) {
    if (time.month < 1 || time.month > 12) {
        return 0;
    }
    const std::chrono::sys_days first = std::chrono::year(time.year) / time.month / 1;
    const std::chrono::weekday day(first + std::chrono::days(time.day) - std::chrono::days(1));
    return static_cast<uint16_t>(day.c_encoding());
}

// Holds a clock at a time; null: follows the machine's.
void Hold(void (*clock)(const SYSTEMTIME*), const tickhost_time* time) {
    if (time == nullptr) {
        clock(nullptr);
        return;
    }
    const SYSTEMTIME held{time->year, time->month,  DayOfWeek(*time), time->day,
                          time->hour, time->minute, time->second,     time->millisecond};
    clock(&held);
}

}  // namespace

void tickhost_set_local_time(const tickhost_time* time) {
    Hold(&HoldLocalTime, time);
}

void tickhost_set_system_time(const tickhost_time* time) {
    Hold(&HoldSystemTime, time);
}

void tickhost_set_tick_count(int fixed, uint32_t milliseconds) {
    fixed == 0 ? ReleaseTickCount() : HoldTickCount(milliseconds);
}

HWND tickhost_create_window(tickhost_window_proc procedure, void* context) {
    return MakeWindow(procedure, context);
}

void tickhost_destroy_window(HWND window) {
    EndWindow(window);
}

int tickhost_pump_messages(void) {
    return PumpMessages();
}

void tickhost_reset(void) {
    ResetTexts();
    ResetServices();
    ResetFramework();
    Hold(&HoldLocalTime, nullptr);
    Hold(&HoldSystemTime, nullptr);
    ReleaseTickCount();
    EndAllWindows();
}
