// Writes first inputs of all targets into a folder, which is emptied before: the samples, and a short session
// of the feed generator.
//
//     fuzz_seeds FOLDER terminal/samples
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "feed/feed.h"
#include "fuzz/desk.h"
#include "terminal/screens/screen.h"

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
    for (const char* map : {"RSCAND11_R", "RICAND11_R"}) {
        for (const char period : std::string_view("ABDFGHIJKLMN")) {
            const tools::ScreenKind& kind = tools::FindScreenKind(map);
            tools::InitText init = kind.MakeInit(kind.SampleKey, {"20261120"});
            init.Set("Period", std::string(1, period));
            Write(corpus / map / (std::string("seed-period-") + period), std::string(init.Bytes()));
        }
    }
}

// All samples of a map, each in a batch of its own, after each of its Init texts.
void WritePackets(const fs::path& corpus) {
    for (std::size_t map = 0; map < Samples().size(); ++map) {
        std::string batches;
        for (const std::string& packet : Samples()[map].Packets) {
            ((batches += '\0') += packet) += '\xFF';
        }
        for (const fs::directory_entry& init : fs::directory_iterator(corpus / Samples()[map].Map)) {
            const std::string text = Whole(init.path());
            Write(corpus / "packets" / (Samples()[map].Map + "-" + init.path().filename().string()),
                  static_cast<char>(map) + text.substr(0, text.find('\0')) + '\0' + batches);
        }
    }
}

// Open, Init, packets, batch end, the other Init, stop, release, close, as the calls target numbers them.
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
    char reader = 0;
    for (const char* name : {"EnvVar.ini", "Interest.ini", "InterestAlarm.ini", "TradeMonEnv.ini"}) {
        settings += Whole(samples / name);
        Write(corpus / "settings" / (std::string("seed-") + name),
              reader++ + Whole(Desk::Get().World().Folder().Path(name)));
    }
    for (reader = 0; reader < 4; ++reader) {
        Write(corpus / "settings" / ("seed-all-" + std::to_string(reader)), reader + settings);
        Write(corpus / "settings" / ("seed-market-" + std::to_string(reader)),
              static_cast<char>(reader + 4) + std::string("[TRADE_MONITOR]\nALL=1\n") + settings);
    }
    std::ifstream workspace(samples / "sample.workspace");
    std::string line;
    for (int number = 1; std::getline(workspace, line); ++number) {
        Write(corpus / "workspace" / ("seed-" + std::to_string(number)), line + "\n");
    }
    Write(corpus / "master_data" / "seed", "# known\nstock ASII \"ASII shares\"\nbroker AB Broker 2\n");
}

// One to each kind of screen.
void WriteCaptures(const fs::path& corpus) {
    const fs::path file = corpus / "session";
    tools::CaptureWriter capture(file);
    tools::FeedOptions options;
    options.Minutes = 2;
    options.Packets = 6;
    options.Stocks = 2;
    options.Orders = options.Brokers = options.News = options.Others = 50;
    tools::Feed feed(options, capture);
    while (feed.WriteBatch()) {
    }
    capture.Close();
    for (std::size_t kind = 0; kind < tools::ScreenKinds().size(); ++kind) {
        Write(corpus / "capture" / ("seed-" + std::to_string(kind)), static_cast<char>(kind) + Whole(file));
    }
    fs::remove(file);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: fuzz_seeds FOLDER terminal/samples\n", stderr);
        return 2;
    }
    fs::remove_all(argv[1]);
    WriteInits(argv[1]);
    WritePackets(argv[1]);
    WriteCalls(argv[1]);
    WriteFiles(argv[1], argv[2]);
    WriteCaptures(argv[1]);
    return 0;
}
