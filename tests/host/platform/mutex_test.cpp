#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <string>
#include <thread>

#include "host/platform/platform.h"
#include "tests/support/child_process.h"

namespace {

using namespace std::chrono_literals;

std::string NameOfTest() {
    return std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) +
           std::to_string(getpid());
}

// What another thread gets that tries for the mutex, and gives it back.
DWORD Tried(HANDLE mutex, DWORD milliseconds = 0) {
    DWORD result = WAIT_FAILED;
    std::thread([&] {
        result = WaitForSingleObject(mutex, milliseconds);
        ReleaseMutex(mutex);
    }).join();
    return result;
}

}  // namespace

TEST(Mutex, NestsInItsThreadAndExcludesOthers) {
    const std::string name = NameOfTest();
    HANDLE unnamed = CreateMutexA(nullptr, FALSE, "");
    for (const char* const text : {name.c_str(), "", static_cast<const char*>(nullptr)}) {
        HANDLE mutex = CreateMutexA(nullptr, TRUE, text);
        EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
        EXPECT_EQ(WaitForSingleObject(mutex, 5), WAIT_OBJECT_0);
        for (int left = 3; left > 0; --left) {
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(Tried(mutex, 10), WAIT_TIMEOUT);
            EXPECT_GE(std::chrono::steady_clock::now() - start, 10ms);
            EXPECT_TRUE(ReleaseMutex(mutex));
        }
        EXPECT_FALSE(ReleaseMutex(mutex));
        EXPECT_EQ(Tried(mutex), WAIT_OBJECT_0);
        EXPECT_EQ(WaitForSingleObject(unnamed, 0), WAIT_OBJECT_0);
        EXPECT_EQ(Tried(mutex, 1), WAIT_OBJECT_0) << "what has no name has nothing in common";
        EXPECT_TRUE(CloseHandle(mutex));
    }
    ReleaseMutex(unnamed);
    CloseHandle(unnamed);
}

TEST(Mutex, ExistsWhileAnyProcessHasAHandle) {
    const std::string tag = NameOfTest();
    for (const std::string& name : {tag, tag + "/x\\..%\xB0\xA1", tag + std::string(200, '/')}) {
        const auto open = [&] { return OpenMutexA(MUTEX_ALL_ACCESS, FALSE, name.c_str()); };
        EXPECT_EQ(open(), nullptr);
        HANDLE created = CreateMutexA(nullptr, FALSE, name.c_str());
        HANDLE opened = open();
        ASSERT_TRUE(created != nullptr && opened != nullptr && created != opened);
        WaitForSingleObject(created, INFINITE);
        EXPECT_EQ(Tried(opened), WAIT_TIMEOUT);
        EXPECT_TRUE(ReleaseMutex(opened));

        Child child([&] {
            const bool inherited = CloseHandle(created) || WaitForSingleObject(opened, 0) != WAIT_FAILED;
            if (inherited || open() == nullptr) {
                _exit(1);
            }
        });
        CloseHandle(created);
        CloseHandle(opened);
        HANDLE again = open();
        EXPECT_NE(again, nullptr) << "the child has it";
        EXPECT_TRUE(InSystem(tag));
        child.Kill();
        CloseHandle(again);
        EXPECT_EQ(open(), nullptr);
        EXPECT_FALSE(InSystem(tag));
    }
    EXPECT_EQ(CreateMutexA(nullptr, FALSE, std::string(300, 'x').c_str()), nullptr);
    EXPECT_EQ(OpenMutexA(MUTEX_ALL_ACCESS, FALSE, nullptr), nullptr);
}

TEST(Mutex, GoesOnWhenItsHolderIsKilled) {
    const std::string name = NameOfTest();
    const auto take = [&] {
        if (WaitForSingleObject(CreateMutexA(nullptr, FALSE, name.c_str()), INFINITE) != WAIT_OBJECT_0) {
            _exit(1);
        }
    };
    HANDLE mutex = CreateMutexA(nullptr, FALSE, name.c_str());
    for (int round = 0; round < 4; ++round) {
        Child holder(take);
        ASSERT_EQ(WaitForSingleObject(mutex, 0), WAIT_TIMEOUT);
        auto waiter = std::async(std::launch::async, [&] { return Tried(mutex, 1000); });
        std::this_thread::sleep_for(round % 2 * 1ms);
        holder.Kill();
        ASSERT_EQ(waiter.get(), WAIT_ABANDONED) << "round " << round;
    }
    EXPECT_EQ(Tried(mutex), WAIT_OBJECT_0);
    CloseHandle(mutex);

    // With nobody else there, what the dead left is nobody's.
    Child(take).Kill();
    EXPECT_EQ(OpenMutexA(MUTEX_ALL_ACCESS, FALSE, name.c_str()), nullptr);
    EXPECT_FALSE(InSystem(name));
    Child(take).Kill();
    mutex = CreateMutexA(nullptr, TRUE, name.c_str());
    EXPECT_EQ(Tried(mutex), WAIT_TIMEOUT);
    ReleaseMutex(mutex);
    CloseHandle(mutex);
    EXPECT_FALSE(InSystem(name));
}

TEST(Mutex, IsGivenUpByAThreadThatEndsAndKeptByAnOwnerWithoutHandle) {
    const std::string name = NameOfTest();
    HANDLE mutex = CreateMutexA(nullptr, FALSE, name.c_str());
    std::thread([&] {
        WaitForSingleObject(mutex, INFINITE);
        WaitForSingleObject(mutex, INFINITE);
    }).join();
    EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_ABANDONED);
    CloseHandle(mutex);
    mutex = OpenMutexA(MUTEX_ALL_ACCESS, FALSE, name.c_str());
    ASSERT_NE(mutex, nullptr);
    EXPECT_EQ(Tried(mutex), WAIT_TIMEOUT);
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(Tried(mutex), WAIT_OBJECT_0);
    CloseHandle(mutex);
    EXPECT_FALSE(InSystem(name));
}

// Processes and threads that make, take, give back and close at each turn: the object comes and goes under
// them.
TEST(Mutex, ExcludesWhileItComesAndGoes) {
    const std::string name = NameOfTest();
    constexpr int kTurns = 2000;
    void* const memory =
        mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    auto* const count = static_cast<volatile int*>(memory);
    const auto work = [&] {
        for (int turn = 0; turn < kTurns; ++turn) {
            HANDLE mutex = CreateMutexA(nullptr, FALSE, name.c_str());
            const DWORD result = WaitForSingleObject(mutex, INFINITE);
            *count = *count + (result == WAIT_OBJECT_0 ? 1 : 0);
            ReleaseMutex(mutex);
            CloseHandle(mutex);
        }
    };
    std::vector<pid_t> processes;
    for (int process = 0; process < 2; ++process) {
        processes.push_back(fork());
        if (processes.back() == 0) {
            work();
            _exit(0);
        }
    }
    std::thread other(work);
    work();
    other.join();
    for (const pid_t process : processes) {
        waitpid(process, nullptr, 0);
    }
    EXPECT_EQ(*count, 4 * kTurns);
    EXPECT_FALSE(InSystem(name));
    munmap(memory, sizeof(int));
}
