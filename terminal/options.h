// Command lines: what the tools ask of values beyond the library that reads them, and their words for a wrong
// call.
#ifndef TICKMUX_TERMINAL_OPTIONS_H
#define TICKMUX_TERMINAL_OPTIONS_H

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <string>

namespace tools {

// Sets a program's help up: what stands behind the options on its command line, and the words at both ends.
void SetUpOptions(CLI::App& app, const std::string& usage, const std::string& purpose,
                  const std::string& notes);

// An option with a value, of which the last one counts. `value` stands for it in the help.
void AddOption(CLI::App& app, const std::string& name, const std::string& value, const std::string& help,
               const std::function<void(const std::string&)>& take);

// Takes a whole number of the range.
template <class Number>
void AddNumber(CLI::App& app, const std::string& name, const std::string& help, Number& number,
               int64_t lowest, int64_t highest);

// Takes the path of a folder.
void AddFolder(CLI::App& app, const std::string& name, const std::string& help, std::string& folder);

// Sets what the options are bound to. False if the help was asked for; then it is printed. BadInput for a
// wrong call.
bool ReadOptions(CLI::App& app, int argc, char** argv);

// BadInput, naming the option, unless `text` is a number of the range.
int64_t NumberOption(const std::string& name, const std::string& text, int64_t lowest, int64_t highest);
double DecimalOption(const std::string& name, const std::string& text, double lowest, double highest);

template <class Number>
void AddNumber(CLI::App& app, const std::string& name, const std::string& help, Number& number,
               int64_t lowest, int64_t highest) {
    AddOption(app, name, "N", help, [&number, name, lowest, highest](const std::string& text) {
        number = static_cast<Number>(NumberOption(name, text, lowest, highest));
    });
}

}  // namespace tools

#endif
