// What opening and closing a screen takes beside others that are open: RegistMap with InitMap, and
// UnregistMap. And what InitMap takes of the screens that have most to read. Names end in the size.

#include <benchmark/benchmark.h>

#include <array>
#include <chrono>

#include "bench/support/monitor_terminal.h"
#include "bench/support/open_session.h"

namespace {

constexpr int kOpened = 16;  // at a time
constexpr int kTimes = 64;   // bounds the time where closing is slow

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

enum class Step { Opening, Closing };

// Of a tick list whose key no other follows.
void Register(bench::OpenSession& open, const std::string& what, Step timed, unsigned others) {
    const std::string name = what + "/" + std::to_string(others);
    const auto ask = [&open, timed, others](benchmark::State& state) {
        open.Of(std::to_string(others), [others] { return bench::TickLists(others, others); });
        HWND window = tickhost_create_window(nullptr, nullptr);
        const std::string inquiry = TickInquiry("1OTHER").Dates({});
        std::array<uintptr_t, kOpened> maps{};
        for ([[maybe_unused]] auto _ : state) {
            const Clock::time_point opening = Clock::now();
            for (uintptr_t& map : maps) {
                map = ModuleForm::Regist(window, "RSTICK11_R");
                ModuleForm::Init(map, inquiry);
            }
            const double opened = SecondsSince(opening);
            const Clock::time_point closing = Clock::now();
            for (const uintptr_t map : maps) {
                ModuleForm::Unregist(map);
            }
            state.SetIterationTime(timed == Step::Opening ? opened : SecondsSince(closing));
        }
        state.SetItemsProcessed(state.iterations() * kOpened);
        tickhost_destroy_window(window);
    };
    benchmark::RegisterBenchmark(name.c_str(), ask)->UseManualTime()->Iterations(kTimes);
}

// Every limit of the 50 rows that may have an alarm.
std::string Alarms() {
    constexpr int kAlarms = 50;
    std::string file;
    for (int place = 1; place <= kAlarms; ++place) {
        file += "[ALARM 07-" + std::to_string(1000 + place).substr(1) + "]\nBasis price=1\ncomparison=0\n" +
                "price=1\ndecreased price=900\nincreased price=1100\nVolume=1000000\n";
    }
    return file;
}

void RegisterInit(const std::string& what, const char* map, unsigned size, const std::string& inquiry) {
    const std::string name = what + "/" + std::to_string(size);
    benchmark::RegisterBenchmark(name.c_str(), [map, size, inquiry](benchmark::State& state) {
        const bench::MonitorTerminal terminal(size, 0);
        terminal.Write("InterestAlarm.ini", Alarms());
        const uintptr_t handle = ModuleForm::Regist(nullptr, map);
        for ([[maybe_unused]] auto _ : state) {
            if (ModuleForm::Init(handle, inquiry) == 0) {
                state.SkipWithError("Init was refused");
                break;
            }
        }
        state.SetItemsProcessed(state.iterations());
        ModuleForm::Unregist(handle);
    });
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (const unsigned stocks : {1U, 50U, 200U}) {
        RegisterInit("InitMap of an interest board of so many stocks", "RSITST01_R", stocks,
                     InterestInquiry(StockCodes(stocks)));
    }
    for (const unsigned stocks : {10U, 1000U, 10000U}) {
        RegisterInit("InitMap of a trade monitor of so many stocks", "RSFLDN01_R", stocks, "M1unread..");
    }
    bench::OpenSession open;
    for (const unsigned others : {1U, 1000U, 100000U}) {
        Register(open, "opening a tick list beside others", Step::Opening, others);
        Register(open, "closing a tick list beside others", Step::Closing, others);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
