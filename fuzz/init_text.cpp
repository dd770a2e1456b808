// Init texts of one map, which --map=NAME tells: up to four, each behind a zero byte, with packets after
// each.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "fuzz/desk.h"
#include "fuzz/input.h"

using namespace fuzz;

namespace {

const Sample* g_pSample = nullptr;

}  // namespace

// NOLINTNEXTLINE(readability-non-const-parameter): the fuzzer's own form
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    for (int number = 1; number < *argc; ++number) {
        for (const Sample& sample : Samples()) {
            if ("--map=" + sample.Map == (*argv)[number]) {
                g_pSample = &sample;
            }
        }
    }
    if (g_pSample == nullptr) {
        std::fputs("which map? tell with --map=NAME\n", stderr);
        std::exit(2);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk& desk = Desk::Get();
    desk.Begin();
    Input in(data, size);
    Screen screen(desk, g_pSample->Map);
    for (int texts = 0; texts < 4 && !(in.Empty() && texts > 0); ++texts) {
        screen.Init(std::string(in.Text()));
        desk.Batch(g_pSample->Packets);
    }
    screen.Stop();
    desk.Batch(g_pSample->Packets);
    screen.Init(g_pSample->First);
    desk.Batch(g_pSample->Packets);
    screen.Release();
    return 0;
}
