// The decoders of the plain form, one source file each, by the names of their maps.
#ifndef TICKMUX_BENCH_PLAIN_FACTORIES_H
#define TICKMUX_BENCH_PLAIN_FACTORIES_H

#include "bench/plain/framework.h"

namespace plain {

// Null: no such map.
Decoder* CreateDecoder(HWND window, const char* mapName);

Decoder* NewCRICAND11(HWND window);
Decoder* NewCRSCAND11(HWND window);
Decoder* NewCRSNOCH21(HWND window);
Decoder* NewCRSORDE21(HWND window);
Decoder* NewCRSORDE22(HWND window);
Decoder* NewCRSTICK11(HWND window);

}  // namespace plain

#endif
