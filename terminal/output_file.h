// A file that takes its place when it is whole. Until then it grows beside its target, so that the former
// file stays as it was if the disk is full, if the program fails, or if a signal ends it.
//
// What is no regular file, such as a pipe or a device, is written where it is. So is standard output, "-".
#ifndef TICKMUX_TERMINAL_OUTPUT_FILE_H
#define TICKMUX_TERMINAL_OUTPUT_FILE_H

#include <cstdio>
#include <string>

namespace tools {

class OutputFile {
public:
    // BadInput, with a remedy, if the file cannot be made.
    explicit OutputFile(const std::string& path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    // Without Commit() the target stays as it was.
    ~OutputFile();

    // The caller's to close.
    std::FILE* OpenStream() const;

    // To be called when all is written and flushed. Failure unless the file is then on the disk and in its
    // place.
    void Commit();

    // As it is told to the user.
    const std::string& Name() const { return m_Name; }
    bool IsStandardOutput() const { return m_bStandardOutput; }

private:
    OutputFile() = default;

    void OpenPart(const std::string& target);
    // BadInput, with errno's words, unless it went well.
    void Check(bool well, const std::string& where = "") const;

    std::string m_Name;
    std::string m_Target;  // through all links
    std::string m_Part;    // empty: there is none
    bool m_bStandardOutput = false;
    int m_hFile = -1;
};

// Writes all of a file. BadInput or Failure as above.
void WriteWhole(const std::string& path, const std::string& text);

}  // namespace tools

#endif
