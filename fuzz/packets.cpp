// Packets of right and nearly right length, to screens on all maps: records of a mark, a type char and a
// payload, which zeros fill up. A first byte chooses the Init texts.
#include <deque>

#include "fuzz/desk.h"
#include "fuzz/input.h"
#include "fuzz/packet_sizes.h"

using namespace fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk& desk = Desk::Get();
    desk.Begin();
    Input in(data, size);
    const bool second = in.Byte() % 2 != 0;
    std::deque<Screen> screens;
    for (const Sample& sample : Samples()) {
        screens.emplace_back(sample.Map).Init(second ? sample.Second : sample.First);
    }
    constexpr int kMostPackets = 100;
    for (int packets = 0; packets < kMostPackets && !in.Empty(); ++packets) {
        const unsigned mark = in.Byte();
        if (IsBatchEnd(mark)) {
            desk.PassTime(mark);
            EndRTMUnpackToDecoder();
            continue;
        }
        std::string packet(in.Take(1));
        packet += in.Take(PayloadSize(packet, mark));
        packet.resize(1 + PayloadSize(packet, mark));
        Desk::Feed(packet);
    }
    EndRTMUnpackToDecoder();
    tickhost_pump_messages();
    return 0;
}
