// A workspace file, and its screens with some packets.
#include "terminal/workspace.h"
#include "fuzz/memory_file.h"
#include "fuzz/tool_screens.h"

using namespace fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk::Get().Begin();
    return ReadAsFile(Input(data, size).Rest(), [](const std::string& path) {
        for (const tools::WorkspaceLine& line : tools::ReadWorkspace(path)) {
            ToolScreen screen(tools::FindScreenKind(line.Map), tools::InitOf(line, {"20261120"}));
            Desk::Get().Batch(SampleOf(line.Map).Packets);
            screen.Show();
        }
    });
}
