// A workspace file, and its screens with some packets.
#include "tests/support/workspace.h"
#include "fuzz/memory_file.h"
#include "fuzz/tool_screens.h"
#include "terminal/errors.h"

using namespace fuzz;

namespace {

void Open(const tools::WorkspaceLine& line) {
    ToolScreen screen(tools::FindScreenKind(line.Map), tools::InitOf(line, {"20261120"}));
    Desk::Get().Batch(SampleOf(line.Map).Packets);
    screen.Show();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    Desk::Get().Begin();
    file.Hold({reinterpret_cast<const char*>(data), size});
    try {
        for (const tools::WorkspaceLine& line : tools::ReadWorkspace(file.Path())) {
            Open(line);
        }
    } catch (const tools::BadInput& bad) {
        Fold(bad.what());
    }
    return 0;
}
