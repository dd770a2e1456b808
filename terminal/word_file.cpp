#include "terminal/word_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>

#include "terminal/errors.h"

namespace tools {

namespace {

bool IsBlankChar(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

// The words of a line up to its comment. Quotes join what stands between them.
std::vector<std::string> Words(const std::string& line) {
    std::vector<std::string> words;
    bool inWord = false;
    bool inQuotes = false;
    for (const char c : line) {
        if (!inQuotes && IsBlankChar(c)) {
            inWord = false;
            continue;
        }
        if (!inWord) {
            if (c == '#') {
                break;
            }
            words.emplace_back();
            inWord = true;
        }
        if (c == '"') {
            inQuotes = !inQuotes;
        } else {
            words.back() += c;
        }
    }
    if (inQuotes) {
        throw BadInput("a double quote is not closed; close it");
    }
    return words;
}

// The lines of a text file. What is none, or has no end, is refused where that shows.
class Lines {
public:
    explicit Lines(const std::string& path) : m_File(path) {}

    // False at the end of the file. BadInput for the line that has been reached.
    bool Next(std::string& line) {
        constexpr std::size_t kLongestLine = 256 << 10U;
        constexpr std::size_t kLargestFile = 16 << 20U;
        line.clear();
        int byte = m_File.get();
        const bool found = byte != std::ifstream::traits_type::eof();
        for (; byte != std::ifstream::traits_type::eof() && byte != '\n'; byte = m_File.get()) {
            if (byte == 0) {
                throw BadInput("a zero byte, which no text has; give a text file, not UTF-16");
            }
            line += static_cast<char>(byte);
            if (line.size() > kLongestLine) {
                throw BadInput("a line of more than 256 KiB; give a text file with one record a line");
            }
        }
        m_nBytes += line.size() + 1;
        if (m_nBytes > kLargestFile) {
            throw BadInput("more than 16 MiB up to here; give a smaller file");
        }
        if (!std::exchange(m_bBegun, true) && line.starts_with("\xEF\xBB\xBF")) {
            throw BadInput("begins with a UTF-8 byte order mark; save it without");
        }
        return found;
    }

    bool IsOpen() const { return m_File.is_open(); }
    bool IsBad() const { return m_File.bad(); }

private:
    std::ifstream m_File;
    std::size_t m_nBytes = 0;
    bool m_bBegun = false;
};

}  // namespace

void ReadWordFile(const std::string& path, const TakeWords& take) {
    Lines lines(path);
    if (!lines.IsOpen()) {
        throw BadInput(path + ": " + std::strerror(errno) + "; check the path");
    }
    std::string line;
    for (int number = 1;; ++number) {
        const std::string place = path + ":" + std::to_string(number);
        try {
            if (!lines.Next(line)) {
                break;
            }
            if (const std::vector<std::string> words = Words(line); !words.empty()) {
                take(place, words);
            }
        } catch (const BadInput& bad) {
            throw BadInput(place + ": " + bad.what());
        }
    }
    if (lines.IsBad()) {
        throw BadInput(path + ": " + std::strerror(errno) + "; give a text file");
    }
}

}  // namespace tools
