// Private profile files: [section], key=value, and comments behind a semicolon at the head of a line.
//
// Of sections or keys of one name the first counts. A line ends at its first zero byte. What is neither
// section nor key=value is passed over, and so are keys in front of the first section.
#include "host/platform/profile.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

}  // namespace

std::string ProfileFile::WholeText(const std::string& path) {
    // Past the streams' own operators, which take what memory fails for as the file's end.
    std::ifstream file(path, std::ios::binary);
    try {
        return {std::istreambuf_iterator<char>(file), {}};
    } catch (const std::ios_base::failure&) {  // a folder
        return {};
    }
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
