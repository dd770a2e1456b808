// A scoped hold of a named system mutex. Holders of one name exclude each other, across the threads and
// processes that share it; a thread may hold it while holding it. The empty name excludes nothing.
#ifndef TICKMUX_MODULE_FRAMEWORK_GUARD_H
#define TICKMUX_MODULE_FRAMEWORK_GUARD_H

#include "host/platform/platform.h"

class MutexGuard {
public:
    explicit MutexGuard(const char* name)
        : m_hMutex(*name == '\0' ? nullptr : CreateMutexA(nullptr, FALSE, name)) {
        if (m_hMutex != nullptr) {
            WaitForSingleObject(m_hMutex, INFINITE);
        }
    }
    ~MutexGuard() {
        if (m_hMutex != nullptr) {
            ReleaseMutex(m_hMutex);
            CloseHandle(m_hMutex);
        }
    }
    MutexGuard(const MutexGuard&) = delete;
    MutexGuard& operator=(const MutexGuard&) = delete;

private:
    HANDLE m_hMutex;  // opened if the name exists already; null: no name, or the system has no mutex left
};

#endif
