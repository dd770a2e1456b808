// Runs of the terminal programs, and the files that they are given.
#ifndef TICKMUX_TESTS_TOOLS_TOOL_RUNS_H
#define TICKMUX_TESTS_TOOLS_TOOL_RUNS_H

#include <string>

// A folder that goes away with everything in it.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    std::string Path(const std::string& name) const { return m_Path + "/" + name; }
    // Writes a file and gives its path.
    std::string File(const std::string& name, const std::string& content) const;

private:
    std::string m_Path;
};

std::string ReadFile(const std::string& path);

struct Outcome {
    int Status;
    std::string Text;  // standard output and standard error, as they came
};

// Runs a program of the build with arguments as a shell reads them.
Outcome RunTool(const std::string& program, const std::string& arguments);

#endif
