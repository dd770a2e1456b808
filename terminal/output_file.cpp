#include "terminal/output_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "terminal/errors.h"

namespace tools {

namespace {

namespace fs = std::filesystem;

constexpr int kEndingSignals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// The name of the part that a signal removes.
std::atomic<const char*> g_szPart{nullptr};

// The signal is still blocked here and its own action is back, so that it ends the program on return.
void OnEndingSignal(int number) {
    if (const char* part = g_szPart.load()) {
        unlink(part);
    }
    raise(number);
}

// What was ignored from the start, as under nohup, stays ignored.
void CatchEndingSignals() {
    struct sigaction action {};
    action.sa_handler = OnEndingSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int number : kEndingSignals) {
        struct sigaction former {};
        if (sigaction(number, nullptr, &former) == 0 && former.sa_handler == SIG_DFL) {
            sigaction(number, &action, nullptr);
        }
    }
    // A limit of the file's size is then told like a full disk.
    signal(SIGXFSZ, SIG_IGN);
}

// No ending signal comes while it lives.
class SignalsHeld {
public:
    SignalsHeld() {
        sigset_t held;
        sigemptyset(&held);
        for (const int number : kEndingSignals) {
            sigaddset(&held, number);
        }
        sigprocmask(SIG_BLOCK, &held, &m_Former);
    }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;
    ~SignalsHeld() { sigprocmask(SIG_SETMASK, &m_Former, nullptr); }

private:
    sigset_t m_Former{};
};

fs::path FolderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// Where the file is, or will be, that links lead to. Nothing for a name of an open file, such as /dev/fd/3,
// which no other file can take.
std::optional<fs::path> Followed(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; links < kMostLinks && fs::is_symlink(path, error); ++links) {
        const fs::path folder = fs::canonical(FolderOf(path), error);
        if (folder.native().starts_with("/proc/")) {
            return std::nullopt;
        }
        path = folder / fs::read_symlink(path, error);
    }
    return path;
}

bool IsWhereOutputGoes(const struct stat& file) {
    struct stat standard {};
    return fstat(STDOUT_FILENO, &standard) == 0 && standard.st_dev == file.st_dev &&
           standard.st_ino == file.st_ino;
}

mode_t ModeOfNewFiles() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : OutputFile() {
    m_Name = path == "-" ? "standard output" : path;
    const std::optional<fs::path> target = Followed(path);
    struct stat former {};
    const bool exists = path != "-" && stat(path.c_str(), &former) == 0;
    Check(path == "-" || exists || errno == ENOENT);
    m_bStandardOutput = path == "-" || (exists && !target && IsWhereOutputGoes(former));
    if (m_bStandardOutput) {
        m_hFile = dup(STDOUT_FILENO);
        Check(m_hFile >= 0);
    } else if (!target || (exists && !S_ISREG(former.st_mode))) {
        m_hFile = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        Check(m_hFile >= 0);
    } else {
        // A new file could take the place of one that may not be written.
        Check(!exists || access(path.c_str(), W_OK) == 0);
        OpenPart(*target);
        // Another user's file stays so where that can be had. It comes first: it may clear bits of the mode.
        [[maybe_unused]] const int given = exists ? fchown(m_hFile, former.st_uid, former.st_gid) : 0;
        Check(fchmod(m_hFile, exists ? former.st_mode & 07777U : ModeOfNewFiles()) == 0);
    }
}

OutputFile::~OutputFile() {
    if (!m_Part.empty()) {
        g_szPart = nullptr;
        unlink(m_Part.c_str());
    }
    if (m_hFile >= 0) {
        close(m_hFile);
    }
}

void OutputFile::OpenPart(const std::string& target) {
    m_Target = target;
    std::string name = target + ".part-XXXXXX";
    const SignalsHeld held;
    m_hFile = mkostemp(name.data(), O_CLOEXEC);
    Check(m_hFile >= 0, "folder " + FolderOf(target).string() + ": ");
    m_Part = std::move(name);
    g_szPart = m_Part.c_str();
    CatchEndingSignals();
}

std::FILE* OutputFile::OpenStream() const {
    const int file = dup(m_hFile);
    std::FILE* const stream = file < 0 ? nullptr : fdopen(file, "wb");
    Check(stream != nullptr);
    return stream;
}

void OutputFile::Commit() {
    if (m_Part.empty()) {
        return;
    }
    if (fsync(m_hFile) != 0 || std::rename(m_Part.c_str(), m_Target.c_str()) != 0) {
        throw Failure(m_Name + ": " + std::strerror(errno) +
                      " while it was put in its place; make room or choose another file");
    }
    g_szPart = nullptr;
    m_Part.clear();
    // The new name reaches the disk with its folder, where folders can be synced.
    if (const int folder = open(FolderOf(m_Target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        folder >= 0) {
        fsync(folder);
        close(folder);
    }
}

void OutputFile::Check(bool well, const std::string& where) const {
    if (!well) {
        throw BadInput(m_Name + ": " + where + std::strerror(errno) + "; choose another file");
    }
}

void WriteWhole(const std::string& path, const std::string& text) {
    OutputFile file(path);
    std::FILE* const stream = file.OpenStream();
    const bool written = std::fwrite(text.data(), 1, text.size(), stream) == text.size();
    if (std::fclose(stream) != 0 || !written) {
        throw Failure(file.Name() + ": " + std::strerror(errno) +
                      " while writing; make room or choose another file");
    }
    file.Commit();
}

}  // namespace tools
