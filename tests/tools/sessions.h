// Sessions that feedgen writes, record by record.
#ifndef TICKMUX_TESTS_TOOLS_SESSIONS_H
#define TICKMUX_TESTS_TOOLS_SESSIONS_H

#include <gtest/gtest.h>

#include <string>

#include "framework/packets.h"
#include "tests/tools/tool_runs.h"
#include "tools/capture.h"

// A field as it is.
template <std::size_t N>
std::string Text(const char (&field)[N]) {
    return {field, N};
}

// The record's packet, if it has this type.
template <class Packet>
const Packet* As(const tools::CaptureRecord& record) {
    if (record.EndsBatch() || record.Bytes[0] != Packet::kType) {
        return nullptr;
    }
    EXPECT_EQ(record.Length, 1 + static_cast<int>(sizeof(Packet)));
    return reinterpret_cast<const Packet*>(record.Bytes + 1);
}

// The base that the packet's change tells.
template <class Packet>
int32_t ToldBase(const Packet& packet, int32_t price) {
    return price - (packet.Sign == '2' ? 1 : packet.Sign == '5' ? -1 : 0) * packet.Change;
}

class FeedSession : public testing::Test {
protected:
    // Gives the session's file; each takes the place of the former one.
    std::string Generate(const std::string& options) const {
        std::string path = m_Folder.Path("session.pcap");
        const Outcome outcome = RunTool("feedgen", "--output " + path + " " + options);
        EXPECT_EQ(outcome.Status, 0) << outcome.Text;
        return path;
    }
    template <class Take>
    void Each(const std::string& options, Take take) const {
        tools::CaptureReader capture(Generate(options));
        for (tools::CaptureRecord record; capture.Next(record) && !HasFailure();) {
            take(record);
        }
    }

    const ScratchFolder m_Folder;
};

#endif
