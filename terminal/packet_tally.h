// Looks at each packet's type and length, and remembers those that no decoder will take.
#ifndef TICKMUX_TERMINAL_PACKET_TALLY_H
#define TICKMUX_TERMINAL_PACKET_TALLY_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "terminal/capture.h"

namespace tools {

class PacketTally {
public:
    // False: of unknown type or wrong length.
    bool Check(const CaptureRecord& packet);

    // What is wrong with a packet for which Check gave false: "A packet with 99 payload bytes, expected 100".
    static std::string Fault(const CaptureRecord& packet);

    // A line for each type of which something was wrong.
    std::vector<std::string> Report() const;

private:
    struct Odd {
        uint64_t Count = 0;
        uint64_t FirstRecord = 0;
        int FirstPayload = 0;
    };
    std::map<unsigned char, Odd> m_Odd;  // by type char
};

}  // namespace tools

#endif
