// The marks of the brokers, out of the terminal's master data: one char for each broker code.
#ifndef TICKMUX_MODULE_DECODERS_MONITOR_BROKERMARKS_H
#define TICKMUX_MODULE_DECODERS_MONITOR_BROKERMARKS_H

#include "module/containers/key_index.h"

class BrokerMarks {
public:
    // As the brokers are now. False: the terminal has no such data, or memory fails; then they are as before.
    bool Load();

    // Gives 0 for a broker that is not known.
    char Of(const char (&broker)[4]) const {
        const int mark = m_Marks.Find({{broker[0], broker[1], broker[2], broker[3]}});
        return mark == KeyIndex<BrokerCode>::kNowhere ? '\0' : static_cast<char>(mark);
    }

private:
    struct BrokerCode {
        char Text[4];
    };

    KeyIndex<BrokerCode> m_Marks;
};

#endif
