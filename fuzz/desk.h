// The recording terminal in the samples' world, as the targets drive it.
#ifndef TICKMUX_FUZZ_DESK_H
#define TICKMUX_FUZZ_DESK_H

#include <functional>
#include <string>
#include <string_view>

#include "tests/support/samples.h"
#include "tests/support/terminal.h"

namespace fuzz {

class Desk : public Terminal {
public:
    static Desk& Get();

    // Everything as it was before the first input.
    void Begin();
    void PassTime(uint32_t milliseconds);

    // Each packet as it is, and once more for a code that the module asks for; then the batch ends.
    void Batch(const std::vector<std::string>& packets);

    // Runs once, within the next message to a window or the manager.
    void OnNextMessage(std::function<void()> action) { m_OnMessage = std::move(action); }

    SampleWorld& World() { return m_World; }

private:
    Desk();

    std::string Addressed(std::string packet) const;

    SampleWorld m_World;
    uint32_t m_nTicks = 0;
    std::function<void()> m_OnMessage;
};

}  // namespace fuzz

#endif
