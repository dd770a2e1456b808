#include "tools/workspace.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "tools/errors.h"
#include "tools/text.h"

namespace tools {

namespace {

constexpr char kForm[] = "write MAP KEY [Field=value ...]";

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

WorkspaceLine ScreenOf(const std::vector<std::string>& words) {
    if (words.size() < 2) {
        throw BadInput("no key behind " + Quoted(words.front()) + "; " + kForm);
    }
    WorkspaceLine screen{"", words[0], words[1], {}};
    for (auto word = words.begin() + 2; word != words.end(); ++word) {
        const std::size_t equals = word->find('=');
        if (equals == 0 || equals == std::string::npos) {
            throw BadInput(Quoted(*word) + " is not of the form Field=value; " + kForm);
        }
        screen.Fields.emplace_back(word->substr(0, equals), word->substr(equals + 1));
    }
    return screen;
}

}  // namespace

std::vector<WorkspaceLine> ReadWorkspace(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        throw BadInput(path + ": " + std::strerror(errno) + "; check the path");
    }
    std::vector<WorkspaceLine> screens;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        const std::string place = path + ":" + std::to_string(number);
        try {
            if (const std::vector<std::string> words = Words(line); !words.empty()) {
                screens.push_back(ScreenOf(words));
                screens.back().Place = place;
            }
        } catch (const BadInput& bad) {
            throw BadInput(place + ": " + bad.what());
        }
    }
    if (file.bad()) {
        throw BadInput(path + ": " + std::strerror(errno) + "; give a text file");
    }
    if (screens.empty()) {
        throw BadInput(path + ": names no screen; add a line such as RSTICK11_R 1ASII");
    }
    return screens;
}

}  // namespace tools
