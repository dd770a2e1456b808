// The screens of a workspace file, with the terminal's settings set up for them.
#ifndef TICKMUX_BENCH_SUPPORT_WORKSPACE_H
#define TICKMUX_BENCH_SUPPORT_WORKSPACE_H

#include <filesystem>
#include <string>
#include <vector>

#include "bench/support/session.h"
#include "tools/screens/screen.h"
#include "tools/workspace.h"

namespace bench {

// Throws tools::BadInput for a file that cannot be read or is broken.
inline std::vector<Script::Screen> ScreensOf(const std::string& workspace) {
    const std::string folder = std::filesystem::path(workspace).parent_path().string();
    tickhost_set_text("UserDir", folder.c_str());
    tickhost_set_text("DataDir", folder.c_str());
    tickhost_set_text("UserID", "TRADER01");
    tickhost_set_master(0, 0, nullptr, nullptr, nullptr);
    tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
    std::vector<Script::Screen> screens;
    for (const tools::WorkspaceLine& line : tools::ReadWorkspace(workspace)) {
        const tools::ScreenKind& kind = tools::FindScreenKind(line.Map);
        tools::InitText init = kind.MakeInit(line.Key, {"20261120"});
        for (const auto& [name, value] : line.Fields) {
            init.Set(name, value);
        }
        kind.Complete(init);
        screens.push_back({line.Map, std::string(init.Bytes())});
    }
    return screens;
}

}  // namespace bench

#endif
