// Private profile files: [section], key=value, and comments behind a semicolon at the head of a line.
//
// Of sections or keys of one name the first counts. A line ends at its first zero byte. What is neither
// section nor key=value is passed over, and so are keys in front of the first section.
#include "host/platform/profile.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <utility>

#include "host/platform/guarded.h"
#include "host/platform/paths.h"
#include "host/platform/platform.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string ReadWhole(const std::string& path) {
    // Past the streams' own operators, which take what memory fails for as the file's end.
    std::ifstream file(path, std::ios::binary);
    try {
        return {std::istreambuf_iterator<char>(file), {}};
    } catch (const std::ios_base::failure&) {  // a folder
        return {};
    }
}

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
        auto read = std::make_shared<const ProfileFile>(ReadWhole(path));
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

std::string_view WithoutBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\v\f\x1A";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string_view WithoutQuotes(std::string_view text) {
    const bool quoted =
        text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// A name without regard to case, but for the second byte of a two-byte character: a letter there is none.
std::string Folded(std::string_view name) {
    std::string folded(name);
    bool second = false;
    for (char& letter : folded) {
        const bool leads = !second && static_cast<unsigned char>(letter) > 0x80;
        letter = second ? letter : Lower(letter);
        second = leads;
    }
    return folded;
}

// A name that a caller looks for; an empty one finds nothing.
template <class Rows>
auto FindNamed(const Rows& rows, std::string_view wanted) -> const typename Rows::value_type* {
    const std::string name = Folded(WithoutBlanks(wanted));
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.Folded == name; });
    return name.empty() || found == rows.end() ? nullptr : &*found;
}

DWORD Answer(std::string_view text, char* buffer, DWORD size) {
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    buffer[text.copy(buffer, length)] = '\0';
    return static_cast<DWORD>(length);
}

// A list that is cut ends with two zero bytes as well.
DWORD AnswerList(std::string_view list, char* buffer, DWORD size) {
    if (list.size() < size) {
        return Answer(list, buffer, size);
    }
    const std::size_t length = size < 2 ? 0 : size - 2;
    std::fill(buffer + list.copy(buffer, length), buffer + size, '\0');
    return static_cast<DWORD>(length);
}

template <class Rows, class Name>
std::string Names(const Rows& rows, Name name) {
    std::string list;
    for (const auto& row : rows) {
        list.append(row.*name).push_back('\0');
    }
    return list;
}

}  // namespace

std::shared_ptr<const ProfileFile> ProfileFile::Read(const char* path) {
    KeptFiles& kept = KeptFiles::Get();
    return path == nullptr ? kept.None() : kept.Read(HostPath(path));
}

ProfileFile::ProfileFile(std::string text) : m_Text(std::move(text)) {
    std::string_view rest = m_Text;
    if (rest.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        rest.remove_prefix(kByteOrderMark.size());
    }
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        TakeLine(WithoutBlanks(line.substr(0, line.find('\0'))));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

void ProfileFile::TakeLine(std::string_view line) {
    if (line.empty() || line.front() == ';') {
        return;
    }
    if (const std::size_t close = line.find(']'); line.front() == '[' && close != std::string_view::npos) {
        const std::string_view name = WithoutBlanks(line.substr(1, close - 1));
        m_Sections.push_back({name, Folded(name), {}});
        return;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || m_Sections.empty()) {
        return;
    }
    const std::string_view key = WithoutBlanks(line.substr(0, equals));
    m_Sections.back().Entries.push_back(
        {key, Folded(key), WithoutQuotes(WithoutBlanks(line.substr(equals + 1)))});
}

const ProfileFile::Entry* ProfileFile::Section::Find(std::string_view key) const {
    return FindNamed(Entries, key);
}

const ProfileFile::Section* ProfileFile::Find(std::string_view section) const {
    return FindNamed(m_Sections, section);
}

const ProfileFile::Entry* ProfileFile::Find(std::string_view section, std::string_view key) const {
    const Section* const found = Find(section);
    return found == nullptr ? nullptr : found->Find(key);
}

UINT GetPrivateProfileIntA(const char* section, const char* key, int defaultValue, const char* path) {
    const auto otherwise = static_cast<UINT>(defaultValue);
    if (section == nullptr || key == nullptr) {
        return otherwise;
    }
    return OrRefuse(otherwise, [&] {
        const auto file = ProfileFile::Read(path);
        const ProfileFile::Entry* const entry = file->Find(section, key);
        if (entry == nullptr) {
            return otherwise;
        }
        std::string_view digits = entry->Value;
        const bool negative = !digits.empty() && digits.front() == '-';
        if (negative || (!digits.empty() && digits.front() == '+')) {
            digits.remove_prefix(1);
        }
        UINT number = 0;  // wraps beyond 32 bits
        for (const char digit : digits) {
            if (digit < '0' || digit > '9') {
                break;
            }
            number = number * 10 + static_cast<UINT>(digit - '0');
        }
        return negative ? 0 - number : number;
    });
}

DWORD GetPrivateProfileStringA(const char* section, const char* key, const char* defaultValue, char* buffer,
                               DWORD size, const char* path) {
    if (buffer == nullptr || size == 0) {
        return 0;
    }
    *buffer = '\0';
    return OrRefuse(DWORD{0}, [&] {
        const auto file = ProfileFile::Read(path);
        if (section == nullptr) {
            return AnswerList(Names(file->Sections(), &ProfileFile::Section::Name), buffer, size);
        }
        if (key == nullptr) {
            const ProfileFile::Section* const found = file->Find(section);
            return found == nullptr
                       ? AnswerList({}, buffer, size)
                       : AnswerList(Names(found->Entries, &ProfileFile::Entry::Key), buffer, size);
        }
        if (const ProfileFile::Entry* const entry = file->Find(section, key)) {
            return Answer(entry->Value, buffer, size);
        }
        const std::string_view otherwise = defaultValue == nullptr ? "" : defaultValue;
        return Answer(otherwise.substr(0, otherwise.find_last_not_of(' ') + 1), buffer, size);
    });
}
