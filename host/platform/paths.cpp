#include "host/platform/paths.h"

#include <algorithm>
#include <atomic>

namespace {

std::atomic<const char*> g_pDriveC = kDefaultDriveC;

}  // namespace

void SetDriveC(const char* folder) {
    g_pDriveC = folder;
}

std::string HostPath(const char* path) {
    std::string text = path;
    if (text.size() >= 2 && (text[0] == 'c' || text[0] == 'C') && text[1] == ':') {
        const bool separated = text.size() > 2 && (text[2] == '/' || text[2] == '\\');
        text.replace(0, 2, std::string(g_pDriveC) + (separated ? "" : "/"));
    }
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}
