/*
 * tickmux.h - what a host sees of the module. Usable from C.
 *
 * The module turns real-time packets into display buffers for the terminal's screens. The host opens one
 * decoder per screen (RegistMap), starts it with the answer of the screen's inquiry (InitMap), feeds packets
 * and closes each batch of them (PutRTMPacketToDecoder, EndRTMUnpackToDecoder). Finished buffers wait in the
 * decoder's view queue, one for each message WM_TICKMUX_VIEW that the screen's window gets.
 *
 * The host's duty, since the packet path takes no lock, and what happens otherwise:
 * - Packets and batch ends come from one thread at a time. Otherwise two handlers write the same rows, and
 *   the heap is lost.
 * - RegistMap, UnregistMap, InitMap, StopMap and ReleaseMap do not run while another thread is inside the
 *   packet path. The map guard is a named mutex so that the host can hold it too: around each batch, and
 *   around each of these calls. Otherwise a packet meets a decoder that is half built, or gone.
 * - Who is called by the module (a window by a message, the communication manager by a request) may call
 *   back: packets, batch ends, RegistMap, and InitMap, StopMap and ReleaseMap of any map. It does not call
 *   UnregistMap, for any map: its decoder would be gone under the handler or the walk that is running.
 * - Items are fetched on any thread. A window that never fetches keeps every buffer in memory until the map's
 *   next InitMap, StopMap, ReleaseMap or UnregistMap; nothing else suffers.
 * - A handle is not used after UnregistMap. The module does not notice; the memory may be another map's.
 * - The window may be destroyed at any time. Buffers that cannot reach it are freed.
 */
#ifndef TICKMUX_FRAMEWORK_TICKMUX_H
#define TICKMUX_FRAMEWORK_TICKMUX_H

#include <stdint.h>

#include "host/platform.h"

#ifdef _WIN32
#define TICKMUX_CALL __stdcall
#ifdef TICKMUX_BUILD
#define TICKMUX_API __declspec(dllexport)
#else
#define TICKMUX_API __declspec(dllimport)
#endif
#else
#define TICKMUX_CALL
#define TICKMUX_API __attribute__((visibility("default")))
#endif

/* To the screen's window: one item has been added to the queue whose address is wParam. */
#define WM_TICKMUX_VIEW 2244
/* To the screen's window: the decoder's list has changed; no data goes with it. */
#define WM_TICKMUX_LIST 2248

/* dwData of the WM_COPYDATA that carries a subscription record to the communication manager. */
#define TICKMUX_COPYDATA_SUBSCRIPTION 176

/* A registered map; 0 is none. */
typedef uintptr_t tickmux_handle;

#ifdef __cplusplus
class CRTMPacketDecoder;
extern "C" {
#else
typedef struct CRTMPacketDecoder CRTMPacketDecoder;
#endif

/*
 * A module that the framework has refused at load is not ready: then RegistMap and UnregistMap give -1,
 * the others 0, and nothing happens.
 */

/* A decoder for the screen `hWnd`; gives its handle, or 0 for an unknown map or when memory fails. */
TICKMUX_API tickmux_handle TICKMUX_CALL RegistMap(HWND hWnd, const char* mapName);

/* Destroys the decoder, which withdraws what it still subscribes to. Gives 1, or -1 for handle 0. */
TICKMUX_API int TICKMUX_CALL UnregistMap(tickmux_handle handle);

/*
 * Starts the decoder, or starts it over, with the zero-terminated answer of the screen's inquiry: two bytes
 * of request tag, then the map's own body. Gives non-zero if the decoder takes packets from now on. The
 * buffer stays the host's. Raises the framework's invalid-argument exception for handle 0.
 */
TICKMUX_API int TICKMUX_CALL InitMap(tickmux_handle handle, char* buffer);

/* Packets no longer reach the decoder; it keeps its data and subscriptions. 1, or 0 for handle 0. */
TICKMUX_API int TICKMUX_CALL StopMap(tickmux_handle handle);

/* As StopMap, and the decoder gives up data and subscriptions. 1, or 0 for handle 0. */
TICKMUX_API int TICKMUX_CALL ReleaseMap(tickmux_handle handle);

/* The decoder behind a handle. Raises the framework's invalid-argument exception for handle 0. */
TICKMUX_API CRTMPacketDecoder* TICKMUX_CALL GetPacketDecoderInst(tickmux_handle handle);

/* One packet, whole, with its type byte; `length` counts that byte. The packet stays the host's. Gives 1. */
TICKMUX_API int TICKMUX_CALL PutRTMPacketToDecoder(char* packet, int length);

/* Closes a batch: every decoder sends what the batch has changed. */
TICKMUX_API void TICKMUX_CALL EndRTMUnpackToDecoder(void);

/* Names the mutex of the map guard, 19 characters at most. Until then the guard excludes nothing. */
TICKMUX_API void TICKMUX_CALL SetMutexNameToDecoder(char* name);

/* Sends the cancel record, which names the user, to the communication manager. 1 if it went out. */
TICKMUX_API int TICKMUX_CALL StopView(void);

#ifdef __cplusplus
}
#include "framework/map_manager.h"
#endif

#endif
