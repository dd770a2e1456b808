// The framework's file that is appended to.
#define _FILE_OFFSET_BITS 64  // NOLINT(bugprone-reserved-identifier): files beyond 2 GB on 32 bits

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "host/platform/guarded.h"
#include "host/platform/paths.h"
#include "host/services/services.h"

namespace {

#ifdef _WIN32
constexpr int kAsItIs = O_BINARY | O_NOINHERIT;
#else
constexpr int kAsItIs = O_CLOEXEC;
#endif

}  // namespace

CFile::~CFile() {
    Close();
}

BOOL CFile::Open(const char* path, UINT flags) {
    Close();
    if (path == nullptr || (flags & modeWrite) == 0) {
        return FALSE;
    }
    int how = O_WRONLY | O_APPEND | kAsItIs;
    if ((flags & modeCreate) != 0) {
        how |= (flags & modeNoTruncate) != 0 ? O_CREAT : O_CREAT | O_TRUNC;
    }
    m_Descriptor = OrRefuse(-1, [&] { return open(HostPath(path).c_str(), how, 0666); });
    return m_Descriptor >= 0 ? TRUE : FALSE;
}

int64_t CFile::SeekToEnd() {
    return m_Descriptor < 0 ? -1 : lseek(m_Descriptor, 0, SEEK_END);
}

// One call to the system where it takes all at once: what was written is then whole, even if this process is
// killed right after.
BOOL CFile::Write(const void* data, UINT length) {
    if (m_Descriptor < 0 || (data == nullptr && length != 0)) {
        return FALSE;
    }
    const char* rest = static_cast<const char*>(data);
    while (length != 0) {
        const ssize_t written = write(m_Descriptor, rest, length);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return FALSE;
        }
        rest += written;
        length -= static_cast<UINT>(written);
    }
    return TRUE;
}

void CFile::Close() {
    if (m_Descriptor >= 0) {
        close(m_Descriptor);
        m_Descriptor = -1;
    }
}
