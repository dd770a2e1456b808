// The clocks: the machine's, or held still.
#include <time.h>

#include <atomic>
#include <mutex>
#include <optional>

#include "host/platform/clocks.h"
#include "host/platform/platform.h"

namespace {

struct HeldTime {
    std::mutex Lock;
    std::optional<SYSTEMTIME> Time;

    void Set(const std::optional<SYSTEMTIME>& time) {
        const std::lock_guard hold(Lock);
        Time = time;
    }
    std::optional<SYSTEMTIME> Get() {
        const std::lock_guard hold(Lock);
        return Time;
    }
};

HeldTime g_Local;
HeldTime g_System;
std::atomic<uint64_t> g_HeldTicks = 0;  // bit 32: held

void Hold(HeldTime& clock, const SYSTEMTIME* time) {
    clock.Set(time == nullptr ? std::nullopt : std::optional(*time));
}

using Calendar = tm* (*)(const time_t*, tm*);

void Read(HeldTime& clock, Calendar calendar, SYSTEMTIME* time) {
    if (time == nullptr) {
        return;
    }
    if (const std::optional<SYSTEMTIME> held = clock.Get()) {
        *time = *held;
        return;
    }
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm parts{};
    calendar(&now.tv_sec, &parts);
    const auto narrow = [](long number) { return static_cast<uint16_t>(number); };
    *time = {narrow(parts.tm_year + 1900), narrow(parts.tm_mon + 1),     narrow(parts.tm_wday),
             narrow(parts.tm_mday),        narrow(parts.tm_hour),        narrow(parts.tm_min),
             narrow(parts.tm_sec),         narrow(now.tv_nsec / 1000000)};
}

}  // namespace

void GetLocalTime(SYSTEMTIME* time) {
    Read(g_Local, localtime_r, time);
}

void GetSystemTime(SYSTEMTIME* time) {
    Read(g_System, gmtime_r, time);
}

DWORD GetTickCount(void) {
    if (const uint64_t held = g_HeldTicks; held != 0) {
        return static_cast<DWORD>(held);
    }
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<DWORD>(static_cast<uint64_t>(now.tv_sec) * 1000 +
                              static_cast<uint64_t>(now.tv_nsec) / 1000000);
}

void HoldLocalTime(const SYSTEMTIME* time) {
    Hold(g_Local, time);
}

void HoldSystemTime(const SYSTEMTIME* time) {
    Hold(g_System, time);
}

void HoldTickCount(uint32_t milliseconds) {
    g_HeldTicks = uint64_t{1} << 32 | milliseconds;
}

void ReleaseTickCount() {
    g_HeldTicks = 0;
}
