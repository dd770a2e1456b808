// The guards: what waits for them, what is done under them, and a holder that is killed.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <set>
#include <sstream>
#include <thread>

#include "framework/map_manager.h"
#include "tests/reliability/bare_host.h"
#include "tests/support/child_process.h"

namespace {

// The mutex calls of one thread, as long as it lives. No thread may hold two guards.
class MutexWatch {
public:
    MutexWatch() { t_pThis = this; }
    ~MutexWatch() { t_pThis = nullptr; }
    MutexWatch(const MutexWatch&) = delete;
    MutexWatch& operator=(const MutexWatch&) = delete;
    static MutexWatch* OfThisThread() { return t_pThis; }

    void Wait(HANDLE mutex, DWORD milliseconds) const {
        EXPECT_EQ(milliseconds, INFINITE);
        OnWait(Names.at(mutex));
    }
    void Taken(HANDLE mutex) {
        Held.insert(Names[mutex]);
        EXPECT_EQ(*Held.begin(), *Held.rbegin()) << "held together";
    }
    void Given(HANDLE mutex) { Held.erase(Held.find(Names[mutex])); }

    std::function<void(const std::string& name)> OnWait = [](const std::string& /*name*/) {};
    std::map<HANDLE, std::string> Names;
    std::multiset<std::string> Held;

private:
    static thread_local MutexWatch* t_pThis;
};
thread_local MutexWatch* MutexWatch::t_pThis = nullptr;

// The next function of the name, behind this program's.
template <class Function>
Function* Behind(const char* name, Function* /*own*/) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

HANDLE CreateMutexA(SECURITY_ATTRIBUTES* attributes, BOOL initialOwner, const char* name) {
    HANDLE mutex = Behind("CreateMutexA", &CreateMutexA)(attributes, initialOwner, name);
    if (MutexWatch* const watch = MutexWatch::OfThisThread()) {
        watch->Names[mutex] = name;
    }
    return mutex;
}
DWORD WaitForSingleObject(HANDLE mutex, DWORD milliseconds) {
    MutexWatch* const watch = MutexWatch::OfThisThread();
    watch != nullptr ? watch->Wait(mutex, milliseconds) : void();
    const DWORD result = Behind("WaitForSingleObject", &WaitForSingleObject)(mutex, milliseconds);
    watch != nullptr ? watch->Taken(mutex) : void();
    return result;
}
BOOL ReleaseMutex(HANDLE mutex) {
    MutexWatch* const watch = MutexWatch::OfThisThread();
    watch != nullptr ? watch->Given(mutex) : void();
    return Behind("ReleaseMutex", &ReleaseMutex)(mutex);
}

namespace {

// Runs the action on another thread while somebody else holds the mutex; gives whether it came to the wait
// for it, and sees that it got through only once `giveBack` had begun.
bool WaitsFor(const std::string& name, const std::function<void()>& action,
              const std::function<void()>& giveBack) {
    std::promise<bool> waits;
    std::atomic<bool> given = false;
    std::thread other([&] {
        bool waited = false;
        {
            MutexWatch watch;
            watch.OnWait = [&](const std::string& of) {
                if (of == name && !std::exchange(waited, true)) {
                    waits.set_value(true);
                }
            };
            action();
        }
        EXPECT_TRUE(given || !waited);
        waited ? void() : waits.set_value(false);
    });
    const bool waited = waits.get_future().get();
    given = true;
    giveBack();
    other.join();
    return waited;
}

std::string InHex(const void* address) {
    std::ostringstream text;
    text << std::hex << reinterpret_cast<uintptr_t>(address);
    return text.str();
}

// The map guard is the mutex that the host names, the type guard one of the manager's address.
TEST(MapGuard, EachCallOfALifeWaitsForIt) {
    BareHost host;
    const Sample& sample = SampleOf("RSNOCH21_R");  // asks nobody for anything
    std::string text = sample.First;
    std::string name = "guard" + std::to_string(getpid()) + "cutat19characters";
    CRTMMapManager manager;
    manager.SetMutexName(name.data());
    name.resize(19);
    const std::string address = InHex(&manager);
    tickmux_handle map = 0;
    const struct {
        const char* Name;
        std::function<void()> Run;
        bool ChangesTypeLists;
    } calls[] = {
        {"RegistMap", [&] { map = manager.RegistMapDecoder(nullptr, sample.Map.c_str()); }, true},
        {"InitMap", [&] { EXPECT_EQ(manager.InitMapDecoder(map, text.data()), 1); }, false},
        {"StopMap", [&] { manager.StopMapDecoder(map); }, false},
        {"ReleaseMap", [&] { manager.ReleaseMapDecoder(map); }, false},
        {"UnregistMap", [&] { manager.UnregistMapDecoder(map); }, true},
        {"ClearMap", [&] { manager.ClearMap(); }, true},
    };
    for (const std::string& guard : {name, address}) {
        HANDLE mutex = CreateMutexA(nullptr, TRUE, guard.c_str());
        for (const auto& call : calls) {
            const bool waited = WaitsFor(guard, call.Run, [mutex] { ReleaseMutex(mutex); });
            EXPECT_EQ(waited, guard == name || call.ChangesTypeLists) << call.Name << " for " << guard;
            WaitForSingleObject(mutex, INFINITE);
        }
        ReleaseMutex(mutex);
        CloseHandle(mutex);
    }
}

// Requests go out under the map guard; messages of packets and batches under none.
TEST(MapGuard, IsHeldWhereADecoderStartsAndEndsAndNotWherePacketsRun) {
    BareHost host;
    std::string name = "guard" + std::to_string(getpid());
    SetMutexNameToDecoder(name.data());
    CRTMMapManager manager;
    manager.SetMutexName(name.data());
    const std::multiset<std::string> guarded = {name};
    MutexWatch watch;
    for (const Sample& sample : Samples()) {
        BareScreen screen(host, sample);
        host.OnCall = [&] { EXPECT_EQ(watch.Held, guarded) << sample.Map; };
        screen.Regist();
        screen.InitFirst();
        screen.InitSecond();
        host.OnCall = [&] { EXPECT_TRUE(watch.Held.empty()) << sample.Map; };
        screen.Feed();
        BareScreen::EndBatch();
        host.OnCall = [&] { EXPECT_EQ(watch.Held, guarded) << sample.Map; };
        ReleaseMap(screen.Handle);
        screen.InitFirst();
        screen.Unregist();
        std::string text = sample.First;
        manager.InitMapDecoder(manager.RegistMapDecoder(nullptr, sample.Map.c_str()), text.data());
        manager.ClearMap();
        EXPECT_TRUE(watch.Held.empty());
    }
    EXPECT_GT(host.nRequests, 0);
    name.clear();
    SetMutexNameToDecoder(name.data());
}

TEST(MapGuard, AWaiterGoesOnWhenTheHolderIsKilled) {
    using namespace std::chrono_literals;
    std::string name = "guard" + std::to_string(getpid());
    BareHost host;
    BareScreen screen(host, SampleOf("RSNOCH21_R"));
    screen.Regist();
    SetMutexNameToDecoder(name.data());
    for (int round = 0; round < 100; ++round) {
        Child holder([&name] {
            if (WaitForSingleObject(CreateMutexA(nullptr, FALSE, name.c_str()), 1000) == WAIT_TIMEOUT) {
                _exit(1);
            }
        });
        EXPECT_TRUE(InSystem(name));
        ASSERT_TRUE(WaitsFor(
            name, [&screen] { EXPECT_EQ(screen.InitFirst(), 1); },
            [&] {
                std::this_thread::sleep_for(round % 2 * 1ms);
                holder.Kill();
            }));
    }
    screen.Unregist();
    EXPECT_FALSE(InSystem(name));
    name.clear();
    SetMutexNameToDecoder(name.data());
}

}  // namespace
