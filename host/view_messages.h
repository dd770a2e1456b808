// view_messages.h - the messages that tell a window of items in a view queue.
#ifndef TICKMUX_HOST_VIEW_MESSAGES_H
#define TICKMUX_HOST_VIEW_MESSAGES_H

#include "host/platform.h"

inline constexpr UINT kViewMessage = 2244;  // wParam: the queue's address

// Takes back what still waits for the windows of other threads. A queue that goes calls it: the next queue
// may lie at the same address, and a window must not take that one's items for the sake of an old message.
void DropViewMessages(const void* queue);

#endif
