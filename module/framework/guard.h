// A named system mutex that is open as long as it has its name, and a scoped hold of it.
//
// Holders of one name exclude each other, across the threads and processes that share it; a thread may hold
// it while holding it. The empty name excludes nothing.
#ifndef TICKMUX_MODULE_FRAMEWORK_GUARD_H
#define TICKMUX_MODULE_FRAMEWORK_GUARD_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

#include "host/platform/platform.h"

class NamedMutex {
public:
    // Who holds the mutex of the former name keeps it until the end of the hold. A longer name loses its
    // tail.
    void SetName(const char* name) {
        const std::size_t length = std::min(std::strlen(name), sizeof(m_szMutexName) - 1);
        std::memcpy(m_szMutexName, name, length);
        m_szMutexName[length] = '\0';
        m_pHandle = Open();
    }

private:
    friend class MutexGuard;
    using Handle = std::shared_ptr<void>;

    // Opened if the name exists already. Null: no name, or the system has no mutex left.
    Handle Open() const {
        if (*m_szMutexName == '\0') {
            return nullptr;
        }
        HANDLE mutex = CreateMutexA(nullptr, FALSE, m_szMutexName);
        try {
            return mutex == nullptr ? nullptr : Handle(mutex, &CloseHandle);
        } catch (...) {  // no memory; the handle is closed
            return nullptr;
        }
    }

    char m_szMutexName[20] = "";
    Handle m_pHandle;
};

class MutexGuard {
public:
    explicit MutexGuard(const NamedMutex& mutex) : m_pHandle(mutex.m_pHandle) {
        // A mutex that could not be had when it was named is asked for again, and so is that of a process
        // which began as a copy of another, without its handles.
        if (!IsTaken()) {
            m_pHandle = mutex.Open();
            IsTaken();
        }
    }
    ~MutexGuard() {
        if (m_pHandle != nullptr) {
            ReleaseMutex(m_pHandle.get());
        }
    }
    MutexGuard(const MutexGuard&) = delete;
    MutexGuard& operator=(const MutexGuard&) = delete;

private:
    bool IsTaken() const {
        return m_pHandle != nullptr && WaitForSingleObject(m_pHandle.get(), INFINITE) != WAIT_FAILED;
    }

    NamedMutex::Handle m_pHandle;
};

#endif
