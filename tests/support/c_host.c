/* A host in C: the public header alone serves it. */

#include "host/tickhost.h"
#include "module/framework/tickmux.h"

int CHostRound(HWND window);

int CHostRound(HWND window) {
    char init[] = "T1";
    char packet[] = "A";
    char name[] = "";
    tickmux_handle handle = RegistMap(window, "RSETFNAV_R");
    SetMutexNameToDecoder(name);
    int calls = InitMap(handle, init) == 0 && PutRTMPacketToDecoder(packet, 1) == 1 && StopMap(handle) == 1 &&
                ReleaseMap(handle) == 1 && GetPacketDecoderInst(handle) != 0;
    EndRTMUnpackToDecoder();
    return UnregistMap(handle) == 1 && StopView() == 1 && calls;
}
