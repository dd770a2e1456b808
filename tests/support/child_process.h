// A process that runs `body`, says that it did, and lives on until it is killed.
#ifndef TICKMUX_TESTS_SUPPORT_CHILD_PROCESS_H
#define TICKMUX_TESTS_SUPPORT_CHILD_PROCESS_H

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>

class Child {
public:
    explicit Child(const std::function<void()>& body) {
        int ends[2] = {};
        EXPECT_EQ(pipe(ends), 0);
        m_Process = fork();
        if (m_Process == 0) {
            body();
            _exit(write(ends[1], "", 1) == 1 ? pause() : 1);
        }
        close(ends[1]);  // a child that dies is not waited for
        char done = 0;
        EXPECT_EQ(read(ends[0], &done, 1), 1);
        close(ends[0]);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() { Kill(); }

    void Kill() {
        if (m_Process > 0) {
            kill(m_Process, SIGKILL);
            waitpid(m_Process, nullptr, 0);
            m_Process = 0;
        }
    }

private:
    pid_t m_Process = 0;
};

// Whether the system has an object of a mutex with this name, letters and digits only, or one that has it in
// it.
inline bool InSystem(const std::string& name) {
    const std::filesystem::directory_iterator objects("/dev/shm");
    return std::any_of(begin(objects), end(objects), [&](const auto& entry) {
        return entry.path().string().find(name) != std::string::npos;
    });
}

#endif
