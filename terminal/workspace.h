// Workspace files: which screens to open, and what their inquiries would have answered.
//
//     # comment
//     MAP KEY [Field=value ...]
//
// A value with blanks stands in double quotes.
#ifndef TICKMUX_TERMINAL_WORKSPACE_H
#define TICKMUX_TERMINAL_WORKSPACE_H

#include <string>
#include <utility>
#include <vector>

namespace tools {

struct WorkspaceLine {
    std::string Place;  // file and line number, for messages
    std::string Map;
    std::string Key;
    std::vector<std::pair<std::string, std::string>> Fields;  // name and value
};

// BadInput for a file that cannot be read, names no screen or has a broken line.
std::vector<WorkspaceLine> ReadWorkspace(const std::string& path);

}  // namespace tools

#endif
