// Folders are made where the module's paths lie.
#include <sys/stat.h>

#include "host/platform/guarded.h"
#include "host/platform/paths.h"
#include "host/platform/platform.h"

BOOL CreateDirectoryA(const char* path, SECURITY_ATTRIBUTES* /*attributes*/) {
    if (path == nullptr) {
        return FALSE;
    }
    return OrRefuse(FALSE, [&] { return mkdir(HostPath(path).c_str(), 0777) == 0 ? TRUE : FALSE; });
}
