// The colour tag of a broker's class.
#ifndef TICKMUX_MODULE_WIRE_BROKER_CLASS_H
#define TICKMUX_MODULE_WIRE_BROKER_CLASS_H

#include "module/wire/codecs.h"

// A class that is neither leaves the tag as it is.
inline void PutClassTag(char (&tag)[2], char brokerClass) {
    constexpr char kForeign = 'F';
    constexpr char kDomestic = 'D';
    if (brokerClass == kForeign) {
        PutColor(tag, -1);
    } else if (brokerClass == kDomestic) {
        PutColor(tag, 1);
    }
}

#endif
