// The colour of a broker's class.
#ifndef TICKMUX_MODULE_WIRE_BROKER_CLASS_H
#define TICKMUX_MODULE_WIRE_BROKER_CLASS_H

#include "module/wire/codecs.h"

// A class that is neither leaves the colour as it is.
inline void PutClassColor(char (&color)[2], char brokerClass) {
    constexpr char kForeign = 'F';
    constexpr char kDomestic = 'D';
    if (brokerClass == kForeign) {
        PutColor(color, -1);
    } else if (brokerClass == kDomestic) {
        PutColor(color, 1);
    }
}

#endif
