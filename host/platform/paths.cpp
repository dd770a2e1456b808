#include "host/platform/paths.h"

#include <sys/stat.h>

#include <algorithm>
#include <atomic>

#include "host/platform/guarded.h"
#include "host/platform/platform.h"

namespace {

std::atomic<const char*> g_pDriveC = kDefaultDriveC;

}  // namespace

void SetDriveC(const char* folder) {
    g_pDriveC = folder;
}

std::string HostPath(const char* path) {
    std::string text = path;
    std::replace(text.begin(), text.end(), '\\', '/');
    if (text.size() >= 2 && (text[0] == 'c' || text[0] == 'C') && text[1] == ':') {
        const bool separated = text.size() > 2 && text[2] == '/';
        text.replace(0, 2, HostPath(g_pDriveC) + (separated ? "" : "/"));
    }
    return text;
}

BOOL CreateDirectoryA(const char* path, SECURITY_ATTRIBUTES* /*attributes*/) {
    if (path == nullptr) {
        return FALSE;
    }
    return OrRefuse(FALSE, [&] { return mkdir(HostPath(path).c_str(), 0777) == 0 ? TRUE : FALSE; });
}
