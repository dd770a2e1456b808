// The replay itself: feeds a capture into the open screens, batch by batch.
#ifndef TICKMUX_TERMINAL_REPLAY_H
#define TICKMUX_TERMINAL_REPLAY_H

#include <cstdint>
#include <optional>

#include "terminal/capture.h"
#include "terminal/packet_tally.h"
#include "terminal/terminal.h"
#include "terminal/times.h"

namespace tools {

struct ReplayOptions {
    std::optional<double> Speed;  // none: as fast as it goes
    bool Follow = false;          // print each buffer as it comes
    // Stop at the first packet that no decoder will take, and at the first message that contradicts a table.
    bool Strict = false;
};

struct ReplaySummary {
    uint64_t Packets = 0;
    uint64_t Batches = 0;
    uint64_t StepsBack = 0;        // records earlier than the one before
    uint64_t PacketsUnmarked = 0;  // behind the last batch mark
    uint64_t Warnings = 0;         // of messages that contradicted a table
    double Seconds = 0;
    PacketTally Tally;
};

// Sets the clocks that the module reads.
class ModuleClocks {
public:
    // `offset` leads from real time to the exchange's clock.
    ModuleClocks(Timestamp first, UtcOffset offset) : m_First(first), m_Offset(offset) { Set(first); }

    // Moves them if the millisecond is another.
    void Follow(Timestamp time) {
        const auto now = std::chrono::floor<std::chrono::milliseconds>(time);
        if (now != m_Now) {
            Set(time);
        }
    }

    UtcOffset Offset() const { return m_Offset; }

private:
    void Set(Timestamp time);

    Timestamp m_First;
    UtcOffset m_Offset;
    std::chrono::sys_time<std::chrono::milliseconds> m_Now;
};

// Begins with `first`, which has been read from the capture already; none: the capture is empty.
ReplaySummary Replay(CaptureReader& capture, const std::optional<CaptureRecord>& first, ModuleClocks& clocks,
                     Terminal& terminal, const ReplayOptions& options);

}  // namespace tools

#endif
