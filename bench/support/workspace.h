// The screens of a workspace file, with the terminal's settings set up for them.
#ifndef TICKMUX_BENCH_SUPPORT_WORKSPACE_H
#define TICKMUX_BENCH_SUPPORT_WORKSPACE_H

#include <filesystem>
#include <string>
#include <vector>

#include "host/tickhost.h"
#include "tests/support/orders.h"
#include "tests/support/workspace.h"

namespace bench {

// Throws tools::BadInput for a file that cannot be read or is broken.
inline std::vector<ScreenToOpen> ScreensOf(const std::string& workspace) {
    const std::string folder = std::filesystem::path(workspace).parent_path().string();
    tickhost_set_text("UserDir", folder.c_str());
    tickhost_set_text("DataDir", folder.c_str());
    tickhost_set_text("UserID", kUser);
    tickhost_set_master(0, 0, nullptr, nullptr, nullptr);
    tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
    return ::ScreensOf(workspace);
}

}  // namespace bench

#endif
