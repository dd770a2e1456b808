// The decoders of the plain form, one source file each, by the names of their maps.
#ifndef TICKMUX_BENCH_PLAIN_FACTORIES_H
#define TICKMUX_BENCH_PLAIN_FACTORIES_H

#include "bench/plain/framework.h"

namespace plain {

// Null: no such map.
Decoder* CreateDecoder(HWND window, const char* mapName);

Decoder* NewCRDUMMY01(HWND window);
Decoder* NewCRICAND11(HWND window);
Decoder* NewCRINTIK01(HWND window);
Decoder* NewCRINTIK11(HWND window);
Decoder* NewCRITRDE01(HWND window);
Decoder* NewCRITRDE02(HWND window);
Decoder* NewCRRNEWS01(HWND window);
Decoder* NewCRRPASS01(HWND window);
Decoder* NewCRSBRSM01(HWND window);
Decoder* NewCRSCAND11(HWND window);
Decoder* NewCRSDONE01(HWND window);
Decoder* NewCRSETFNAV(HWND window);
Decoder* NewCRSFLDN01(HWND window);
Decoder* NewCRSITST01(HWND window);
Decoder* NewCRSNOCH21(HWND window);
Decoder* NewCRSODER01(HWND window);
Decoder* NewCRSORDE21(HWND window);
Decoder* NewCRSORDE22(HWND window);
Decoder* NewCRSTICK11(HWND window);
Decoder* NewCRSTRBK01(HWND window);
Decoder* NewCRSTRDE01(HWND window);

}  // namespace plain

#endif
