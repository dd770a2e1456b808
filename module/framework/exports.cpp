// The module's front door: the ready word, load and unload, the ten exported functions.

#include <utility>

#include "host/platform/module_entry.h"
#include "host/services/services.h"
#include "module/framework/map_manager.h"
#include "module/framework/tickmux.h"

// Load order: the manager is constructed here, the factory list is a constant of the image, and the entry
// point below sets the ready word last. Unload runs back: ~CRTMMapManager destroys every decoder, so that
// each still withdraws its subscriptions.
CRTMMapManager g_RTMMapManager;

namespace {

AFX_EXTENSION_MODULE g_Extension{};
HINSTANCE g_hReady = nullptr;  // the module-ready word; not cleared at unload

bool IsReady() {
    return g_hReady != nullptr;
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        if (AfxInitExtensionModule(g_Extension, instance) == FALSE) {
            return FALSE;
        }
        new CDynLinkLibrary(g_Extension);  // the framework's from here on
        g_hReady = instance;
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(g_Extension);
    }
    return TRUE;
}

MODULE_ENTRY(DllMain)

tickmux_handle TICKMUX_CALL RegistMap(HWND hWnd, const char* mapName) {
    return IsReady() ? g_RTMMapManager.RegistMapDecoder(hWnd, mapName) : static_cast<tickmux_handle>(-1);
}

int TICKMUX_CALL UnregistMap(tickmux_handle handle) {
    return IsReady() ? g_RTMMapManager.UnregistMapDecoder(handle) : -1;
}

int TICKMUX_CALL InitMap(tickmux_handle handle, char* buffer) {
    return IsReady() ? g_RTMMapManager.InitMapDecoder(handle, buffer) : 0;
}

int TICKMUX_CALL StopMap(tickmux_handle handle) {
    return IsReady() ? g_RTMMapManager.StopMapDecoder(handle) : 0;
}

int TICKMUX_CALL ReleaseMap(tickmux_handle handle) {
    return IsReady() ? g_RTMMapManager.ReleaseMapDecoder(handle) : 0;
}

CRTMPacketDecoder* TICKMUX_CALL GetPacketDecoderInst(tickmux_handle handle) {
    return IsReady() ? g_RTMMapManager.GetPacketDecoder(handle) : nullptr;
}

int TICKMUX_CALL PutRTMPacketToDecoder(char* packet, int length) {
    return IsReady() ? g_RTMMapManager.PutRTMPacket(packet, length) : 0;
}

void TICKMUX_CALL EndRTMUnpackToDecoder() {
    if (IsReady()) {
        g_RTMMapManager.EndRTMUnpack();
    }
}

void TICKMUX_CALL SetMutexNameToDecoder(char* name) {
    if (IsReady()) {
        g_RTMMapManager.SetMutexName(name);
    }
}

int TICKMUX_CALL StopView() {
    return IsReady() ? g_RTMMapManager.StopMapComplete() : 0;
}
