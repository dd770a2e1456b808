/*
 * platform.h - the Windows names that the module and its hosts use.
 *
 * On Windows this is <windows.h>. Elsewhere the same names, with the same meaning, are declared here
 * and live in the shared library `libtickhost`. Usable from C.
 */
#ifndef TICKMUX_HOST_PLATFORM_PLATFORM_H
#define TICKMUX_HOST_PLATFORM_PLATFORM_H

#ifdef _WIN32

#include <windows.h>
#define HOST_API

#else

#include <stdint.h>

#ifdef __cplusplus
#define HOST_EXTERN_C extern "C"
#else
#define HOST_EXTERN_C
#endif
#define HOST_API __attribute__((visibility("default")))
#define HOST_CALL HOST_EXTERN_C HOST_API

#define WINAPI /* one calling convention here */

typedef int BOOL;
typedef uint32_t UINT;
typedef uint32_t DWORD;
typedef uintptr_t WPARAM;
typedef intptr_t LPARAM;
typedef intptr_t LRESULT;
typedef void* HANDLE;
typedef struct HWND__* HWND;
typedef struct HINSTANCE__* HINSTANCE;

#define TRUE 1
#define FALSE 0

/* ---- windows */

#define WM_COPYDATA 0x004A

typedef struct tagCOPYDATASTRUCT {
    uintptr_t dwData;
    DWORD cbData;
    void* lpData;
} COPYDATASTRUCT;

HOST_CALL BOOL IsWindow(HWND window);
/* Runs the window's procedure and waits for its result; 0 for a window that is gone. */
HOST_CALL LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/* As SendMessageA for a window of this thread; for another thread's it queues and does not wait. */
HOST_CALL BOOL SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/* Queues, also for a window of this thread. */
HOST_CALL BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/* ---- named mutexes */

#define MUTEX_ALL_ACCESS 0x1F0001
#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0u
#define WAIT_ABANDONED 0x80u
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xFFFFFFFFu

typedef struct SECURITY_ATTRIBUTES SECURITY_ATTRIBUTES;

/* Null if no process holds a mutex of this name. */
HOST_CALL HANDLE OpenMutexA(DWORD access, BOOL inherit, const char* name);
/* A null or empty name gives a mutex of its own, that nobody else can open. */
HOST_CALL HANDLE CreateMutexA(SECURITY_ATTRIBUTES* attributes, BOOL initialOwner, const char* name);
/* WAIT_ABANDONED: owned, but the former owner died without giving it back. */
HOST_CALL DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);
HOST_CALL BOOL ReleaseMutex(HANDLE handle);
HOST_CALL BOOL CloseHandle(HANDLE handle);

/* ---- private profile files, read anew at each call */

/* The number at the head of the value, with its sign; the default if the key is missing. */
HOST_CALL UINT GetPrivateProfileIntA(const char* section, const char* key, int defaultValue,
                                     const char* path);
/*
 * The value, cut to `size` - 1 bytes and ended by a zero byte; gives its length. A null section lists the
 * sections, a null key the keys of the section, each zero-ended, with one more zero byte behind the last.
 */
HOST_CALL DWORD GetPrivateProfileStringA(const char* section, const char* key, const char* defaultValue,
                                         char* buffer, DWORD size, const char* path);

/* ---- clocks */

typedef struct SYSTEMTIME {
    uint16_t wYear;
    uint16_t wMonth;
    uint16_t wDayOfWeek; /* 0 is Sunday */
    uint16_t wDay;
    uint16_t wHour;
    uint16_t wMinute;
    uint16_t wSecond;
    uint16_t wMilliseconds;
} SYSTEMTIME;

HOST_CALL void GetLocalTime(SYSTEMTIME* time);
HOST_CALL void GetSystemTime(SYSTEMTIME* time);
/* Milliseconds since some start; wraps after 49.7 days. */
HOST_CALL DWORD GetTickCount(void);

/* ---- files */

/* Gives 0 if the folder exists already or cannot be made. */
HOST_CALL BOOL CreateDirectoryA(const char* path, SECURITY_ATTRIBUTES* attributes);

/* ---- the module's entry point */

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1

#endif /* _WIN32 */
#endif
