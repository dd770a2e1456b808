#include "tools/word_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "tools/errors.h"

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

}  // namespace

void ReadWordFile(const std::string& path, const TakeWords& take) {
    std::ifstream file(path);
    if (!file) {
        throw BadInput(path + ": " + std::strerror(errno) + "; check the path");
    }
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        const std::string place = path + ":" + std::to_string(number);
        try {
            if (const std::vector<std::string> words = Words(line); !words.empty()) {
                take(place, words);
            }
        } catch (const BadInput& bad) {
            throw BadInput(place + ": " + bad.what());
        }
    }
    if (file.bad()) {
        throw BadInput(path + ": " + std::strerror(errno) + "; give a text file");
    }
}

}  // namespace tools
