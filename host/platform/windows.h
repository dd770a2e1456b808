// windows.h - windows and their messages, as far as platform.h does not tell of them.
#ifndef TICKMUX_HOST_PLATFORM_WINDOWS_H
#define TICKMUX_HOST_PLATFORM_WINDOWS_H

#include <stdint.h>

#include "host/platform/platform.h"

// Runs on the thread that made the window.
using WindowProcedure = intptr_t (*)(void* context, HWND window, uint32_t message, uintptr_t wParam,
                                     intptr_t lParam);

// A window of the calling thread; null if memory fails. Without a procedure it answers every message with 0.
HWND MakeWindow(WindowProcedure procedure, void* context);
void EndWindow(HWND window);
void EndAllWindows();

// Runs what waits for the calling thread's windows, oldest first; gives how many messages ran.
int PumpMessages();

// Tells a window of an item in a view queue; wParam is the queue's address.
inline constexpr UINT kViewMessage = 2244;

// Takes back what still waits for the windows of other threads. A queue that goes calls it: the next queue
// may lie at the same address, and a window must not take that one's items for the sake of an old message.
void DropViewMessages(const void* queue);

#endif
