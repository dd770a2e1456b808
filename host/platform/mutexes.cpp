// Mutexes and their handles.
//
// A thread that owns a mutex keeps it in being, also when its handle is closed. What a thread owns at its end
// is given up there; what a process owns when it is killed, the system gives up. A child of fork starts
// without handles and owns nothing; its parent's stay as they are.
#include <pthread.h>
#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif
#include <time.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/platform/guarded.h"
#include "host/platform/per_thread.h"
#include "host/platform/platform.h"
#include "host/platform/shared_mutex.h"

namespace {

// One per name and process.
struct Mutex {
    std::unique_ptr<SharedMutex> Named;   // null: unnamed
    std::unique_ptr<MutexState> Unnamed;  // null: named

    MutexState& State() const { return Named != nullptr ? Named->State() : *Unnamed; }
};
using MutexPointer = std::shared_ptr<Mutex>;

// What one thread owns, each with how often it took it.
struct Ownership {
    MutexPointer Of;
    uint32_t Times;
};
struct Ownerships {
    Ownerships() = default;
    Ownerships(const Ownerships&) = delete;
    Ownerships& operator=(const Ownerships&) = delete;
    ~Ownerships() {
        for (const Ownership& held : Held) {
            held.Of->State().Abandoned = 1;
            pthread_mutex_unlock(&held.Of->State().Mutex);
        }
    }

    std::vector<Ownership>::iterator Find(const MutexPointer& mutex) {
        return std::find_if(Held.begin(), Held.end(),
                            [&](const Ownership& held) { return held.Of == mutex; });
    }

    std::vector<Ownership> Held;
};
using OfThisThread = PerThread<Ownerships>;

struct Table {
    Table();
    HANDLE Add(MutexPointer mutex) {
        auto* const handle = reinterpret_cast<HANDLE>(LastHandle + 1);
        Handles.emplace(handle, std::move(mutex));
        ++LastHandle;
        return handle;
    }

    std::mutex Lock;
    std::unordered_map<HANDLE, MutexPointer> Handles;
    std::map<std::string, std::weak_ptr<Mutex>> Names;
    uintptr_t LastHandle = 0;
};

Table& TheTable() {
    static auto* const table = new Table;  // libraries that are unloaded last may still take a mutex
    return *table;
}

template <class Action>
void ForEachNamed(const Table& table, Action action) {
    for (const auto& [name, known] : table.Names) {
        if (const MutexPointer mutex = known.lock()) {
            action(*mutex->Named);
        }
    }
}

void AfterForkInChild() {
    Table& table = TheTable();
    ForEachNamed(table, [](SharedMutex& mutex) { mutex.Forget(); });
    if (Ownerships* const own = OfThisThread::Peek()) {
        own->Held.clear();
    }
    table.Handles.clear();
    table.Names.clear();
    table.Lock.unlock();
}

Table::Table() {
    pthread_atfork([] { TheTable().Lock.lock(); }, [] { TheTable().Lock.unlock(); }, AfterForkInChild);
}

// A process that ends has no part in any mutex.
struct AtExit {
    ~AtExit() {
        Table& table = TheTable();
        const std::lock_guard hold(table.Lock);
        ForEachNamed(table, [](SharedMutex& mutex) { mutex.Withdraw(); });
    }
};
AtExit g_AtExit;

MutexPointer Lookup(HANDLE handle) {
    Table& table = TheTable();
    const std::lock_guard hold(table.Lock);
    const auto found = table.Handles.find(handle);
    return found == table.Handles.end() ? nullptr : found->second;
}

MutexPointer MakeUnnamed() {
    auto mutex = std::make_shared<Mutex>();
    mutex->Unnamed = std::make_unique<MutexState>();
    return mutex->Unnamed->Make() ? mutex : nullptr;
}

// Under the table's lock. Null: refused, or not there and not to be created.
MutexPointer OpenNamed(Table& table, const char* name, bool create, bool& created) {
    const auto known = table.Names.find(name);
    MutexPointer mutex = known == table.Names.end() ? nullptr : known->second.lock();
    if (mutex == nullptr) {
        mutex = std::make_shared<Mutex>();
        mutex->Named = SharedMutex::Open(name, create, created);
        if (mutex->Named == nullptr) {
            return nullptr;
        }
        table.Names[name] = mutex;
        std::erase_if(table.Names, [](const auto& each) { return each.second.expired(); });
    }
    return mutex;
}

int LockUntil(pthread_mutex_t& mutex, const timespec& until) {
#ifdef __SANITIZE_THREAD__  // it does not know this call, and has to be told
    __tsan_mutex_pre_lock(&mutex, __tsan_mutex_try_lock);
    const int result = pthread_mutex_clocklock(&mutex, CLOCK_MONOTONIC, &until);
    const bool locked = result == 0 || result == EOWNERDEAD;
    __tsan_mutex_post_lock(&mutex, __tsan_mutex_try_lock | (locked ? 0U : __tsan_mutex_try_lock_failed), 0);
    return result;
#else
    return pthread_mutex_clocklock(&mutex, CLOCK_MONOTONIC, &until);
#endif
}

int Take(pthread_mutex_t& mutex, DWORD milliseconds) {
    if (milliseconds == INFINITE) {
        return pthread_mutex_lock(&mutex);
    }
    if (milliseconds == 0) {
        return pthread_mutex_trylock(&mutex);
    }
    timespec until{};
    clock_gettime(CLOCK_MONOTONIC, &until);
    until.tv_sec += static_cast<time_t>(milliseconds / 1000);
    until.tv_nsec += static_cast<long>(milliseconds % 1000) * 1000000;
    if (until.tv_nsec >= 1000000000) {
        until.tv_nsec -= 1000000000;
        ++until.tv_sec;
    }
    return LockUntil(mutex, until);
}

DWORD Wait(const MutexPointer& mutex, DWORD milliseconds) {
    Ownerships& own = OfThisThread::Get();
    if (const auto held = own.Find(mutex); held != own.Held.end()) {
        ++held->Times;
        return WAIT_OBJECT_0;
    }
    own.Held.reserve(own.Held.size() + 1);
    MutexState& state = mutex->State();
    DWORD result = WAIT_OBJECT_0;
    switch (Take(state.Mutex, milliseconds)) {
        case 0:
            break;
        case EOWNERDEAD:
            pthread_mutex_consistent(&state.Mutex);
            result = WAIT_ABANDONED;
            break;
        case EBUSY:
        case ETIMEDOUT:
            return WAIT_TIMEOUT;
        default:
            return WAIT_FAILED;
    }
    if (state.Abandoned != 0) {
        state.Abandoned = 0;
        result = WAIT_ABANDONED;
    }
    own.Held.push_back({mutex, 1});
    return result;
}

}  // namespace

HANDLE CreateMutexA(SECURITY_ATTRIBUTES* /*attributes*/, BOOL initialOwner, const char* name) {
    return OrRefuse(HANDLE{nullptr}, [&]() -> HANDLE {
        const bool named = name != nullptr && *name != '\0';
        Table& table = TheTable();
        const std::lock_guard hold(table.Lock);
        bool created = !named;
        const MutexPointer mutex = named ? OpenNamed(table, name, true, created) : MakeUnnamed();
        if (mutex == nullptr) {
            return nullptr;
        }
        if (initialOwner != FALSE && created) {
            Wait(mutex, 0);
        }
        return table.Add(mutex);
    });
}

HANDLE OpenMutexA(DWORD /*access*/, BOOL /*inherit*/, const char* name) {
    if (name == nullptr || *name == '\0') {
        return nullptr;
    }
    return OrRefuse(HANDLE{nullptr}, [&]() -> HANDLE {
        Table& table = TheTable();
        const std::lock_guard hold(table.Lock);
        bool created = false;
        const MutexPointer mutex = OpenNamed(table, name, false, created);
        return mutex == nullptr ? nullptr : table.Add(mutex);
    });
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    return OrRefuse(DWORD{WAIT_FAILED}, [&] {
        const MutexPointer mutex = Lookup(handle);
        return mutex == nullptr ? WAIT_FAILED : Wait(mutex, milliseconds);
    });
}

BOOL ReleaseMutex(HANDLE handle) {
    const MutexPointer mutex = Lookup(handle);
    Ownerships* const own = OfThisThread::Peek();
    if (mutex == nullptr || own == nullptr) {
        return FALSE;
    }
    const auto held = own->Find(mutex);
    if (held == own->Held.end()) {
        return FALSE;
    }
    if (--held->Times == 0) {
        pthread_mutex_unlock(&mutex->State().Mutex);
        own->Held.erase(held);
    }
    return TRUE;
}

BOOL CloseHandle(HANDLE handle) {
    MutexPointer last;  // outlives the lock: what goes with it is no business of the table's
    Table& table = TheTable();
    const std::lock_guard hold(table.Lock);
    const auto found = table.Handles.find(handle);
    if (found == table.Handles.end()) {
        return FALSE;
    }
    last = std::move(found->second);
    table.Handles.erase(found);
    return TRUE;
}
