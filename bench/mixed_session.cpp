// A mixed session through all 21 maps times 10: a generated capture, and the screens of a workspace.
//
//     bench_mixed_session [--benchmark_...] WORKSPACE CAPTURE

#include <iostream>

#include "bench/support/session.h"
#include "bench/support/workspace.h"
#include "terminal/capture.h"
#include "terminal/errors.h"

namespace {

constexpr int kTimes = 10;

// The first packets of the capture in one piece, with a batch end behind every so many as it has on average.
bench::Script ReadScript(const std::string& workspace, const std::string& capture) {
    bench::Script script;
    const std::vector<ScreenToOpen> screens = bench::ScreensOf(workspace);
    for (int time = 0; time < kTimes; ++time) {
        script.Screens.insert(script.Screens.end(), screens.begin(), screens.end());
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
        const bench::Script script = ReadScript(argv[argc - 2], argv[argc - 1]);
        return bench::Ask(argc - 2, argv,
                          {bench::Alone("a mixed session through all 21 maps times 10", script)});
    } catch (const tools::BadInput& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 2;
    }
}
