// tickreplay - replays a capture of the packet stream through the module, and shows what screens receive.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "tools/errors.h"
#include "tools/options.h"
#include "tools/pace.h"
#include "tools/replay.h"
#include "tools/report.h"
#include "tools/screens/candles.h"
#include "tools/text.h"
#include "tools/workspace.h"

namespace {

using namespace tools;

constexpr char kHelp[] =
    "Usage: tickreplay [options] WORKSPACE CAPTURE\n"
    "\n"
    "Opens the screens that WORKSPACE names, feeds them CAPTURE (- is standard input), and prints the last\n"
    "image of each screen and a summary.\n"
    "\n"
    "  --follow             print each buffer as it comes, with the capture's time\n"
    "  --rows N             newest rows of a list in its last image (default 10)\n"
    "  --speed X            0.1 to 1000 times real time (default: as fast as it goes)\n"
    "  --utc-offset +HH:MM  the exchange's clock against the capture's times (default +00:00)\n"
    "  --strict             stop at the first packet of unknown type or wrong length, and at the first "
    "message\n"
    "                       that contradicts its table; without it such a message gives a warning\n"
    "  --user ID            who is logged in (default TRADER01, the user of feedgen's orders)\n"
    "  --user-dir DIR       the folder of the user's InterestAlarm.ini, TradeMonEnv.ini and Interest.ini\n"
    "                       (default: that of WORKSPACE)\n"
    "  --data-dir DIR       the folder of EnvVar.ini (default: that of WORKSPACE)\n"
    "  --master FILE        the stocks and brokers that the trade monitor knows (default: feedgen's), in "
    "lines\n"
    "                       stock CODE NAME and broker CODE NAME MARK, with a mark of 0, 1 or 2\n"
    "  --drive-c DIR        the folder that stands for drive C, where the module logs\n"
    "  --module PATH        the module (default: ../lib/libtickmux.so beside this program)\n"
    "  --layouts            print all Init texts and display buffers as Markdown, and do nothing else\n"
    "  --help               print this\n"
    "\n"
    "The last image of a chart draws its candles, one a column: o rising, # falling, - unchanged.\n"
    "A panel shows the fields from FirstField to LastField of its line (default: all); the volume by price "
    "has\n"
    "bars against the largest one.\n"
    "The pass-through shows the newest packet of each type, field by field.\n"
    "The interest board knows feedgen's base prices; those of other stocks are for its line to tell.\n"
    "A line of WORKSPACE is MAP KEY [Field=value ...], such as: RSTICK11_R 1ASII Date=20261120\n"
    "The key of news is the first digit of its categories, 0 for all. Subscription holder and pass-through "
    "take\n"
    "items CODE:TYPES with the packet types that are wanted: RRPASS01_R 1ASII:ABCD,COMP:EF,1FUND01:N,:T0\n"
    "A capture is a pcap file of link type USER0; feedgen writes one.\n"
    "Exit status: 0 done, 1 failed, 2 bad input.\n";

struct Arguments {
    ReplayOptions Replay;
    UtcOffset Offset{0};
    std::size_t Rows = 10;
    TerminalOptions Terminal{Module::DefaultPath(), "TRADER01", "", "", "", {}};
    std::string Master;
    std::string Workspace;
    std::string Capture;
    std::string Print;  // a text that is all that was asked for
};

Arguments ReadArguments(int argc, char** argv) {
    constexpr int64_t kMostRows = 1'000'000;
    static const option options[] = {
        {"follow", no_argument, nullptr, 'f'},         {"rows", required_argument, nullptr, 'r'},
        {"speed", required_argument, nullptr, 's'},    {"utc-offset", required_argument, nullptr, 'u'},
        {"strict", no_argument, nullptr, 't'},         {"user", required_argument, nullptr, 'i'},
        {"user-dir", required_argument, nullptr, 'e'}, {"data-dir", required_argument, nullptr, 'd'},
        {"master", required_argument, nullptr, 'a'},   {"drive-c", required_argument, nullptr, 'c'},
        {"module", required_argument, nullptr, 'm'},   {"layouts", no_argument, nullptr, 'l'},
        {"help", no_argument, nullptr, 'h'},           {nullptr, 0, nullptr, 0}};
    Arguments arguments;
    const int next = ReadOptions(argc, argv, options, [&arguments](int name, const std::string& value) {
        switch (name) {
            case 'f':
                arguments.Replay.Follow = true;
                break;
            case 'r':
                arguments.Rows = static_cast<std::size_t>(NumberOption("rows", value, 0, kMostRows));
                break;
            case 's':
                arguments.Replay.Speed = DecimalOption("speed", value, kSlowest, kFastest);
                break;
            case 'u':
                arguments.Offset = ParseUtcOffset(value);
                break;
            case 't':
                arguments.Replay.Strict = true;
                break;
            case 'i':
                arguments.Terminal.User = value;
                break;
            case 'e':
                arguments.Terminal.UserDir = FolderOption("user-dir", value);
                break;
            case 'd':
                arguments.Terminal.DataDir = FolderOption("data-dir", value);
                break;
            case 'a':
                arguments.Master = value;
                break;
            case 'c':
                arguments.Terminal.DriveC = FolderOption("drive-c", value);
                break;
            case 'm':
                arguments.Terminal.ModulePath = value;
                break;
            case 'l':
                arguments.Print = LayoutsPage();
                break;
            default:
                arguments.Print =
                    std::string(kHelp) + "Periods of a chart, C by default:\n  " + kPeriodWords + "\n";
        }
    });
    if (arguments.Print.empty()) {
        if (argc - next != 2) {
            throw BadInput("expected WORKSPACE and CAPTURE, got " +
                           Counted(static_cast<uint64_t>(argc - next), "argument") + "; see --help");
        }
        arguments.Workspace = argv[next];
        arguments.Capture = argv[next + 1];
    }
    arguments.Terminal.Master =
        arguments.Master.empty() ? FeedMasterData() : ReadMasterData(arguments.Master);
    const std::filesystem::path beside = std::filesystem::path(arguments.Workspace).parent_path();
    for (std::string* folder : {&arguments.Terminal.UserDir, &arguments.Terminal.DataDir}) {
        if (folder->empty()) {
            *folder = beside.empty() ? "." : beside.string();
        }
    }
    return arguments;
}

struct ScreenToOpen {
    const ScreenKind* Kind;
    std::string Title;
    std::string Place;
    InitText Init;
};

// Every line is looked at before the first screen opens.
std::vector<ScreenToOpen> ScreensOf(const std::vector<WorkspaceLine>& workspace,
                                    const InitDefaults& defaults) {
    constexpr std::size_t kTags = 100;
    std::vector<ScreenToOpen> screens;
    for (const WorkspaceLine& line : workspace) {
        try {
            const ScreenKind& kind = FindScreenKind(line.Map);
            InitText init = kind.MakeInit(line.Key, defaults);
            if (init.HasTag()) {
                init.Set("Tag", std::to_string(kTags + screens.size() % kTags).substr(1));
            }
            for (const auto& [name, value] : line.Fields) {
                init.Set(name, value);
            }
            kind.Complete(init);
            screens.push_back({&kind, line.Map + " " + Printable(line.Key), line.Place, std::move(init)});
        } catch (const BadInput& bad) {
            throw BadInput(line.Place + ": " + bad.what());
        }
    }
    return screens;
}

void OpenScreens(Terminal& terminal, const std::vector<ScreenToOpen>& screens, std::size_t rows) {
    for (const ScreenToOpen& screen : screens) {
        try {
            terminal.Open(*screen.Kind, screen.Title, screen.Init, rows);
        } catch (const BadInput& bad) {
            throw BadInput(screen.Place + ": " + bad.what());
        }
    }
}

void Print(const std::string& text) {
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
        throw Failure(std::string("standard output: ") + std::strerror(errno) + " while writing");
    }
}

int Run(int argc, char** argv) {
    const Arguments arguments = ReadArguments(argc, argv);
    if (!arguments.Print.empty()) {
        Print(arguments.Print);
        return 0;
    }
    const std::vector<WorkspaceLine> workspace = ReadWorkspace(arguments.Workspace);
    CaptureReader capture(arguments.Capture);
    std::optional<CaptureRecord> first{CaptureRecord{}};
    if (!capture.Next(*first)) {
        first.reset();
    }
    const Timestamp start = first ? first->Time : std::chrono::system_clock::now();
    const std::vector<ScreenToOpen> screens = ScreensOf(workspace, {DateText(start + arguments.Offset)});

    ModuleClocks clocks(start, arguments.Offset);
    Terminal terminal(arguments.Terminal);
    OpenScreens(terminal, screens, arguments.Rows);
    const ReplaySummary summary = Replay(capture, first, clocks, terminal, arguments.Replay);
    Print(ImagesText(terminal));
    terminal.Close();
    Print(SummaryText(summary, terminal));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return tools::RunTool("tickreplay", Run, argc, argv);
}
