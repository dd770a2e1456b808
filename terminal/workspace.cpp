#include "terminal/workspace.h"

#include <filesystem>

#include "terminal/errors.h"
#include "terminal/text.h"
#include "terminal/word_file.h"

namespace tools {

namespace {

constexpr char kForm[] = "write MAP KEY [Field=value ...]";

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
    std::vector<WorkspaceLine> screens;
    ReadWordFile(path, [&screens](const std::string& place, const std::vector<std::string>& words) {
        screens.push_back(ScreenOf(words));
        screens.back().Place = place;
    });
    if (screens.empty()) {
        throw BadInput(path + ": names no screen; add a line such as RSTICK11_R 1ASII");
    }
    return screens;
}

MasterData MasterBeside(const std::string& workspace) {
    std::filesystem::path path(workspace);
    path.replace_extension(".master");
    std::error_code error;
    return std::filesystem::exists(path, error) ? ReadMasterData(path.string()) : MasterData();
}

InitText InitOf(const WorkspaceLine& line, const InitDefaults& defaults, std::string_view tag) {
    try {
        const ScreenKind& kind = FindScreenKind(line.Map);
        InitText init = kind.MakeInit(line.Key, defaults);
        if (init.HasTag()) {
            init.Set("Tag", tag);
        }
        for (const auto& [name, value] : line.Fields) {
            init.Set(name, value);
        }
        kind.Complete(init);
        return init;
    } catch (const BadInput& bad) {
        throw BadInput(line.Place + ": " + bad.what());
    }
}

}  // namespace tools
