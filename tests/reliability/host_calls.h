// The module's calls of the platform, one by one: this program's own functions stand before the stand-in
// host's and pass on to them.
#ifndef TICKMUX_TESTS_RELIABILITY_HOST_CALLS_H
#define TICKMUX_TESTS_RELIABILITY_HOST_CALLS_H

#include <dlfcn.h>

#include <functional>

// The platform's function of the name, behind this program's own.
template <class Function>
Function* NextBehind(const char* name, Function* /*own*/) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// Runs `action` in front of the n-th call from now on, counted from 1.
void AtHostCall(int n, const std::function<void()>& action);
// Ends that; gives how many calls there were.
int HostCallsEnd();

// The n-th message from now on that would tell a screen of an item cannot be sent; 0: all can.
void RefuseViewMessage(int n);

#endif
