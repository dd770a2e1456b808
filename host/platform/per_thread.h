// per_thread.h - one object per thread, made when first asked for and destroyed when the thread ends.
//
// Static objects of other libraries are destroyed after the main thread's own objects, and may still call in.
// MainThread tells what they meet: the main thread's object, which then ends with the process, or a new one,
// which lasts until the process has ended.
#ifndef TICKMUX_HOST_PLATFORM_PER_THREAD_H
#define TICKMUX_HOST_PLATFORM_PER_THREAD_H

#include <unistd.h>

enum class MainThread { EndsAsOthers, EndsWithProcess };

template <class T, MainThread Main = MainThread::EndsAsOthers>
class PerThread {
public:
    // Null: this thread has not asked for one.
    static T* Peek() { return s_pObject; }

    static T& Get() {
        if (s_pObject == nullptr) {
            s_pObject = new T;
            static thread_local End end;
        }
        return *s_pObject;
    }

private:
    struct End {
        ~End() {
            if (Main == MainThread::EndsAsOthers || gettid() != getpid()) {
                delete s_pObject;
                s_pObject = nullptr;
            }
        }
    };

    static inline thread_local T* s_pObject = nullptr;
};

#endif
