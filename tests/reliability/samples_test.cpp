// The vocabulary itself: what the other tests here rest on.
#include "tests/support/samples.h"
#include "tests/support/terminal.h"

TEST(Samples, EveryMapTakesBothTextsAndShowsItsPackets) {
    EXPECT_EQ(Samples().size(), 21U);
    for (const Sample& sample : Samples()) {
        Terminal terminal;
        const SampleWorld world;
        for (const std::string& text : {sample.First, sample.Second}) {
            const auto screen = terminal.Open(sample.Map, text);
            for (const std::string& packet : sample.Packets) {
                terminal.Feed(packet);
                terminal.EndBatch();
            }
            EXPECT_EQ(screen->Empty(), sample.Packets.empty()) << sample.Map << " [" << text << "]";
        }
    }
}
