// The screens of a workspace file.
#ifndef TICKMUX_TESTS_SUPPORT_WORKSPACE_H
#define TICKMUX_TESTS_SUPPORT_WORKSPACE_H

#include <string>
#include <vector>

#include "terminal/screens/screen.h"
#include "terminal/workspace.h"
#include "tests/support/host_parts.h"

inline tools::InitText InitOf(const tools::WorkspaceLine& line) {
    const tools::ScreenKind& kind = tools::FindScreenKind(line.Map);
    tools::InitText init = kind.MakeInit(line.Key, {"20261120"});
    for (const auto& [name, value] : line.Fields) {
        init.Set(name, value);
    }
    kind.Complete(init);
    return init;
}

// Throws tools::BadInput for a file that cannot be read or is broken.
inline std::vector<ScreenToOpen> ScreensOf(const std::string& workspace) {
    std::vector<ScreenToOpen> screens;
    for (const tools::WorkspaceLine& line : tools::ReadWorkspace(workspace)) {
        screens.push_back({line.Map, std::string(InitOf(line).Bytes())});
    }
    return screens;
}

#endif
