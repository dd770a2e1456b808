// The module and its plain form in the same session, one after the other: what windows, the communication
// manager, the function channels and the order log get must be the same, byte for byte and in order.
#ifndef TICKMUX_TESTS_PLAIN_BOTH_FORMS_H
#define TICKMUX_TESTS_PLAIN_BOTH_FORMS_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct Step {
    enum What { Open, Init, Stop, Release, Packet, EndBatch, Clock } Do;
    std::size_t Screen = 0;  // in order of opening
    std::string Text;        // map name, Init text or packet
    uint32_t Milliseconds = 0;
};
using Steps = std::vector<Step>;

// Tells the first difference, and gives the number of messages that came. Each form begins in a world of its
// own, whose settings `prepare` makes.
std::size_t ExpectSame(const Steps& steps, const std::function<void()>& prepare);

#endif
