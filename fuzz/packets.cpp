// Packets of right and nearly right length, to one map's screen: a byte that tells the map, an Init text up
// to a zero byte, or the sample's, then records of a mark, a type char and a payload, which zeros fill up.
#include <random>

#include "fuzz/desk.h"
#include "fuzz/input.h"
#include "fuzz/packet_records.h"

using namespace fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk& desk = Desk::Get();
    desk.Begin();
    Input in(data, size);
    const Sample& sample = Samples()[in.Byte() % Samples().size()];
    const std::string_view init = in.Text();
    const Screen screen(sample.Map);
    screen.Init(init.empty() ? sample.First : init);
    constexpr int kMostRecords = 100;
    for (int records = 0; records < kMostRecords && !in.Empty(); ++records) {
        const Record record = NextRecord(in);
        if (IsBatchEnd(record)) {
            desk.PassTime(record.Mark);
            EndRTMUnpackToDecoder();
        } else {
            Desk::Feed(PacketOf(record));
        }
    }
    EndRTMUnpackToDecoder();
    tickhost_pump_messages();
    return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(uint8_t* data, std::size_t size, std::size_t room);

// Every other time within one packet, so that those behind it stay packets.
extern "C" std::size_t LLVMFuzzerCustomMutator(uint8_t* data, std::size_t size, std::size_t room,
                                               unsigned seed) {
    std::minstd_rand dice(seed);
    if (dice() % 2 != 0) {
        return LLVMFuzzerMutate(data, size, room);
    }
    const std::size_t place = size == 0 ? 0 : dice() % size;
    Input in(data, size);
    in.Byte();
    in.Text();
    while (!in.Empty()) {
        const std::size_t length = NextRecord(in).Payload.size();
        const std::size_t end = size - in.Left();
        if (length > 0 && end > place) {
            LLVMFuzzerMutate(data + end - length, length, length);
            return size;
        }
    }
    return LLVMFuzzerMutate(data, size, room);
}
