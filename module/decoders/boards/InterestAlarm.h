// The alarm that a user has set on a row of the interest board.
#ifndef TICKMUX_MODULE_DECODERS_BOARDS_INTERESTALARM_H
#define TICKMUX_MODULE_DECODERS_BOARDS_INTERESTALARM_H

#include <cstdint>

#include "module/framework/settings_file.h"

// What an alarm looks at: of a trade, or of a row as it stands.
struct AlarmFigures {
    int32_t Price;
    int32_t Best1Price;
    int32_t Best2Price;
    int32_t TotalVolume;
};

struct InterestAlarm {
    int32_t BasisPrice;     // base of the per cent mode
    int32_t Comparison;     // the compared value: 0 Price, 1 Best1Price, 2 Best2Price
    int32_t PriceMode;      // kPrices, kPercent; with any other there are no price limits
    double DecreasedPrice;  // the alarm goes at or above it
    double IncreasedPrice;  // the alarm goes at or below it
    double VolumeLimit;     // the alarm goes at or above it; below 1: none

    static constexpr int32_t kPrices = 0;
    static constexpr int32_t kPercent = 1;  // limits in per cent of BasisPrice, with their sign

    // The alarm of a section; what is missing has a default that sets no alarm off.
    static InterestAlarm Load(const SettingsFile& file, const char* section);

    bool IsMetBy(const AlarmFigures& figures) const;

private:
    bool IsPriceMetBy(double value) const;
};

#endif
