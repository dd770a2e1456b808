// A mixed session through all 21 maps times 10: a generated capture, and the screens of a workspace.
//
//     bench_mixed_session [--benchmark_...] WORKSPACE CAPTURE

#include <filesystem>
#include <iostream>

#include "bench/support/session.h"
#include "tools/capture.h"
#include "tools/errors.h"
#include "tools/screens/screen.h"
#include "tools/workspace.h"

namespace {

constexpr int kTimes = 10;

// The first packets of the capture in one piece, with a batch end behind every so many as it has on average.
bench::Script ReadScript(const std::string& workspace, const std::string& capture) {
    bench::Script script;
    for (int time = 0; time < kTimes; ++time) {
        for (const tools::WorkspaceLine& line : tools::ReadWorkspace(workspace)) {
            const tools::ScreenKind& kind = tools::FindScreenKind(line.Map);
            tools::InitText init = kind.MakeInit(line.Key, {"20261120"});
            for (const auto& [name, value] : line.Fields) {
                init.Set(name, value);
            }
            kind.Complete(init);
            script.Screens.push_back({line.Map, std::string(init.Bytes())});
        }
    }
    constexpr std::size_t kMostPackets = 4000;
    std::size_t batches = 1;
    tools::CaptureReader reader(capture);
    tools::CaptureRecord record{};
    while (script.Feed.size() < kMostPackets && reader.Next(record)) {
        if (record.EndsBatch()) {
            ++batches;
        } else {
            script.Feed.emplace_back(record.Bytes, static_cast<std::size_t>(record.Length));
        }
    }
    script.nBatch = script.Feed.size() / batches + 1;
    return script;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: " << argv[0] << " [options] WORKSPACE CAPTURE\n";
        return 2;
    }
    try {
        const std::string workspace = argv[argc - 2];
        const std::string folder = std::filesystem::path(workspace).parent_path().string();
        tickhost_set_text("UserDir", folder.c_str());
        tickhost_set_text("DataDir", folder.c_str());
        tickhost_set_text("UserID", "TRADER01");
        tickhost_set_master(0, 0, nullptr, nullptr, nullptr);
        tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
        const bench::Script script = ReadScript(workspace, argv[argc - 1]);
        return bench::Ask(argc - 2, argv,
                          {bench::Compare("a mixed session through all 21 maps times 10", 8, script)});
    } catch (const tools::BadInput& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 2;
    }
}
