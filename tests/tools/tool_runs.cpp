#include "tests/tools/tool_runs.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

std::string ReadFile(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

Outcome RunTool(const std::string& program, const std::string& arguments) {
    const std::string command = std::string(TOOL_DIR) + "/" + program + " " + arguments + " 2>&1";
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string text;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        text += static_cast<char>(c);
    }
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}
