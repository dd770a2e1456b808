// Runs of the terminal programs.
#ifndef TICKMUX_TESTS_PROGRAMS_TOOL_RUNS_H
#define TICKMUX_TESTS_PROGRAMS_TOOL_RUNS_H

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/scratch_folder.h"

inline std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Outcome {
    int Status;
    std::string Text;  // standard output and standard error, as they came
};

// Runs a program of the build with arguments as a shell reads them, behind what the shell does first.
inline Outcome RunTool(const std::string& program, const std::string& arguments,
                       const std::string& before = "") {
    const std::string command = before + TOOL_DIR "/" + program + " 2>&1 " + arguments;
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string text;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        text += static_cast<char>(c);
    }
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}

#endif
