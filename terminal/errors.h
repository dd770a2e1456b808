// How a tool prints, and how it gives up: one line that names the place and the remedy, and an exit status.
#ifndef TICKMUX_TERMINAL_ERRORS_H
#define TICKMUX_TERMINAL_ERRORS_H

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <string>

namespace tools {

inline constexpr int kExitFailure = 1;
inline constexpr int kExitBadInput = 2;

// What the user gave cannot be used.
class BadInput : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Something else went wrong.
class Failure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Standard output may be full; what is lost there is told.
inline void CheckOutput(bool written) {
    if (!written) {
        throw Failure(std::string("standard output: ") + std::strerror(errno) +
                      " while writing; make room or write elsewhere");
    }
}

inline void Print(const std::string& text) {
    CheckOutput(std::fputs(text.c_str(), stdout) >= 0);
}

inline void FlushOutput() {
    CheckOutput(std::fflush(stdout) == 0);
}

inline int GiveUp(const char* tool, const std::exception& reason, int status) {
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %s\n", tool, reason.what());
    return status;
}

// Runs a tool's body and turns what it throws into the line and the status.
inline int RunTool(const char* name, int (*body)(int, char**), int argc, char** argv) {
    try {
        const int status = body(argc, argv);
        FlushOutput();
        return status;
    } catch (const BadInput& bad) {
        return GiveUp(name, bad, kExitBadInput);
    } catch (const std::exception& failure) {
        return GiveUp(name, failure, kExitFailure);
    }
}

}  // namespace tools

#endif
