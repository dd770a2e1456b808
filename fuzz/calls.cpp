// The calls of a host's life in any order, some of them from within messages.
#include <array>
#include <iterator>
#include <memory>

#include "fuzz/desk.h"
#include "fuzz/input.h"

using namespace fuzz;

namespace {

// A call has a number below 16, which counts for its slot of six as well, and an argument.
class Host {
public:
    explicit Host(Input in) : m_In(in) {}

    void Run() {
        constexpr int kMostSteps = 100;
        for (int steps = 0; steps < kMostSteps && !m_In.Empty(); ++steps) {
            Step(false);
        }
    }

private:
    struct Slot {
        const Sample* Map = nullptr;
        std::unique_ptr<Screen> Open;
    };
    using OfHost = void (*)(Host& host, Slot& slot, unsigned argument);
    using OfScreen = void (*)(const Sample& sample, Screen& screen, unsigned argument);

    void Step(bool within);

    static const OfHost kOfHost[8];
    static const OfScreen kOfScreen[7];

    Input m_In;
    std::array<Slot, 6> m_Slots;
};

const Host::OfHost Host::kOfHost[] = {
    [](Host&, Slot&, unsigned packet) { Desk::Get().Feed(SamplePackets()[packet % SamplePackets().size()]); },
    [](Host&, Slot&, unsigned packet) { Desk::Get().Feed(SamplePackets()[packet % SamplePackets().size()]); },
    [](Host&, Slot&, unsigned) { Desk::Get().EndBatch(); },
    [](Host& host, Slot&, unsigned) { Desk::Get().OnNextMessage([&host] { host.Step(true); }); },
    [](Host&, Slot&, unsigned) { tickhost_pump_messages(); },
    [](Host&, Slot&, unsigned milliseconds) { Desk::Get().PassTime(milliseconds); },
    [](Host&, Slot&, unsigned) { StopView(); },
    [](Host&, Slot& slot, unsigned map) {
        if (slot.Open == nullptr) {
            slot.Map = &Samples()[map % Samples().size()];
            slot.Open = std::make_unique<Screen>(Desk::Get(), slot.Map->Map);
        }
    },
};
const Host::OfScreen Host::kOfScreen[] = {
    [](const Sample& sample, Screen& screen, unsigned second) {
        screen.Init(second % 2 == 0 ? sample.First : sample.Second);
    },
    [](const Sample& sample, Screen& screen, unsigned size) { screen.Init(sample.First.substr(0, size)); },
    [](const Sample& sample, Screen&, unsigned) { Desk::Get().Batch(sample.Packets); },
    [](const Sample&, Screen& screen, unsigned) { screen.Stop(); },
    [](const Sample&, Screen& screen, unsigned) { screen.Release(); },
    [](const Sample&, Screen& screen, unsigned) { screen.CloseWindow(); },
    [](const Sample&, Screen& screen, unsigned off) { screen.SetFetching(off % 2 == 0); },
};

void Host::Step(bool within) {
    const unsigned what = m_In.Byte();
    const unsigned argument = m_In.Byte();
    const unsigned call = what % 16;
    Slot& slot = m_Slots[what / 16 % m_Slots.size()];
    if (call < std::size(kOfHost)) {
        kOfHost[call](*this, slot, argument);
    } else if (slot.Open != nullptr && call < 15) {
        kOfScreen[call - std::size(kOfHost)](*slot.Map, *slot.Open, argument);
    } else if (!within) {
        // Unregistered, but not from within a message. Out of its slot first: what its going brings about
        // does not find it.
        const std::unique_ptr<Screen> going = std::move(slot.Open);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk::Get().Begin();
    Host(Input(data, size)).Run();
    Desk::Get().OnNextMessage(nullptr);
    return 0;
}
