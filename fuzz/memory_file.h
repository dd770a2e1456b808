// A file that lies in memory, for what is read by path.
#ifndef TICKMUX_FUZZ_MEMORY_FILE_H
#define TICKMUX_FUZZ_MEMORY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace fuzz {

class MemoryFile {
public:
    MemoryFile() : m_Descriptor(memfd_create("input", MFD_CLOEXEC)) {}
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(m_Descriptor); }

    std::string Path() const { return "/proc/self/fd/" + std::to_string(m_Descriptor); }
    void Hold(std::string_view text) const {
        if (ftruncate(m_Descriptor, 0) != 0 ||
            pwrite(m_Descriptor, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) {
            std::abort();
        }
    }

private:
    int m_Descriptor;
};

}  // namespace fuzz

#endif
