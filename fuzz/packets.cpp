// Packets of right and nearly right length, to one map's screen: a byte that tells the map, an Init text up
// to a zero byte, or the sample's, then records of a mark, a type char and a payload, which zeros fill up.
#include <algorithm>
#include <random>

#include "fuzz/desk.h"
#include "fuzz/input.h"

using namespace fuzz;

namespace {

// Of the samples' packets, which have every type; 0 for an unknown one.
std::size_t PayloadSize(char type) {
    const auto sample = std::find_if(SamplePackets().begin(), SamplePackets().end(),
                                     [type](const std::string& packet) { return packet.front() == type; });
    return sample == SamplePackets().end() ? 0 : sample->size() - 1;
}

// A mark modulo kMarks; what is none of these means the right length.
constexpr unsigned kOneShort = 5;
constexpr unsigned kOneLong = 6;
constexpr unsigned kBatchEnd = 7;
constexpr unsigned kMarks = 8;

struct Record {
    unsigned Mark;
    std::string Packet;  // empty: the batch ends
    std::size_t Taken;   // of its payload from the input
};

Record NextRecord(Input& in) {
    Record record{in.Byte(), {}, 0};
    const unsigned mark = record.Mark % kMarks;
    if (mark == kBatchEnd) {
        return record;
    }
    record.Packet = static_cast<char>(in.Byte());
    std::size_t size = PayloadSize(record.Packet.front());
    if (size > 0) {
        size += mark == kOneLong ? 1 : 0;
        size -= mark == kOneShort ? 1 : 0;
    }
    const std::string_view payload = in.Take(size);
    record.Taken = payload.size();
    record.Packet.append(payload).resize(1 + size);
    return record;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk& desk = Desk::Get();
    desk.Begin();
    Input in(data, size);
    const Sample& sample = Samples()[in.Byte() % Samples().size()];
    const std::string init(in.Text());
    Screen screen(desk, sample.Map);
    screen.Init(init.empty() ? sample.First : init);
    constexpr int kMostRecords = 100;
    for (int records = 0; records < kMostRecords && !in.Empty(); ++records) {
        const Record record = NextRecord(in);
        if (record.Packet.empty()) {
            desk.PassTime(record.Mark);
            EndRTMUnpackToDecoder();
        } else {
            desk.Feed(record.Packet);
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
        const std::size_t length = NextRecord(in).Taken;
        const std::size_t end = size - in.Left();
        if (length > 0 && end > place) {
            LLVMFuzzerMutate(data + end - length, length, length);
            return size;
        }
    }
    return LLVMFuzzerMutate(data, size, room);
}
