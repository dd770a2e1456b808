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
 * - A map that is going does not start again: from within the requests of its own UnregistMap, InitMap,
 *   StopMap and ReleaseMap of it do nothing and give 0. While the module is unloaded that holds for InitMap
 *   of all maps, and RegistMap gives 0.
 * - Screens' windows live on any threads; a message to a window of the calling thread runs within the call.
 *   The communication manager's window gets each request by SendMessageA, which waits for the window's
 *   thread while the lifecycle call holds the map guard. That thread is the one that makes the lifecycle
 *   calls, or one that goes on serving messages meanwhile: a thread that itself waits for the map guard
 *   serves none, and both wait for ever.
 * - Items are fetched on any thread. A window that never fetches keeps every buffer in memory until the map's
 *   next InitMap, StopMap, ReleaseMap or UnregistMap; nothing else suffers. These calls take all waiting
 *   items out. Where the terminal's queue cannot do that in one step, a thread of the host's own holds the
 *   map guard while it fetches; otherwise it may get an item that is being freed.
 * - A message WM_TICKMUX_VIEW carries the address of its map's queue. Behind UnregistMap the next map's queue
 *   may lie there: before the next RegistMap the host destroys the closed screen's window, or lets it take
 *   its messages. Otherwise that window takes the other screen's items. The stand-in host takes back what
 *   waits of a queue that goes.
 * - A handle is not used after UnregistMap. The module does not notice; the memory may be another map's.
 * - The window may be destroyed at any time. Buffers that cannot reach it are freed.
 */
#ifndef TICKMUX_MODULE_FRAMEWORK_TICKMUX_H
#define TICKMUX_MODULE_FRAMEWORK_TICKMUX_H

#include <stdint.h>

#include "host/platform/platform.h"

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

/* A registered map; 0 is none. As wide as a pointer. */
#ifdef _WIN64
typedef uintptr_t tickmux_handle;
#else
typedef unsigned long tickmux_handle;
#endif

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

/* Destroys the decoder, which withdraws what it still subscribes to. Gives 1, or -1 for handle 0. A process
 * that ends with maps standing withdraws for them as well. */
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
#endif

#endif
