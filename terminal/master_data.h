// What the terminal knows of stocks and brokers before the first packet.
//
//     # comment
//     stock CODE NAME
//     broker CODE NAME MARK
//
// A name with blanks stands in double quotes. A broker's mark is 0, 1 or 2, which colours it in the monitor.
#ifndef TICKMUX_TERMINAL_MASTER_DATA_H
#define TICKMUX_TERMINAL_MASTER_DATA_H

#include <string>
#include <vector>

namespace tools {

struct MasterEntry {
    std::string Code;
    std::string Name;
    std::string Mark;  // of brokers
};

struct MasterData {
    std::vector<MasterEntry> Stocks;
    std::vector<MasterEntry> Brokers;
};

// BadInput for a file that cannot be read or has a broken line.
MasterData ReadMasterData(const std::string& path);

// Of the generated sessions, with however many stocks.
MasterData FeedMasterData();

}  // namespace tools

#endif
