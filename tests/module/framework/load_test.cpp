// Load and unload, as a host does them: this program opens the module by its file.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include "host/platform/platform.h"
#include "host/tickhost.h"
#include "module/wire/subscription_record.h"
#include "tests/reliability/allocations.h"
#include "tests/support/host_parts.h"
#include "tests/support/inquiries.h"
#include "tests/support/samples.h"

namespace {

// The ten functions, by name out of the library.
class LoadedModule {
public:
    LoadedModule() : m_pLibrary(dlopen(TICKMUX_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(m_pLibrary, nullptr) << dlerror();
    }
    ~LoadedModule() { dlclose(m_pLibrary); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    template <class Function>
    Function* Find(const char* name) const {
        return reinterpret_cast<Function*>(dlsym(m_pLibrary, name));
    }
    template <class Result, class... Arguments>
    Result Call(const char* name, Arguments... arguments) const {
        return Find<Result(Arguments...)>(name)(arguments...);
    }
    uintptr_t Open(HWND window, std::string init, const char* map = "RSETFNAV_R") const {
        const auto handle = Call<uintptr_t>("RegistMap", window, map);
        EXPECT_EQ((Call<int>("InitMap", handle, init.data())), 1);
        return handle;
    }

private:
    void* m_pLibrary;
};

bool IsMapped() {
    std::ifstream maps("/proc/self/maps");
    return std::string(std::istreambuf_iterator<char>(maps), {}).find("libtickmux") != std::string::npos;
}

// Counts adds and deletes that reach the communication manager.
class Requests {
public:
    Requests() { tickhost_set_communication_manager(WindowOf(*this)); }
    ~Requests() { tickhost_reset(); }
    Requests(const Requests&) = delete;
    Requests& operator=(const Requests&) = delete;

    void OnMessage(uint32_t /*message*/, uintptr_t /*wParam*/, intptr_t lParam) {
        const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const auto& record = *static_cast<const tagRTMTRSTCDINFO*>(data.lpData);
        ++m_Count[record.nOperation];
        OnRequest(record);
    }
    // As many deletes as adds, the same number each round.
    bool Balanced(int rounds) const {
        return m_Count[0] > 0 && m_Count[0] % rounds == 0 && m_Count[0] == m_Count[1];
    }
    std::string Told() const { return std::to_string(m_Count[0]) + " " + std::to_string(m_Count[1]); }

    std::function<void(const tagRTMTRSTCDINFO&)> OnRequest = [](const auto&) {};

private:
    int m_Count[3] = {};
};

// Lines of the library's list of symbols, as a shell's filters leave them.
std::set<std::string> Symbols(const std::string& which) {
    FILE* list = popen(("nm -D -C " TICKMUX_LIBRARY " " + which).c_str(), "r");
    std::set<std::string> names;
    char name[1000];
    while (list != nullptr && fscanf(list, " %999[^\n]", name) == 1) {
        names.insert(name);
    }
    EXPECT_EQ(pclose(list), 0);
    return names;
}

TEST(Load, ExportsTheTenFunctionsAndTheManagerAndNothingElse) {
    std::set<std::string> expected = {"EndRTMUnpackToDecoder",
                                      "GetPacketDecoderInst",
                                      "InitMap",
                                      "PutRTMPacketToDecoder",
                                      "RegistMap",
                                      "ReleaseMap",
                                      "SetMutexNameToDecoder",
                                      "StopMap",
                                      "StopView",
                                      "UnregistMap"};
    for (const char* member :
         {"CRTMMapManager()", "~CRTMMapManager()", "SetMutexName(char*)",
          "RegistMapDecoder(HWND__*, char const*)", "UnregistMapDecoder(unsigned long)",
          "InitMapDecoder(unsigned long, char*)", "StopMapDecoder(unsigned long)",
          "ReleaseMapDecoder(unsigned long)", "RegistPacketType(tagMAPINFO*, char*)",
          "GetPacketDecoder(unsigned long)", "PutRTMPacket(char*, int)", "EndRTMUnpack()",
          "AddTrStcdInfo(char*, int, char, unsigned long)", "DelTrStcdInfo(char*, int, char, unsigned long)",
          "SendCancelInfo()", "StopMapComplete()", "ClearMap()", "SendQuery(tagRTMTRSTCDINFO*)"}) {
        expected.insert(std::string("CRTMMapManager::") + member);
    }
    EXPECT_EQ(Symbols("--defined-only | cut -d' ' -f3-"), expected);
}

// A terminal's own queue has no more than these calls; emptying it is the last, a function of ours.
TEST(Load, ImportsOfTheQueueWhatATerminalHas) {
    const std::set<std::string> known = {"CRtmPtrList::CRtmPtrList()", "CRtmPtrList::~CRtmPtrList()",
                                         "CRtmPtrList::AddTail(void*)", "CRtmPtrList&, void (*)(void*))"};
    EXPECT_EQ(Symbols("--undefined-only | grep -o 'CRtmPtrList[:&].*'"), known);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kOwnPages = false;  // the sanitizers keep books of every library
constexpr int kRounds = 100;
#else
constexpr bool kOwnPages = true;
constexpr int kRounds = 10000;
#endif

int64_t ResidentBytes() {
    int64_t size = 0;
    int64_t resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

// With all maps open at the unload.
TEST(Load, UnloadWithdrawsEveryScreenAndLeavesNothing) {
    constexpr int kWarmUp = 20;
    constexpr int64_t kLittle = int64_t{256} * 1024;
    const Requests requests;
    const SampleWorld world;
    HWND window = tickhost_create_window(nullptr, nullptr);
    heap::Use before{};
    int64_t resident = 0;
    for (int round = 0; round < kRounds; ++round) {
        if (round == kWarmUp) {
            before = heap::InUse();
            resident = ResidentBytes();
        }
        const LoadedModule module;
        for (const Sample& sample : Samples()) {
            module.Open(window, sample.First, sample.Map.c_str());
        }
    }
    EXPECT_EQ(heap::InUse().Blocks, before.Blocks);
    EXPECT_EQ(heap::InUse().Bytes, before.Bytes);
    EXPECT_TRUE(!kOwnPages || ResidentBytes() <= resident + kLittle) << ResidentBytes() - resident;
    EXPECT_TRUE(requests.Balanced(kRounds)) << requests.Told();
    EXPECT_FALSE(IsMapped());
    const LoadedModule module;
    EXPECT_TRUE(IsMapped());
}

TEST(Load, NothingStartsWhileTheModuleGoes) {
    Requests requests;
    const SampleWorld world;
    for (const Sample& sample : Samples()) {
        requests.OnRequest = [](const auto&) {};
        const LoadedModule module;
        const auto regist = module.Find<uintptr_t(HWND, const char*)>("RegistMap");
        const auto init = module.Find<int(uintptr_t, char*)>("InitMap");
        module.Open(nullptr, sample.First, sample.Map.c_str());
        const uintptr_t last = module.Open(nullptr, sample.First, sample.Map.c_str());
        requests.OnRequest = [=, &sample, again = sample.Second](const auto&) mutable {
            EXPECT_EQ(init(last, again.data()), 0) << sample.Map;
            EXPECT_EQ(regist(nullptr, sample.Map.c_str()), 0U);
        };
    }
    EXPECT_TRUE(requests.Balanced(1)) << requests.Told();
}

TEST(Load, UnloadEndsScreensInOrderOfRegistration) {
    Requests requests;
    std::string order;
    requests.OnRequest = [&](const tagRTMTRSTCDINFO& record) { order += record.szCode[1]; };
    {
        const LoadedModule module;
        for (const char* key : {"1A", "1B", "1C"}) {
            module.Open(nullptr, NavInquiry(key));
        }
    }
    EXPECT_EQ(order, "ABCABC");
}

TEST(Load, GradeIsReadOnceAndShutsOffRequestsForGood) {
    const Requests requests;
    for (const auto& [grade, later, requested] : {std::tuple("9991", "1", "0 0"), {"1", "999", "1 1"}}) {
        {
            tickhost_set_text("UserGrade", grade);
            const LoadedModule module;
            tickhost_set_text("UserGrade", later);
            module.Open(nullptr, NavInquiry("1FUND"));
            EXPECT_EQ(std::to_string(module.Call<int>("StopView")), std::string(requested).substr(0, 1));
        }
        EXPECT_EQ(requests.Told(), requested);
    }
}

TEST(Load, ARefusedModuleIsNotReady) {
    const Requests requests;
    tickhost_refuse_attach(1);
    const LoadedModule module;
    tickhost_refuse_attach(0);
    std::string packet = "A";
    EXPECT_EQ((module.Call<uintptr_t, HWND, const char*>("RegistMap", nullptr, "RSETFNAV_R")), UINTPTR_MAX);
    EXPECT_EQ((module.Call<int, uintptr_t>("UnregistMap", 0)), -1);
    for (const char* call : {"InitMap", "StopMap", "ReleaseMap", "StopView"}) {
        EXPECT_EQ((module.Call<int, uintptr_t>(call, 0)), 0) << call;
    }
    EXPECT_EQ((module.Call<void*, uintptr_t>("GetPacketDecoderInst", 0)), nullptr);
    EXPECT_EQ((module.Call<int>("PutRTMPacketToDecoder", packet.data(), 1)), 0);
    module.Call<void>("EndRTMUnpackToDecoder");
    module.Call<void>("SetMutexNameToDecoder", packet.data());
}

}  // namespace
