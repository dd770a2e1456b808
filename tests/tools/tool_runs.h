// Runs of the terminal programs.
#ifndef TICKMUX_TESTS_TOOLS_TOOL_RUNS_H
#define TICKMUX_TESTS_TOOLS_TOOL_RUNS_H

#include <string>

#include "tests/support/scratch_folder.h"

std::string ReadFile(const std::string& path);

struct Outcome {
    int Status;
    std::string Text;  // standard output and standard error, as they came
};

// Runs a program of the build with arguments as a shell reads them.
Outcome RunTool(const std::string& program, const std::string& arguments);

#endif
