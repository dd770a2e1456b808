// A file of stocks and brokers.
#include "terminal/master_data.h"

#include "fuzz/fold.h"
#include "fuzz/memory_file.h"
#include "terminal/errors.h"

using namespace fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.Hold({reinterpret_cast<const char*>(data), size});
    try {
        const tools::MasterData master = tools::ReadMasterData(file.Path());
        for (const auto* entries : {&master.Stocks, &master.Brokers}) {
            for (const tools::MasterEntry& entry : *entries) {
                Fold(entry.Code + entry.Name + entry.Mark);
            }
        }
    } catch (const tools::BadInput& bad) {
        Fold(bad.what());
    }
    return 0;
}
