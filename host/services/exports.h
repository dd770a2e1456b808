// exports.h - tickhost.h for the sources that define it: the header is plain C, and all that the library
// does not mark is hidden.
#ifndef TICKMUX_HOST_SERVICES_EXPORTS_H
#define TICKMUX_HOST_SERVICES_EXPORTS_H

#pragma GCC visibility push(default)
#include "host/tickhost.h"
#pragma GCC visibility pop

#endif
