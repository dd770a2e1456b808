// Workspace files: which screens to open, and what their inquiries would have answered.
//
//     # comment
//     MAP KEY [Field=value ...]
//
// A value with blanks stands in double quotes. Master data stands beside: of sample.workspace in
// sample.master.
#ifndef TICKMUX_TERMINAL_WORKSPACE_H
#define TICKMUX_TERMINAL_WORKSPACE_H

#include <string>
#include <utility>
#include <vector>

#include "terminal/master_data.h"
#include "terminal/screens/screen.h"

namespace tools {

struct WorkspaceLine {
    std::string Place;  // file and line number, for messages
    std::string Map;
    std::string Key;
    std::vector<std::pair<std::string, std::string>> Fields;  // name and value
};

// BadInput for a file that cannot be read, names no screen or has a broken line.
std::vector<WorkspaceLine> ReadWorkspace(const std::string& path);

// What the terminal knows of stocks and brokers, from the file beside the workspace; nothing if there is
// none.
MasterData MasterBeside(const std::string& workspace);

// The Init text of a line's screen in its last form, with a request tag if it has one. BadInput, with the
// place, for what the map cannot have.
InitText InitOf(const WorkspaceLine& line, const InitDefaults& defaults, std::string_view tag = "  ");

}  // namespace tools

#endif
