// tickreplay - replays a capture of the packet stream through the module, and shows what screens receive.
#include <filesystem>
#include <string>
#include <vector>

#include "terminal/errors.h"
#include "terminal/options.h"
#include "terminal/pace.h"
#include "terminal/replay.h"
#include "terminal/report.h"
#include "terminal/screens/candles.h"
#include "terminal/text.h"
#include "terminal/workspace.h"

namespace {

using namespace tools;

constexpr char kPurpose[] =
    "Opens the screens that WORKSPACE names, feeds them CAPTURE (- is standard input), and prints the last\n"
    "image of each screen and a summary.\n";

constexpr char kNotes[] =
    "The last image of a chart draws its candles, one a column: o rising, # falling, - unchanged.\n"
    "A panel shows the fields from FirstField to LastField of its line (default: all); the volume by price\n"
    "has bars against the largest one.\n"
    "The pass-through shows the newest packet of each type, field by field.\n"
    "The interest board takes base prices from the master data; those of other stocks are for its line to\n"
    "tell.\n"
    "A line of WORKSPACE is MAP KEY [Field=value ...], such as: RSTICK11_R 1ASII Date=20261120\n"
    "The key of news is the first digit of its categories, 0 for all. Subscription holder and pass-through\n"
    "take items CODE:TYPES with the packet types that are wanted:\n"
    "RRPASS01_R 1ASII:ABCD,COMP:EF,1FUND01:N,:T0\n"
    "A capture is a pcap file of link type USER0; feedgen writes one.\n";

struct Arguments {
    ReplayOptions Replay;
    UtcOffset Offset{0};
    std::size_t Rows = 10;
    TerminalOptions Terminal{Module::DefaultPath(), "TRADER01", "", "", "", {}};
    std::string Master;
    std::string Workspace;
    std::string Capture;
    bool Layouts = false;
};

void AddOptions(CLI::App& app, Arguments& arguments) {
    constexpr int64_t kMostRows = 1'000'000;
    TerminalOptions& terminal = arguments.Terminal;
    // The usage line names these two.
    app.add_option("WORKSPACE", arguments.Workspace)->group("");
    app.add_option("CAPTURE", arguments.Capture)->group("");
    app.add_flag("--follow", arguments.Replay.Follow,
                 "print each buffer as it comes, with the capture's time");
    AddNumber(app, "--rows", "newest rows of a list in its last image (default 10)", arguments.Rows, 0,
              kMostRows);
    AddOption(app, "--speed", "X", "0.1 to 1000 times real time (default: as fast as it goes)",
              [&arguments](const std::string& text) {
                  arguments.Replay.Speed = DecimalOption("--speed", text, kSlowest, kFastest);
              });
    AddOption(app, "--utc-offset", "+HH:MM",
              "the exchange's clock against the capture's times (default +00:00)",
              [&arguments](const std::string& text) { arguments.Offset = ParseUtcOffset(text); });
    app.add_flag("--strict", arguments.Replay.Strict,
                 "stop at the first packet of unknown type or wrong length, and at the first\n"
                 "message that contradicts its table; without it such a message gives a warning");
    AddOption(app, "--user", "ID", "who is logged in (default TRADER01, the user of feedgen's orders)",
              [&terminal](const std::string& text) {
                  if (text.size() > kUserIdWidth) {
                      throw BadInput("--user " + Quoted(text) + " has " + Counted(text.size(), "byte") +
                                     ", but there is room for " + std::to_string(kUserIdWidth) +
                                     "; give a shorter one");
                  }
                  terminal.User = text;
              });
    AddFolder(app, "--user-dir",
              "the folder of the user's InterestAlarm.ini, TradeMonEnv.ini and Interest.ini\n"
              "(default: that of WORKSPACE)",
              terminal.UserDir);
    AddFolder(app, "--data-dir", "the folder of EnvVar.ini (default: that of WORKSPACE)", terminal.DataDir);
    AddOption(app, "--master", "FILE",
              "stocks and brokers, in lines stock CODE NAME [BASE] and broker CODE NAME MARK, with\n"
              "a mark of 0, 1 or 2 (default: the file of WORKSPACE's name with the ending .master,\n"
              "if there is one); feedgen --master writes one",
              [&arguments](const std::string& path) { arguments.Master = path; });
    AddFolder(app, "--drive-c", "the folder that stands for drive C, where the module logs", terminal.DriveC);
    AddOption(app, "--module", "PATH", "the module (default: ../lib/libtickmux.so beside this program)",
              [&terminal](const std::string& path) { terminal.ModulePath = path; });
    app.add_flag("--layouts", arguments.Layouts,
                 "print all Init texts and display buffers as Markdown, and do nothing else");
}

// The module looks for settings beside the workspace, unless it is told otherwise.
void Complete(Arguments& arguments) {
    arguments.Terminal.Master =
        arguments.Master.empty() ? MasterBeside(arguments.Workspace) : ReadMasterData(arguments.Master);
    const std::filesystem::path beside = std::filesystem::path(arguments.Workspace).parent_path();
    for (std::string* folder : {&arguments.Terminal.UserDir, &arguments.Terminal.DataDir}) {
        if (folder->empty()) {
            *folder = beside.empty() ? "." : beside.string();
        }
    }
}

// Every line is looked at before the first screen opens. Each screen has a request tag of its own.
std::vector<InitText> InitsOf(const std::vector<WorkspaceLine>& workspace, const InitDefaults& defaults) {
    constexpr std::size_t kTags = 100;
    std::vector<InitText> inits;
    inits.reserve(workspace.size());
    for (const WorkspaceLine& line : workspace) {
        inits.push_back(InitOf(line, defaults, std::to_string(kTags + inits.size() % kTags).substr(1)));
    }
    return inits;
}

void OpenScreens(Terminal& terminal, const std::vector<WorkspaceLine>& workspace,
                 const std::vector<InitText>& inits, std::size_t rows) {
    for (std::size_t i = 0; i < inits.size(); ++i) {
        const WorkspaceLine& line = workspace[i];
        try {
            terminal.Open(FindScreenKind(line.Map), line.Map + " " + Printable(line.Key), inits[i], rows);
        } catch (const BadInput& bad) {
            throw BadInput(line.Place + ": " + bad.what());
        }
    }
}

int Run(int argc, char** argv) {
    Arguments arguments;
    CLI::App app("", "tickreplay");
    SetUpOptions(app, "WORKSPACE CAPTURE", kPurpose,
                 std::string(kNotes) + "Periods of a chart, C by default:\n  " + kPeriodWords + "\n");
    AddOptions(app, arguments);
    if (!ReadOptions(app, argc, argv)) {
        return 0;
    }
    if (arguments.Layouts) {
        Print(LayoutsPage());
        return 0;
    }
    if (app.count("CAPTURE") == 0) {
        throw BadInput("expected WORKSPACE and CAPTURE, got " + Counted(app.count("WORKSPACE"), "argument") +
                       "; see --help");
    }
    Complete(arguments);
    const std::vector<WorkspaceLine> workspace = ReadWorkspace(arguments.Workspace);
    CaptureReader capture(arguments.Capture);
    std::optional<CaptureRecord> first{CaptureRecord{}};
    if (!capture.Next(*first)) {
        first.reset();
    }
    const Timestamp start = first ? first->Time : std::chrono::system_clock::now();
    const std::vector<InitText> inits =
        InitsOf(workspace, {DateText(start + arguments.Offset), arguments.Terminal.Master.Bases});

    ModuleClocks clocks(start, arguments.Offset);
    Terminal terminal(arguments.Terminal);
    OpenScreens(terminal, workspace, inits, arguments.Rows);
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
