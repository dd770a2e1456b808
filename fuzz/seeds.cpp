// Writes the corpus's first inputs: the samples, and a short session of the feed generator.
//
//     fuzz_seeds FOLDER tools/samples
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/desk.h"
#include "fuzz/packet_sizes.h"
#include "tools/feed.h"
#include "tools/screens/screen.h"

using namespace fuzz;

namespace {

namespace fs = std::filesystem;

void Write(const fs::path& file, const std::string& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string Whole(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// The second text is the first one's successor, too.
void WriteInits(const fs::path& corpus) {
    for (const Sample& sample : Samples()) {
        const std::string made(tools::FindScreenKind(sample.Map)
                                   .MakeInit(tools::FindScreenKind(sample.Map).SampleKey, {"20261120"})
                                   .Bytes());
        Write(corpus / sample.Map / "seed-first", sample.First);
        Write(corpus / sample.Map / "seed-both", sample.Second + '\0' + sample.First);
        Write(corpus / sample.Map / "seed-tools", made);
    }
}

// All samples of a map, in one batch and in many, after either Init text.
void WritePackets(const fs::path& corpus) {
    for (const Sample& sample : Samples()) {
        std::string batch(1, '\0');
        std::string batches(1, '\1');
        for (const std::string& packet : sample.Packets) {
            (batch += '\0') += packet;
            ((batches += '\0') += packet) += '\xFF';
        }
        Write(corpus / "packets" / ("seed-batch-" + sample.Map), batch);
        Write(corpus / "packets" / ("seed-batches-" + sample.Map), batches);
    }
}

// The calls are those of the target: open, Init, packets, batch end, the other Init, stop, release, close.
void WriteCalls(const fs::path& corpus) {
    for (std::size_t map = 0; map < Samples().size(); ++map) {
        std::string calls{'\7', static_cast<char>(map)};
        for (const char call : "\10\12\2\10\12\3\12\13\12\10\12\15\14\17") {
            (calls += call) += static_cast<char>(calls.size() % 4 / 2);
        }
        Write(corpus / "calls" / ("seed-" + Samples()[map].Map), calls);
    }
}

void WriteFiles(const fs::path& corpus, const fs::path& samples) {
    std::string settings;
    for (const char* name : {"EnvVar.ini", "Interest.ini", "InterestAlarm.ini", "TradeMonEnv.ini"}) {
        settings += Whole(samples / name);
        Write(corpus / "settings" / (std::string("seed-") + name),
              Whole(Desk::Get().World().Folder().Path(name)));
    }
    Write(corpus / "settings" / "seed-all", settings);
    std::ifstream workspace(samples / "sample.workspace");
    std::string line;
    for (int number = 1; std::getline(workspace, line); ++number) {
        Write(corpus / "workspace" / ("seed-" + std::to_string(number)), line + "\n");
    }
    Write(corpus / "master_data" / "seed", "# known\nstock ASII \"ASII shares\"\nbroker AB Broker 2\n");
}

void WriteCapture(const fs::path& corpus) {
    fs::create_directories(corpus / "capture");
    tools::CaptureWriter capture(corpus / "capture" / "seed");
    tools::FeedOptions options;
    options.Minutes = 3;
    options.Packets = 20;
    options.Stocks = 2;
    options.Orders = options.News = options.Others = 20;
    tools::Feed feed(options, capture);
    while (feed.WriteBatch()) {
    }
    capture.Close();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: fuzz_seeds FOLDER tools/samples\n", stderr);
        return 2;
    }
    WriteInits(argv[1]);
    WritePackets(argv[1]);
    WriteCalls(argv[1]);
    WriteFiles(argv[1], argv[2]);
    WriteCapture(argv[1]);
    return 0;
}
