// The guards: what waits for them, what is done under them, and a holder that is killed.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <map>
#include <mutex>
#include <set>
#include <sstream>
#include <thread>

#include "module/framework/map_manager.h"
#include "tests/reliability/bare_host.h"
#include "tests/reliability/host_calls.h"
#include "tests/support/child_process.h"

namespace {

// The mutex calls of a thread: by name what it comes to wait for, and what it holds.
struct MutexWatch {
    std::function<void(const std::string& name)> OnWait = [](const std::string& /*name*/) {};
    std::multiset<std::string> Held = {};
};
thread_local MutexWatch* t_pWatch = nullptr;

// The name of each mutex, from when it was opened, which may be before somebody watches.
class MutexNames {
public:
    static void Set(HANDLE mutex, const char* name) {
        const std::lock_guard hold(The().m_Lock);
        The().m_Names[mutex] = name;
    }
    static std::string Of(HANDLE mutex) {
        const std::lock_guard hold(The().m_Lock);
        return The().m_Names[mutex];
    }

private:
    static MutexNames& The() {
        static auto* const names = new MutexNames;
        return *names;
    }

    std::mutex m_Lock;
    std::map<HANDLE, std::string> m_Names;
};

}  // namespace

HANDLE CreateMutexA(SECURITY_ATTRIBUTES* attributes, BOOL initialOwner, const char* name) {
    HANDLE mutex = NextBehind("CreateMutexA", &CreateMutexA)(attributes, initialOwner, name);
    MutexNames::Set(mutex, name);
    return mutex;
}
DWORD WaitForSingleObject(HANDLE mutex, DWORD milliseconds) {
    if (t_pWatch != nullptr) {
        EXPECT_EQ(milliseconds, INFINITE);
        t_pWatch->OnWait(MutexNames::Of(mutex));
        t_pWatch->Held.insert(MutexNames::Of(mutex));
        EXPECT_EQ(*t_pWatch->Held.begin(), *t_pWatch->Held.rbegin()) << "two guards held together";
    }
    return NextBehind("WaitForSingleObject", &WaitForSingleObject)(mutex, milliseconds);
}
BOOL ReleaseMutex(HANDLE mutex) {
    if (t_pWatch != nullptr) {
        t_pWatch->Held.erase(t_pWatch->Held.find(MutexNames::Of(mutex)));
    }
    return NextBehind("ReleaseMutex", &ReleaseMutex)(mutex);
}

namespace {

// Runs the action on another thread while somebody else holds the mutex; gives whether it came to the wait
// for it, and sees that it got through only once `giveBack` had begun.
bool WaitsFor(const std::string& name, const std::function<void()>& action,
              const std::function<void()>& giveBack) {
    std::promise<bool> waits;
    bool came = false;
    std::atomic<bool> given = false;
    std::thread other([&] {
        MutexWatch watch{[&](const std::string& of) {
            if (of == name && !std::exchange(came, true)) {
                waits.set_value(true);
            }
        }};
        t_pWatch = &watch;
        action();
        t_pWatch = nullptr;
        if (!came) {
            waits.set_value(false);
        }
        EXPECT_TRUE(given || !came);
    });
    const bool waited = waits.get_future().get();
    given = true;
    giveBack();
    other.join();
    return waited;
}

// The map guard is the mutex that the host names, the type guard one of the manager's address.
TEST(MapGuard, EachCallOfALifeWaitsForTheGuardsItNeeds) {
    BareHost host;
    const Sample& sample = SampleOf("RSNOCH21_R");  // asks nobody for anything
    std::string text = sample.First;
    std::string name = "guard" + std::to_string(getpid()) + "cutat19characters";
    CRTMMapManager manager;
    manager.SetMutexName(name.data());
    name.resize(19);
    std::ostringstream address;
    address << std::hex << reinterpret_cast<uintptr_t>(&manager);
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
    for (const std::string& guard : {name, address.str()}) {
        for (const auto& call : calls) {
            HANDLE mutex = CreateMutexA(nullptr, FALSE, guard.c_str());
            WaitForSingleObject(mutex, INFINITE);
            EXPECT_EQ(WaitsFor(guard, call.Run, [mutex] { ReleaseMutex(mutex); }),
                      guard == name || call.ChangesTypeLists)
                << call.Name << " for " << guard;
            CloseHandle(mutex);
        }
    }
}

TEST(MapGuard, RequestsGoOutUnderItAndPacketsRunWithoutAnyGuard) {
    BareHost host;
    std::string name = "guard" + std::to_string(getpid());
    SetMutexNameToDecoder(name.data());
    MutexWatch watch;
    t_pWatch = &watch;
    std::multiset<std::string> held;
    host.OnCall = [&] { EXPECT_EQ(watch.Held, held); };
    for (const Sample& sample : Samples()) {
        BareScreen screen(host, sample);
        held = {name};
        screen.Start();
        screen.Release();
        screen.InitSecond();
        held.clear();
        screen.Feed();
        BareScreen::EndBatch();
        held = {name};
        screen.Unregister();
    }
    t_pWatch = nullptr;
    SetMutexNameToDecoder(nullptr);
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
    screen.Unregister();
    SetMutexNameToDecoder(nullptr);
    EXPECT_FALSE(InSystem(name));
}

}  // namespace
