// A file of stocks and brokers.
#include "terminal/master_data.h"

#include "fuzz/memory_file.h"

using namespace fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    return ReadAsFile(Input(data, size).Rest(), [](const std::string& path) {
        const tools::MasterData master = tools::ReadMasterData(path);
        for (const auto* entries : {&master.Stocks, &master.Brokers}) {
            for (const tools::MasterEntry& entry : *entries) {
                Fold(entry.Code + entry.Name + entry.Mark);
            }
        }
    });
}
