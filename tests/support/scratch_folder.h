// A folder of the test's own, that goes with it.
#ifndef TICKMUX_TESTS_SUPPORT_SCRATCH_FOLDER_H
#define TICKMUX_TESTS_SUPPORT_SCRATCH_FOLDER_H

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class ScratchFolder {
public:
    ScratchFolder() {
        std::random_device dice;
        do {
            m_Path = (std::filesystem::temp_directory_path() / ("tickmux-test-" + std::to_string(dice())))
                         .string();
        } while (!std::filesystem::create_directory(m_Path));
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() { std::filesystem::remove_all(m_Path); }

    std::string Path(const std::string& file) const { return m_Path + "/" + file; }
    // As if written a while ago, so that the host may keep what it reads, each time at another moment.
    std::string Write(const std::string& file, const std::string& text) const {
        std::ofstream(Path(file), std::ios::binary) << text;
#ifndef _WIN32  // where that can be told to the second only
        std::filesystem::last_write_time(
            Path(file), std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
#endif
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
