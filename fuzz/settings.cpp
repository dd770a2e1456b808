// One text in place of all settings files, and what one of their readers makes of it, which a first byte
// tells.
#include <filesystem>

#include "fuzz/desk.h"
#include "fuzz/fold.h"
#include "fuzz/input.h"
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
    Input in(data, size);
    const unsigned choice = in.Byte();
    tickhost_set_tobrin_account(choice / 4 % 2 == 0 ? 0 : 1);
    SettingsFile().Hold(in.Rest());
    const char* const maps[] = {"RSFLDN01_R", "RSITST01_R", "RSODER01_R"};
    if (const unsigned map = choice % 4; map < std::size(maps)) {
        const Sample& sample = SampleOf(maps[map]);
        Screen screen(desk, sample.Map);
        screen.Init(sample.First);
        desk.Batch(sample.Packets);
    } else {
        ReadLists(SettingsFile().Path(), 1 + choice / 4);
    }
    return 0;
}
