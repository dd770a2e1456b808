// feedgen - writes a capture of an invented trading session. The same options give the same bytes.
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "tools/capture.h"
#include "tools/errors.h"
#include "tools/feed.h"
#include "tools/options.h"
#include "tools/progress.h"
#include "tools/text.h"

namespace {

using namespace tools;

constexpr char kHelp[] =
    "Usage: feedgen [options] --output FILE\n"
    "\n"
    "Writes a capture of a plausible trading session, 09:00 to 16:00 on the exchange's clock, for "
    "tickreplay.\n"
    "Stocks and the indices COMP and MAIN have a minute bar up to 3 seconds behind each minute that traded.\n"
    "The same options give the same bytes on every machine.\n"
    "\n"
    "  --output FILE        the capture (- is standard output)\n"
    "  --seed N             which session (default 1)\n"
    "  --date YYYYMMDD      its day (default 20261120)\n"
    "  --minutes N          only the first minutes of the session, 1 to 420 (default 420)\n"
    "  --packets N          how many trades and fund values, spread over those minutes (default 20 a minute\n"
    "                       and stock); all else comes on top\n"
    "  --stocks N           1 to 10000 (default 20); the first is ASII on board 1\n"
    "  --funds N            0 to 99 (default 2): FUND01, FUND02 ... on board 1\n"
    "  --books N            books for each 100 of --packets, 0 to 100 (default 20): most come behind a "
    "trade\n"
    "                       of their stock\n"
    "  --compact N          per cent of the trades that come in the compact, market-wide form too (default "
    "100)\n"
    "  --orders N           order notices for each 100 of --packets, 0 to 100 (default 3): whole lives of "
    "orders\n"
    "                       of TRADER01 with user field ACC001, and of others\n"
    "  --brokers N          broker summaries for each 100 of --packets, 0 to 100 (default 3)\n"
    "  --news N             headlines for each 100 of --packets, 0 to 100 (default 1)\n"
    "  --others N           M and @ packets, of codes BOARD and SESSION, for each 100 of --packets, 0 to "
    "100\n"
    "                       (default 1)\n"
    "  --late-bars N        per cent of the bars that come 10 to 90 seconds late (default 0)\n"
    "  --doubled-bars N     per cent of the bars that come twice (default 0)\n"
    "  --missing-bars N     per cent of the bars that do not come (default 0)\n"
    "  --utc-offset +HH:MM  the exchange's clock against the capture's times (default +00:00)\n"
    "  --help               print this\n"
    "\n"
    "Exit status: 0 done, 1 failed, 2 bad input.\n";

struct Arguments {
    bool Help = false;
    std::string Output;
    FeedOptions Feed;
};

int PercentOption(const char* name, const std::string& value) {
    return static_cast<int>(NumberOption(name, value, 0, 100));
}

Arguments ReadArguments(int argc, char** argv) {
    constexpr int64_t kMostPackets = 50'000'000;  // a day's figures stay far within 32 bits
    static const option options[] = {{"output", required_argument, nullptr, 'o'},
                                     {"seed", required_argument, nullptr, 's'},
                                     {"date", required_argument, nullptr, 'd'},
                                     {"minutes", required_argument, nullptr, 'm'},
                                     {"packets", required_argument, nullptr, 'p'},
                                     {"stocks", required_argument, nullptr, 'k'},
                                     {"funds", required_argument, nullptr, 'f'},
                                     {"books", required_argument, nullptr, 'n'},
                                     {"compact", required_argument, nullptr, 'a'},
                                     {"orders", required_argument, nullptr, 'r'},
                                     {"brokers", required_argument, nullptr, 'c'},
                                     {"news", required_argument, nullptr, 't'},
                                     {"others", required_argument, nullptr, 'e'},
                                     {"utc-offset", required_argument, nullptr, 'u'},
                                     {"late-bars", required_argument, nullptr, 'l'},
                                     {"doubled-bars", required_argument, nullptr, 'b'},
                                     {"missing-bars", required_argument, nullptr, 'x'},
                                     {"help", no_argument, nullptr, 'h'},
                                     {nullptr, 0, nullptr, 0}};
    Arguments arguments;
    const int next = ReadOptions(argc, argv, options, [&arguments](int name, const std::string& value) {
        switch (name) {
            case 'o':
                arguments.Output = value;
                break;
            case 's':
                arguments.Feed.Seed = static_cast<uint64_t>(NumberOption("seed", value, 0, INT64_MAX));
                break;
            case 'd':
                arguments.Feed.Day = ParseDate(value);
                break;
            case 'm':
                arguments.Feed.Minutes = static_cast<int>(NumberOption("minutes", value, 1, kSessionMinutes));
                break;
            case 'p':
                arguments.Feed.Packets = NumberOption("packets", value, 1, kMostPackets);
                break;
            case 'k':
                arguments.Feed.Stocks = static_cast<int>(NumberOption("stocks", value, 1, kMostStocks));
                break;
            case 'f':
                arguments.Feed.Funds = static_cast<int>(NumberOption("funds", value, 0, kMostFunds));
                break;
            case 'n':
                arguments.Feed.Books = PercentOption("books", value);
                break;
            case 'a':
                arguments.Feed.Compact = PercentOption("compact", value);
                break;
            case 'r':
                arguments.Feed.Orders = PercentOption("orders", value);
                break;
            case 'c':
                arguments.Feed.Brokers = PercentOption("brokers", value);
                break;
            case 't':
                arguments.Feed.News = PercentOption("news", value);
                break;
            case 'e':
                arguments.Feed.Others = PercentOption("others", value);
                break;
            case 'l':
                arguments.Feed.Bars.Late = PercentOption("late-bars", value);
                break;
            case 'b':
                arguments.Feed.Bars.Doubled = PercentOption("doubled-bars", value);
                break;
            case 'x':
                arguments.Feed.Bars.Missing = PercentOption("missing-bars", value);
                break;
            case 'u':
                arguments.Feed.Offset = ParseUtcOffset(value);
                break;
            default:
                arguments.Help = true;
        }
    });
    if (arguments.Help) {
        return arguments;
    }
    if (next != argc) {
        throw BadInput("argument " + Quoted(argv[next]) + " is not known here; see --help");
    }
    if (arguments.Output.empty()) {
        throw BadInput("no --output; name a file, or - for standard output");
    }
    if (arguments.Output == "-" && isatty(STDOUT_FILENO) != 0) {
        throw BadInput("a capture is not for a terminal; name a file with --output, or use a pipe");
    }
    if (arguments.Feed.Packets == 0) {
        constexpr int64_t kPerMinuteAndStock = 20;
        const int64_t usual = kPerMinuteAndStock * arguments.Feed.Minutes * arguments.Feed.Stocks;
        arguments.Feed.Packets = std::min(usual, kMostPackets);
    }
    return arguments;
}

int Run(int argc, char** argv) {
    const Arguments arguments = ReadArguments(argc, argv);
    if (arguments.Help) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    CaptureWriter capture(arguments.Output);
    Feed feed(arguments.Feed, capture);
    {
        Progress progress;
        while (feed.WriteBatch()) {
            if (progress.IsDue()) {
                progress.Show(std::to_string(arguments.Feed.Packets - feed.PacketsLeft()) + " of " +
                              std::to_string(arguments.Feed.Packets) + " trades and fund values");
            }
        }
    }
    capture.Close();
    if (arguments.Output != "-") {
        std::printf("%s: %s in %s, %s, %s\n", arguments.Output.c_str(),
                    Counted(capture.Packets(), "packet").c_str(),
                    Counted(capture.Batches(), "batch", "batches").c_str(),
                    Counted(static_cast<uint64_t>(arguments.Feed.Stocks), "stock").c_str(),
                    Counted(static_cast<uint64_t>(arguments.Feed.Funds), "fund").c_str());
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return tools::RunTool("feedgen", Run, argc, argv);
}
