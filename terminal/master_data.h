// What the terminal knows of stocks and brokers before the first packet.
//
//     # comment
//     stock CODE NAME [BASE]
//     broker CODE NAME MARK
//
// A name with blanks stands in double quotes. BASE is the price that the day's changes count from. A broker's
// mark is 0, 1 or 2, which colours it in the monitor.
#ifndef TICKMUX_TERMINAL_MASTER_DATA_H
#define TICKMUX_TERMINAL_MASTER_DATA_H

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tools {

struct MasterEntry {
    std::string Code;
    std::string Name;
    std::string Mark;  // of brokers
};

using BasePrices = std::map<std::string, std::string, std::less<>>;  // by stock code

struct MasterData {
    std::vector<MasterEntry> Stocks;
    std::vector<MasterEntry> Brokers;
    BasePrices Bases;
};

// BadInput for a file that cannot be read or has a broken line.
MasterData ReadMasterData(const std::string& path);

}  // namespace tools

#endif
