// One vocabulary of all maps: for each two Init texts and packets that it takes, and the world that they
// need.
#ifndef TICKMUX_TESTS_SUPPORT_SAMPLES_H
#define TICKMUX_TESTS_SUPPORT_SAMPLES_H

#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

struct Sample {
    std::string Map;
    std::string Types;   // of the packets that it takes
    std::string First;   // an Init text
    std::string Second;  // of another key, list, range or period
    // Of each type that the map takes, for either text and for neither; on fresh orders.
    std::vector<std::string> Packets = {};
};

// In order of the maps' names.
const std::vector<Sample>& Samples();
const Sample& SampleOf(const std::string& map);

// Every packet type, for the keys of all samples.
const std::vector<std::string>& SamplePackets();

// Sets the services to what the samples need: user, folders with the settings files, master data. They stay
// until a tickhost_reset.
class SampleWorld {
public:
    SampleWorld();

    // The monitor's inquiry is in its settings: the stocks of some groups, or the whole market.
    void WatchGroups() { Watch(false); }
    void WatchMarket() { Watch(true); }

    ScratchFolder& Folder() { return m_Folder; }

private:
    void Watch(bool market);

    bool m_bMarket = true;
    ScratchFolder m_Folder;
};

#endif
