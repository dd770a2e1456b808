// A folder of the test's own, that goes with it.
#ifndef TICKMUX_TESTS_SUPPORT_SCRATCH_FOLDER_H
#define TICKMUX_TESTS_SUPPORT_SCRATCH_FOLDER_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class ScratchFolder {
public:
    ScratchFolder() : m_Path((std::filesystem::temp_directory_path() / "tickmux-test-XXXXXX").string()) {
        if (mkdtemp(m_Path.data()) == nullptr) {
            std::abort();
        }
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() { std::filesystem::remove_all(m_Path); }

    std::string Path(const std::string& file) const { return m_Path + "/" + file; }
    std::string Write(const std::string& file, const std::string& text) const {
        std::ofstream(Path(file), std::ios::binary) << text;
        return Path(file);
    }
    std::string Read(const std::string& file) const {
        std::ifstream stream(Path(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::string m_Path;
};

#endif
