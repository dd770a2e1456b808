// A capture, replayed into a screen of the kind that a first byte tells.
#include "terminal/capture.h"
#include "fuzz/memory_file.h"
#include "fuzz/tool_screens.h"
#include "terminal/packet_tally.h"

using namespace fuzz;

namespace {

void Replay(tools::CaptureReader& capture, const tools::ScreenKind& kind) {
    ToolScreen screen(kind, kind.MakeInit(kind.SampleKey, {"20261120"}));
    tools::PacketTally tally;
    tools::CaptureRecord record;
    while (capture.Next(record)) {
        Fold(tools::ClockText(record.Time));
        if (record.EndsBatch()) {
            EndRTMUnpackToDecoder();
            continue;
        }
        if (!tally.Check(record)) {
            Fold(tools::PacketTally::Fault(record));
        }
        Desk::Get().Feed(std::string(record.Bytes, static_cast<std::size_t>(record.Length)));
    }
    EndRTMUnpackToDecoder();
    screen.Show();
    for (const std::string& line : tally.Report()) {
        Fold(line);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    Desk::Get().Begin();
    Input in(data, size);
    const unsigned kind = in.Byte();
    return ReadAsFile(in.Rest(), [kind](const std::string& path) {
        tools::CaptureReader capture(path);
        Replay(capture, *tools::ScreenKinds()[kind % tools::ScreenKinds().size()]);
    });
}
