// The map guard's holder is killed: whoever waits within the module goes on.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/reliability/bare_host.h"
#include "tests/support/child_process.h"

TEST(MapGuard, AWaiterGoesOnWithinASecondWhenTheHolderIsKilled) {
    using namespace std::chrono_literals;
    using Clock = std::chrono::steady_clock;
    std::string name = "tickmux-k" + std::to_string(getpid());
    BareHost host;
    BareScreen screen(host, SampleOf("RSNOCH21_R"));
    screen.Regist();
    SetMutexNameToDecoder(name.data());
    for (int round = 0; round < 100; ++round) {
        Child holder([&name] {
            if (WaitForSingleObject(CreateMutexA(nullptr, FALSE, name.c_str()), 1000) == WAIT_TIMEOUT) {
                _exit(1);
            }
        });
        std::thread waiter([&screen] { EXPECT_EQ(screen.InitFirst(), 1); });
        if (round % 2 == 0) {
            std::this_thread::sleep_for(1ms);
        }
        const auto killed = Clock::now();
        holder.Kill();
        waiter.join();
        ASSERT_LT(Clock::now() - killed, 1s) << "round " << round;
    }
    screen.Unregist();
    EXPECT_FALSE(LeftInSystem(name));
    name.clear();
    SetMutexNameToDecoder(name.data());
}
