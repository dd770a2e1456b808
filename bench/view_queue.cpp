// What adding to a view queue costs, beside the least that a queue shared by two threads can cost: a lock and
// a link; and what a host pays that takes an item.
#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <mutex>
#include <thread>

#include "host/services/services.h"
#include "host/tickhost.h"

namespace {

constexpr int kItems = 1000;  // between two times that the queue is emptied, which is not timed

void AddTail(benchmark::State& state) {
    CRtmPtrList queue;
    int item = 0;
    while (state.KeepRunningBatch(kItems)) {
        for (int count = 0; count < kItems; ++count) {
            benchmark::DoNotOptimize(queue.AddTail(&item));
        }
        state.PauseTiming();
        queue.RemoveAll();
        state.ResumeTiming();
    }
}
BENCHMARK(AddTail);

struct Link {
    Link* Next;
    void* Item;
};

struct LinkedList {
    std::mutex Lock;
    Link* Head = nullptr;
    Link* Tail = nullptr;

    // As a call, like a library's.
    [[gnu::noinline]] void Add(Link* link) {
        const std::lock_guard hold(Lock);
        (Tail == nullptr ? Head : Tail->Next) = link;
        Tail = link;
    }
};

void LockAndLink(benchmark::State& state) {
    LinkedList list;
    const auto links = std::make_unique<std::array<Link, kItems>>();
    int item = 0;
    while (state.KeepRunningBatch(kItems)) {
        for (Link& link : *links) {
            link = {nullptr, &item};
            list.Add(&link);
        }
        benchmark::DoNotOptimize(list.Head);
        state.PauseTiming();
        list.Head = list.Tail = nullptr;
        state.ResumeTiming();
    }
}
BENCHMARK(LockAndLink);

void TakeViewItem(benchmark::State& state) {
    CRtmPtrList queue;
    while (state.KeepRunningBatch(kItems)) {
        state.PauseTiming();
        for (int count = 0; count < kItems; ++count) {
            queue.AddTail(new ViewItem{{}, nullptr, 0, {}});
        }
        state.ResumeTiming();
        char* data = nullptr;
        int length = 0;
        while (tickhost_take_view_item(&queue, &data, &length) != 0) {
            benchmark::DoNotOptimize(data);
        }
    }
}
BENCHMARK(TakeViewItem);

}  // namespace

int main(int count, char** arguments) {
    std::thread([] {}).join();  // the system's locks cost nothing in a process that never had two threads
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
