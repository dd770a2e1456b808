// A file that lies in memory, for what is read by path.
#ifndef TICKMUX_FUZZ_MEMORY_FILE_H
#define TICKMUX_FUZZ_MEMORY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz/input.h"
#include "terminal/errors.h"

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

// Has a program's reader read the text by its path; why it refuses it is output too.
template <class Read>
int ReadAsFile(std::string_view text, Read read) {
    static const MemoryFile file;
    file.Hold(text);
    try {
        read(file.Path());
    } catch (const tools::BadInput& bad) {
        Fold(bad.what());
    }
    return 0;
}

}  // namespace fuzz

#endif
