// One text in place of all settings files, and what one of their readers makes of it, which a first byte
// tells.
#include <filesystem>

#include "fuzz/desk.h"
#include "fuzz/memory_file.h"

using namespace fuzz;

namespace {

// The files of the samples' world are links to it.
struct SettingsFile : MemoryFile {
    SettingsFile() {
        for (const char* name : {"EnvVar.ini", "Interest.ini", "InterestAlarm.ini", "TradeMonEnv.ini"}) {
            const std::string link = Desk::Get().World().Folder().Path(name);
            std::filesystem::remove(link);
            std::filesystem::create_symlink(Path(), link);
        }
    }
};

// The lists of sections and keys, in blocks of any size.
void ReadLists(const std::string& path, DWORD size) {
    const std::unique_ptr<char[]> list(new char[size]);
    for (const char* section : {static_cast<const char*>(nullptr), "TRADE_MONITOR", "GROUP001"}) {
        Fold({list.get(), GetPrivateProfileStringA(section, nullptr, "", list.get(), size, path.c_str())});
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static const SettingsFile file;
    Desk::Get().Begin();
    Input in(data, size);
    const unsigned choice = in.Byte();
    tickhost_set_tobrin_account(choice / 4 % 2 == 0 ? 0 : 1);
    file.Hold(in.Rest());
    const char* const maps[] = {"RSFLDN01_R", "RSITST01_R", "RSODER01_R"};
    if (const unsigned map = choice % 4; map < std::size(maps)) {
        const Sample& sample = SampleOf(maps[map]);
        Screen screen(Desk::Get(), sample.Map);
        screen.Init(sample.First);
        Desk::Get().Batch(sample.Packets);
    } else {
        ReadLists(file.Path(), 1 + choice / 4);
    }
    return 0;
}
