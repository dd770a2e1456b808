// Today's date on the machine's clock, as screens show it.
#ifndef TICKMUX_MODULE_FRAMEWORK_LOCAL_DATE_H
#define TICKMUX_MODULE_FRAMEWORK_LOCAL_DATE_H

#include "host/platform/platform.h"
#include "module/wire/codecs.h"

// YYYYMMDD, with a space in front of a month or day of one digit.
inline void PutSpacedLocalDate(char (&date)[8]) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    constexpr int kYearWidth = 4;
    constexpr int kPartWidth = 2;
    LongToAscii(now.wYear, date, kYearWidth);
    LongToAscii(now.wMonth, date + kYearWidth, kPartWidth);
    LongToAscii(now.wDay, date + kYearWidth + kPartWidth, kPartWidth);
}

// YYYYMMDD.
inline void PutLocalDate(char (&date)[8]) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    constexpr int kYear = 10000;
    constexpr int kMonth = 100;
    Put(date, static_cast<int32_t>(now.wYear * kYear + now.wMonth * kMonth + now.wDay));
}

#endif
