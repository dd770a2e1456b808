// A capture of a few packets, all of one moment unless the test moves it, and what a replay of it shows.
#ifndef TICKMUX_TESTS_TERMINAL_SMALL_CAPTURE_H
#define TICKMUX_TESTS_TERMINAL_SMALL_CAPTURE_H

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "feed/emitters.h"
#include "terminal/capture.h"
#include "tests/programs/tool_runs.h"

class SmallCapture : public testing::Test {
protected:
    template <class Packet>
    void Write(const tools::WholePacket<Packet>& packet) {
        m_Writer.Packet(Now, &packet, sizeof(packet));
    }
    void Write(const std::string& bytes) { m_Writer.Packet(Now, bytes.data(), bytes.size()); }
    void Trade(int32_t price, int32_t volume) {
        Asii.Price = price;
        Asii.TradeCount += 1;
        Asii.TotalVolume += volume;
        Asii.TotalValue += int64_t{price} * volume * tools::kLotSize;
        const tools::Deal deal{&Asii, volume, 0, {"B01", 'D'}, {"B03", 'F'}, 1};
        Write(tools::MakeTrade(deal, Now));
        Write(tools::MakeCompactTrade(deal, Now));
    }
    void EndBatch() { m_Writer.BatchEnd(Now); }

    // Beside the workspace.
    std::string File(const std::string& name, const std::string& content) const {
        return m_Folder.Write(name, content);
    }

    // The images. Once a test.
    std::string Replay(const std::string& options, const std::string& workspace) {
        m_Writer.Close();
        const Outcome outcome = RunTool(
            "tickreplay", options + " " + m_Folder.Write("w", workspace) + " " + m_Folder.Path("p.pcap"));
        EXPECT_EQ(outcome.Status, 0);
        const std::size_t end = outcome.Text.find("Summary\n");
        Summary = outcome.Text.substr(end);
        for (const char* line : {"  seconds:", "  packets/s:"}) {
            const std::size_t at = std::min(Summary.find(line), Summary.size());
            Summary.erase(at, Summary.find('\n', at) + 1 - at);
        }
        return outcome.Text.substr(0, end);
    }

    std::string Summary;  // of the latest replay, without what depends on the machine
    tools::Timestamp Now = tools::ParseDate("20261120") + std::chrono::hours(9);
    tools::Stock Asii{"ASII", 1000, tools::LimitsOf(1000), 1000, 1000, 1005, 995};

private:
    const ScratchFolder m_Folder;
    tools::CaptureWriter m_Writer{m_Folder.Path("p.pcap")};
};

#endif
