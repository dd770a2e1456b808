// Today's date on the machine's clock, as screens show it.
#ifndef TICKMUX_FRAMEWORK_LOCAL_DATE_H
#define TICKMUX_FRAMEWORK_LOCAL_DATE_H

#include "framework/codecs.h"
#include "host/platform.h"

// YYYYMMDD.
inline void PutLocalDate(char (&date)[8]) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    constexpr int kYear = 10000;
    constexpr int kMonth = 100;
    Put(date, static_cast<int32_t>(now.wYear * kYear + now.wMonth * kMonth + now.wDay));
}

#endif
