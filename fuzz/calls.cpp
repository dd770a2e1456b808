// The calls of a host's life in any order, some of them from within messages.
#include <array>
#include <memory>
#include <optional>

#include "fuzz/desk.h"
#include "fuzz/input.h"

using namespace fuzz;

namespace {

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

    // One call: what and where, and an argument. No map is unregistered from within a message.
    void Step(bool within);
    void OfScreen(unsigned call, unsigned argument, Slot& slot, bool within);

    Input m_In;
    std::array<Slot, 6> m_Slots;
};

void Host::Step(bool within) {
    constexpr unsigned kCalls = 16;
    const unsigned what = m_In.Byte();
    const unsigned argument = m_In.Byte();
    Slot& slot = m_Slots[what / kCalls % m_Slots.size()];
    switch (what % kCalls) {
        case 0:
        case 1:
            Desk::Get().Feed(SamplePackets()[argument % SamplePackets().size()]);
            break;
        case 2:
            EndRTMUnpackToDecoder();
            break;
        case 3:
            Desk::Get().OnNextMessage([this] { Step(true); });
            break;
        case 4:
            tickhost_pump_messages();
            break;
        case 5:
            Desk::Get().PassTime(argument);
            break;
        case 6:
            StopView();
            break;
        case 7:
            if (slot.Open == nullptr) {
                slot.Map = &Samples()[argument % Samples().size()];
                slot.Open = std::make_unique<Screen>(Desk::Get(), slot.Map->Map);
            }
            break;
        default:
            if (slot.Open != nullptr) {
                OfScreen(what % kCalls, argument, slot, within);
            }
    }
}

void Host::OfScreen(unsigned call, unsigned argument, Slot& slot, bool within) {
    switch (call) {
        case 8:
            slot.Open->Init(argument % 2 == 0 ? slot.Map->First : slot.Map->Second);
            break;
        case 9:
            slot.Open->Init(slot.Map->First.substr(0, argument));
            break;
        case 10:
            Desk::Get().Batch(slot.Map->Packets);
            break;
        case 11:
            slot.Open->Stop();
            break;
        case 12:
            slot.Open->Release();
            break;
        case 13:
            slot.Open->CloseWindow();
            break;
        case 14:
            slot.Open->SetFetching(argument % 2 == 0);
            break;
        default:
            if (!within) {
                // Out of its slot first: what its going brings about does not find it.
                const std::unique_ptr<Screen> going = std::move(slot.Open);
            }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk::Get().Begin();
    Host(Input(data, size)).Run();
    Desk::Get().OnNextMessage(nullptr);
    return 0;
}
