// imports.h - what a module calls of the system, led to the stand-in.
#ifndef TICKMUX_HOST_WINDOWS_IMPORTS_H
#define TICKMUX_HOST_WINDOWS_IMPORTS_H

#include "host/platform/platform.h"

// From now on the module's clocks can be held, and its drive C is a folder.
void LeadImports(HINSTANCE module);

#endif
