// feedgen - writes a capture of an invented trading session. The same options give the same bytes.
#include <unistd.h>

#include <cstdio>

#include "tools/capture.h"
#include "tools/emitters.h"
#include "tools/errors.h"
#include "tools/market.h"
#include "tools/options.h"
#include "tools/progress.h"
#include "tools/session.h"
#include "tools/text.h"

namespace {

using namespace tools;

constexpr char kHelp[] =
    "Usage: feedgen [options] --output FILE\n"
    "\n"
    "Writes a capture of a plausible trading session, 09:00 to 16:00 on the exchange's clock, for "
    "tickreplay.\n"
    "The same options give the same bytes on every machine.\n"
    "\n"
    "  --output FILE        the capture (- is standard output)\n"
    "  --seed N             which session (default 1)\n"
    "  --date YYYYMMDD      its day (default 20261120)\n"
    "  --minutes N          only the first minutes of the session, 1 to 420 (default 420)\n"
    "  --packets N          how many packets, spread over those minutes (default 20 a minute and stock)\n"
    "  --stocks N           1 to 10000 (default 20); the first is ASII on board 1\n"
    "  --funds N            0 to 99 (default 2): FUND01, FUND02 ... on board 1\n"
    "  --utc-offset +HH:MM  the exchange's clock against the capture's times (default +00:00)\n"
    "  --help               print this\n"
    "\n"
    "Exit status: 0 done, 1 failed, 2 bad input.\n";

struct Arguments {
    bool Help = false;
    std::string Output;
    uint64_t Seed = 1;
    Timestamp Day = ParseDate("20261120");
    int Minutes = kSessionMinutes;
    int64_t Packets = 0;  // 0: as many as are usual
    int Stocks = 20;
    int Funds = 2;
    UtcOffset Offset{0};
};

Arguments ReadArguments(int argc, char** argv) {
    constexpr int64_t kMostPackets = 50'000'000;  // a day's figures stay far within 32 bits
    static const option options[] = {
        {"output", required_argument, nullptr, 'o'},  {"seed", required_argument, nullptr, 's'},
        {"date", required_argument, nullptr, 'd'},    {"minutes", required_argument, nullptr, 'm'},
        {"packets", required_argument, nullptr, 'p'}, {"stocks", required_argument, nullptr, 'k'},
        {"funds", required_argument, nullptr, 'f'},   {"utc-offset", required_argument, nullptr, 'u'},
        {"help", no_argument, nullptr, 'h'},          {nullptr, 0, nullptr, 0}};
    Arguments arguments;
    const int next = ReadOptions(argc, argv, options, [&arguments](int name, const std::string& value) {
        switch (name) {
            case 'o':
                arguments.Output = value;
                break;
            case 's':
                arguments.Seed = static_cast<uint64_t>(NumberOption("seed", value, 0, INT64_MAX));
                break;
            case 'd':
                arguments.Day = ParseDate(value);
                break;
            case 'm':
                arguments.Minutes = static_cast<int>(NumberOption("minutes", value, 1, kSessionMinutes));
                break;
            case 'p':
                arguments.Packets = NumberOption("packets", value, 1, kMostPackets);
                break;
            case 'k':
                arguments.Stocks = static_cast<int>(NumberOption("stocks", value, 1, kMostStocks));
                break;
            case 'f':
                arguments.Funds = static_cast<int>(NumberOption("funds", value, 0, kMostFunds));
                break;
            case 'u':
                arguments.Offset = ParseUtcOffset(value);
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
    if (arguments.Packets == 0) {
        constexpr int64_t kPerMinuteAndStock = 20;
        const int64_t usual = kPerMinuteAndStock * arguments.Minutes * arguments.Stocks;
        arguments.Packets = std::min(usual, kMostPackets);
    }
    return arguments;
}

template <class Packet>
void Write(CaptureWriter& capture, Timestamp time, const WholePacket<Packet>& packet) {
    capture.Packet(time, &packet, sizeof(packet));
}

void WriteNextPacket(CaptureWriter& capture, Market& market, Timestamp local, UtcOffset offset) {
    constexpr int kPercentFunds = 5;
    constexpr int kPercentClosing = 10;
    const Timestamp time = local - offset;
    if (!market.Funds().empty() && market.Dice().Chance(kPercentFunds)) {
        const bool close = market.Dice().Chance(kPercentClosing);
        Write(capture, time, MakeNav(market.NextFund(close), close));
    } else {
        Write(capture, time, MakeTrade(market.NextDeal(), local));
    }
}

int Run(int argc, char** argv) {
    const Arguments arguments = ReadArguments(argc, argv);
    if (arguments.Help) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    CaptureWriter capture(arguments.Output);
    Market market(arguments.Seed, arguments.Stocks, arguments.Funds);
    Session session(arguments.Day, arguments.Minutes, arguments.Packets);
    uint64_t batches = 0;
    {
        Progress progress;
        while (session.NextBatch(market.Dice())) {
            for (int number = 0; number < session.BatchSize(); ++number) {
                WriteNextPacket(capture, market, session.PacketTime(number), arguments.Offset);
            }
            capture.BatchEnd(session.BatchEnd() - arguments.Offset);
            ++batches;
            if (progress.IsDue()) {
                progress.Show(std::to_string(arguments.Packets - session.PacketsLeft()) + " of " +
                              Counted(static_cast<uint64_t>(arguments.Packets), "packet"));
            }
        }
    }
    capture.Close();
    if (arguments.Output != "-") {
        std::printf("%s: %s in %s, %s, %s\n", arguments.Output.c_str(),
                    Counted(static_cast<uint64_t>(arguments.Packets), "packet").c_str(),
                    Counted(batches, "batch", "batches").c_str(),
                    Counted(static_cast<uint64_t>(arguments.Stocks), "stock").c_str(),
                    Counted(static_cast<uint64_t>(arguments.Funds), "fund").c_str());
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return tools::RunTool("feedgen", Run, argc, argv);
}
