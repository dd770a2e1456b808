// Settings files that stay parsed as long as they are the same.
#include <sys/stat.h>

#include <ctime>
#include <map>
#include <mutex>
#include <utility>

#include "host/platform/paths.h"
#include "host/platform/profile.h"

namespace {

// What tells that a file is another than it was.
struct Stamp {
    explicit Stamp(const struct stat& file)
        : Device(file.st_dev),
          Number(file.st_ino),
          Size(file.st_size),
          Written(file.st_mtim),
          Changed(file.st_ctim) {}

    bool operator==(const Stamp& other) const {
        return Device == other.Device && Number == other.Number && Size == other.Size &&
               Same(Written, other.Written) && Same(Changed, other.Changed);
    }
    // A file that was written just now may be written again before the file system's clock has gone on.
    bool TellsTheNext() const {
        constexpr time_t kCoarsestStep = 2;
        return Written.tv_sec + kCoarsestStep < time(nullptr);
    }

private:
    static bool Same(const timespec& left, const timespec& right) {
        return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
    }

    dev_t Device;
    ino_t Number;
    off_t Size;
    timespec Written;
    timespec Changed;
};

// The files that were read last, by path.
class KeptFiles {
public:
    using Pointer = std::shared_ptr<const ProfileFile>;

    static KeptFiles& Get() {
        static auto* const files = new KeptFiles;  // screens may still open at the very end of the process
        return *files;
    }

    Pointer Read(const std::string& path) {
        struct stat file {};
        if (stat(path.c_str(), &file) != 0) {
            return m_pNone;
        }
        const Stamp stamp(file);
        {
            const std::lock_guard hold(m_Lock);
            if (const auto found = m_Files.find(path);
                found != m_Files.end() && found->second.first == stamp) {
                return found->second.second;
            }
        }
        auto read = std::make_shared<const ProfileFile>(ProfileFile::WholeText(path));
        if (S_ISREG(file.st_mode) && stamp.TellsTheNext()) {
            const std::lock_guard hold(m_Lock);
            if (m_Files.size() == kMost) {
                m_Files.clear();
            }
            m_Files.insert_or_assign(path, std::pair(stamp, read));
        }
        return read;
    }
    Pointer None() const { return m_pNone; }

private:
    static constexpr std::size_t kMost = 16;  // a terminal has four

    const Pointer m_pNone = std::make_shared<const ProfileFile>(std::string());
    std::mutex m_Lock;
    std::map<std::string, std::pair<Stamp, Pointer>> m_Files;
};

}  // namespace

std::shared_ptr<const ProfileFile> ProfileFile::Read(const char* path) {
    KeptFiles& kept = KeptFiles::Get();
    return path == nullptr ? kept.None() : kept.Read(HostPath(path));
}
