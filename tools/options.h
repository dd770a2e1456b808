// Reading of command lines: what getopt_long leaves to be done.
#ifndef TICKMUX_TOOLS_OPTIONS_H
#define TICKMUX_TOOLS_OPTIONS_H

#include <getopt.h>

#include <cstdint>
#include <functional>
#include <string>

namespace tools {

// Calls `take` with the short name and the value of each option, in order. BadInput for an option that is not
// in `options`, or lacks its value. Gives the index of the first argument that is no option.
int ReadOptions(int argc, char** argv, const option* options,
                const std::function<void(int, const std::string&)>& take);

// BadInput, naming the option, unless `text` is a whole number of the range.
int64_t NumberOption(const char* name, const std::string& text, int64_t lowest, int64_t highest);

// The same for a number that may have decimals.
double DecimalOption(const char* name, const std::string& text, double lowest, double highest);

// BadInput, naming the option, unless `text` is the path of a folder.
std::string FolderOption(const char* name, const std::string& text);

}  // namespace tools

#endif
