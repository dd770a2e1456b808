// The screens of a workspace file.
#ifndef TICKMUX_TESTS_SUPPORT_WORKSPACE_H
#define TICKMUX_TESTS_SUPPORT_WORKSPACE_H

#include <string>
#include <vector>

#include "terminal/workspace.h"
#include "tests/support/host_parts.h"

// Throws tools::BadInput for a file that cannot be read or is broken.
inline std::vector<ScreenToOpen> ScreensOf(const std::string& workspace) {
    const tools::InitDefaults defaults{"20261120", tools::MasterBeside(workspace).Bases};
    std::vector<ScreenToOpen> screens;
    for (const tools::WorkspaceLine& line : tools::ReadWorkspace(workspace)) {
        screens.push_back({line.Map, std::string(tools::InitOf(line, defaults).Bytes())});
    }
    return screens;
}

#endif
