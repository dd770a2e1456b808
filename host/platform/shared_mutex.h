// shared_mutex.h - a mutex in a shared-memory object of the system, for all processes that know its name.
#ifndef TICKMUX_HOST_PLATFORM_SHARED_MUTEX_H
#define TICKMUX_HOST_PLATFORM_SHARED_MUTEX_H

#include <pthread.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

// What the processes share, or what an unnamed mutex keeps for itself.
struct MutexState {
    std::atomic<uint32_t> Ready;  // written last of all: the rest is made
    uint32_t Abandoned;           // the last owner was a thread that ended; guarded by Mutex
    pthread_mutex_t Mutex;        // robust, so that the system passes on what a dead process held

    bool Make();  // false: the system refuses
};

// This process's part in a named mutex. The object is there as long as some process has a part in it: each
// holds a shared lock on the object's descriptor, and who gets the exclusive one is alone.
class SharedMutex {
public:
    // Null: refused, or `create` is false and no process has a part in it. `created`: this process is the
    // first.
    static std::unique_ptr<SharedMutex> Open(const std::string& name, bool create, bool& created);

    SharedMutex(const SharedMutex&) = delete;
    SharedMutex& operator=(const SharedMutex&) = delete;
    ~SharedMutex();

    MutexState& State() { return *m_pState; }
    // Gives the part up, and takes the object away if nobody else has one; the memory stays mapped.
    void Withdraw();
    // In a child after fork: the part stays the parent's.
    void Forget();

private:
    SharedMutex(std::string object, int flags);
    bool Make();    // alone: also wipes what a process left that died
    bool Attach();  // false: the object was taken away meanwhile, or is not made

    std::string m_Object;
    int m_Descriptor;
    MutexState* m_pState = nullptr;
};

#endif
