// One text in place of all settings files, and what the boards and the monitor make of it.
#include <filesystem>

#include "fuzz/desk.h"
#include "fuzz/fold.h"
#include "fuzz/memory_file.h"

using namespace fuzz;

namespace {

// The files of the samples' world are this one from now on.
const MemoryFile& SettingsFile() {
    static const MemoryFile file;
    static const bool linked = [] {
        for (const char* name : {"EnvVar.ini", "Interest.ini", "InterestAlarm.ini", "TradeMonEnv.ini"}) {
            const std::string path = Desk::Get().World().Folder().Path(name);
            std::filesystem::remove(path);
            std::filesystem::create_symlink(file.Path(), path);
        }
        return true;
    }();
    static_cast<void>(linked);
    return file;
}

// The lists of sections and keys, in blocks of any size.
void ReadLists(const std::string& path, DWORD size) {
    const std::string_view sections[] = {"", "TRADE_MONITOR", "GROUP001"};
    for (const std::string_view section : sections) {
        const std::unique_ptr<char[]> list(new char[size]);
        const DWORD length = GetPrivateProfileStringA(section.empty() ? nullptr : section.data(), nullptr, "",
                                                      list.get(), size, path.c_str());
        Fold({list.get(), length});
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk& desk = Desk::Get();
    desk.Begin();
    SettingsFile().Hold({reinterpret_cast<const char*>(data), size});
    constexpr DWORD kMostListSize = 64;
    ReadLists(SettingsFile().Path(), 1 + static_cast<DWORD>(size) % kMostListSize);
    for (const char* map : {"RSFLDN01_R", "RSITST01_R", "RSODER01_R"}) {
        const Sample& sample = SampleOf(map);
        const Screen screen(sample.Map);
        screen.Init(sample.First);
        desk.Batch(sample.Packets);
    }
    return 0;
}
