#include "terminal/replay.h"

#include <cstdio>

#include "terminal/errors.h"
#include "terminal/pace.h"
#include "terminal/progress.h"
#include "terminal/text.h"

namespace tools {

namespace {

void Warn(const std::string& warning, Progress& progress) {
    progress.Hide();
    std::fflush(stdout);
    std::fprintf(stderr, "tickreplay: warning: %s\n", warning.c_str());
}

// Gives the number of warnings.
uint64_t TakeArrivals(Terminal& terminal, Timestamp localTime, const ReplayOptions& options,
                      Progress& progress) {
    uint64_t warnings = 0;
    for (Arrival& arrival : terminal.Arrivals()) {
        OpenScreen& screen = *arrival.Target;
        try {
            screen.Rows += screen.View->Take(arrival.Buffer());
        } catch (const Failure& failure) {
            throw Failure(screen.Title + ": the module sent " + failure.what());
        }
        if (options.Follow) {
            Print(ClockText(localTime) + " " + screen.Title + "\n" + screen.View->Show(arrival.Buffer()));
        }
        for (const std::string& fault : screen.View->TakeFaults()) {
            const std::string warning = ClockText(localTime) + " " + screen.Title + ": " + fault;
            if (options.Strict) {
                throw Failure(warning);
            }
            Warn(warning, progress);
            ++warnings;
        }
    }
    if (options.Follow && options.Speed) {
        FlushOutput();
    }
    terminal.Arrivals().clear();
    return warnings;
}

}  // namespace

void ModuleClocks::Set(Timestamp time) {
    constexpr int64_t kFirstTick = 1'000'000;  // as if the machine had run for a while
    m_Now = std::chrono::floor<std::chrono::milliseconds>(time);
    const tickhost_time local = BrokenDown(time + m_Offset);
    const tickhost_time system = BrokenDown(time);
    const auto ticks = std::chrono::floor<std::chrono::milliseconds>(time - m_First).count() + kFirstTick;
    tickhost_set_local_time(&local);
    tickhost_set_system_time(&system);
    tickhost_set_tick_count(1, static_cast<uint32_t>(ticks));
}

ReplaySummary Replay(CaptureReader& capture, const std::optional<CaptureRecord>& first, ModuleClocks& clocks,
                     Terminal& terminal, const ReplayOptions& options) {
    ReplaySummary summary;
    if (!first) {
        return summary;
    }
    const auto start = std::chrono::steady_clock::now();
    const Pace pace(options.Speed, first->Time);
    Progress progress(!options.Follow);
    CaptureRecord record = *first;
    Timestamp last = record.Time;
    do {
        pace.WaitFor(record.Time);
        clocks.Follow(record.Time);
        summary.StepsBack += record.Time < last ? 1 : 0;
        last = record.Time;
        if (record.EndsBatch()) {
            ++summary.Batches;
            summary.PacketsUnmarked = 0;
            terminal.EndBatch();
        } else {
            if (!summary.Tally.Check(record) && options.Strict) {
                throw BadInput(capture.Name() + ": record " + std::to_string(record.Number) + ": " +
                               PacketTally::Fault(record) + "; mend the capture, or replay without --strict");
            }
            ++summary.Packets;
            ++summary.PacketsUnmarked;
            terminal.Put(record);
        }
        if (!terminal.Arrivals().empty()) {
            summary.Warnings += TakeArrivals(terminal, record.Time + clocks.Offset(), options, progress);
        }
        if (progress.IsDue()) {
            progress.Show(Counted(summary.Packets, "packet") + ", " +
                          ClockText(record.Time + clocks.Offset()));
        }
    } while (capture.Next(record));
    if (summary.PacketsUnmarked > 0) {
        ++summary.Batches;
        terminal.EndBatch();
        summary.Warnings += TakeArrivals(terminal, last + clocks.Offset(), options, progress);
    }
    summary.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return summary;
}

}  // namespace tools
