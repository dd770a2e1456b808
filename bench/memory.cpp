// What a screen of each map takes on the heap: registered, and after its Init. One line a map of a workspace.
//
//     bench_memory WORKSPACE

#include <malloc.h>

#include <iostream>
#include <set>

#include "bench/support/workspace.h"
#include "terminal/errors.h"

namespace {

constexpr int kScreens = 200;

std::size_t HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void Measure(const ScreenToOpen& screen) {
    std::vector<tickmux_handle> handles;
    handles.reserve(kScreens);
    const std::size_t empty = HeapInUse();
    for (int i = 0; i < kScreens; ++i) {
        handles.push_back(RegistMap(nullptr, screen.Map.c_str()));
    }
    const std::size_t registered = HeapInUse();
    std::string init = screen.Init;
    for (const tickmux_handle handle : handles) {
        InitMap(handle, init.data());
    }
    const std::size_t active = HeapInUse();
    std::cout << screen.Map << " " << (registered - empty) / kScreens << " " << (active - empty) / kScreens
              << "\n";
    for (const tickmux_handle handle : handles) {
        UnregistMap(handle);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: " << argv[0] << " WORKSPACE\n";
        return 2;
    }
    try {
        std::set<std::string> seen;
        for (const ScreenToOpen& screen : bench::ScreensOf(argv[1])) {
            if (seen.insert(screen.Map).second) {
                Measure(screen);
            }
        }
    } catch (const tools::BadInput& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 2;
    }
    return 0;
}
