// feedgen - writes a capture of an invented trading session. The same options give the same bytes.
#include <algorithm>
#include <cstdint>
#include <string>

#include "feed/feed.h"
#include "terminal/capture.h"
#include "terminal/errors.h"
#include "terminal/options.h"
#include "terminal/output_file.h"
#include "terminal/progress.h"
#include "terminal/text.h"

namespace {

using namespace tools;

constexpr int64_t kMostPackets = 50'000'000;  // a day's figures stay far within 32 bits

constexpr char kPurpose[] =
    "Writes a capture of a plausible trading session, 09:00 to 16:00 on the exchange's clock, for "
    "tickreplay.\n"
    "Stocks and the indices COMP and MAIN have a minute bar up to 3 seconds behind each minute that traded.\n"
    "The same options give the same bytes on every machine. A former FILE stays until the new one is "
    "whole.\n";

struct Arguments {
    std::string Output;
    std::string Master;
    FeedOptions Feed;
};

void AddOptions(CLI::App& app, Arguments& arguments) {
    FeedOptions& feed = arguments.Feed;
    const auto percent = [&app](const std::string& name, const std::string& help, int& number) {
        AddNumber(app, name, help, number, 0, 100);
    };
    AddOption(app, "--output", "FILE", "the capture (- is standard output)",
              [&arguments](const std::string& path) { arguments.Output = path; });
    AddOption(app, "--master", "FILE", "the session's stocks and brokers too, for tickreplay --master",
              [&arguments](const std::string& path) { arguments.Master = path; });
    AddNumber(app, "--seed", "which session (default 1)", feed.Seed, 0, INT64_MAX);
    AddOption(app, "--date", "YYYYMMDD", "its day (default 20261120)",
              [&feed](const std::string& text) { feed.Day = ParseDate(text); });
    AddNumber(app, "--minutes", "only the first minutes of the session, 1 to 420 (default 420)", feed.Minutes,
              1, kSessionMinutes);
    AddNumber(app, "--packets",
              "how many trades and fund values, spread over those minutes (default 20 a minute\n"
              "and stock, at most 50000000); all else comes on top",
              feed.Packets, 1, kMostPackets);
    AddNumber(app, "--stocks", "1 to 10000 (default 20); the first is ASII on board 1", feed.Stocks, 1,
              kMostStocks);
    AddNumber(app, "--funds", "0 to 99 (default 2): FUND01, FUND02 ... on board 1", feed.Funds, 0,
              kMostFunds);
    percent("--books",
            "books for each 100 of --packets, 0 to 100 (default 20): most come behind a\n"
            "trade of their stock",
            feed.Books);
    percent("--compact",
            "per cent of the trades that come in the compact, market-wide form too\n"
            "(default 100)",
            feed.Compact);
    percent("--orders",
            "order notices for each 100 of --packets, 0 to 100 (default 3): whole lives of\n"
            "orders of TRADER01 with user field ACC001, and of others",
            feed.Orders);
    percent("--brokers", "broker summaries for each 100 of --packets, 0 to 100 (default 3)", feed.Brokers);
    percent("--news", "headlines for each 100 of --packets, 0 to 100 (default 1)", feed.News);
    percent("--others",
            "M and @ packets, of codes BOARD and SESSION, for each 100 of --packets,\n"
            "0 to 100 (default 1)",
            feed.Others);
    percent("--late-bars", "per cent of the bars that come 10 to 90 seconds late (default 0)",
            feed.Bars.Late);
    percent("--doubled-bars", "per cent of the bars that come twice (default 0)", feed.Bars.Doubled);
    percent("--missing-bars", "per cent of the bars that do not come (default 0)", feed.Bars.Missing);
    AddOption(app, "--utc-offset", "+HH:MM",
              "the exchange's clock against the capture's times (default +00:00)",
              [&feed](const std::string& text) { feed.Offset = ParseUtcOffset(text); });
}

int Run(int argc, char** argv) {
    Arguments arguments;
    CLI::App app("", "feedgen");
    SetUpOptions(app, "--output FILE", kPurpose, "");
    AddOptions(app, arguments);
    if (!ReadOptions(app, argc, argv)) {
        return 0;
    }
    if (arguments.Output.empty()) {
        throw BadInput("no --output; name a file, or - for standard output");
    }
    if (arguments.Feed.Packets == 0) {
        constexpr int64_t kPerMinuteAndStock = 20;
        const int64_t usual = kPerMinuteAndStock * arguments.Feed.Minutes * arguments.Feed.Stocks;
        arguments.Feed.Packets = std::min(usual, kMostPackets);
    }
    if (!arguments.Master.empty()) {
        WriteWhole(arguments.Master, Market(0, arguments.Feed.Stocks, 0).MasterText());
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
    if (!capture.File().IsStandardOutput()) {
        Print(arguments.Output + ": " + Counted(capture.Packets(), "packet") + " in " +
              Counted(capture.Batches(), "batch", "batches") + ", " +
              Counted(static_cast<uint64_t>(arguments.Feed.Stocks), "stock") + ", " +
              Counted(static_cast<uint64_t>(arguments.Feed.Funds), "fund") + "\n");
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    return tools::RunTool("feedgen", Run, argc, argv);
}
