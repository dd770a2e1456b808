// clocks.h - the clocks of platform.h, held still.
#ifndef TICKMUX_HOST_PLATFORM_CLOCKS_H
#define TICKMUX_HOST_PLATFORM_CLOCKS_H

#include <stdint.h>

#include "host/platform/platform.h"

// Null: the clock follows the machine's.
void HoldLocalTime(const SYSTEMTIME* time);
void HoldSystemTime(const SYSTEMTIME* time);
void HoldTickCount(uint32_t milliseconds);
void ReleaseTickCount();

#endif
