// The user's filters of a trade monitor.
#ifndef TICKMUX_MODULE_DECODERS_MONITOR_TRADEFILTERS_H
#define TICKMUX_MODULE_DECODERS_MONITOR_TRADEFILTERS_H

#include <cstdint>

#include "module/framework/settings_file.h"

struct TradeFilters {
    bool bPriceFilter = false;
    bool bChangeFilter = false;
    bool bVolumeFilter = false;
    int32_t nPriceFrom = 0;
    int32_t nPriceTo = 0;
    double dChangeFrom = 0.0;  // per cent, moved as the rates are, so that a rate of exactly it passes
    double dChangeTo = 0.0;
    int32_t nVolumeFrom = 0;

    // A missing bound of a filter that is on is 0.
    static TradeFilters Load(const SettingsFile& file);

    bool Pass(int32_t price, int32_t volume) const {
        return !(bPriceFilter && (price < nPriceFrom || price > nPriceTo)) &&
               !(bVolumeFilter && volume < nVolumeFrom);
    }
    bool PassRate(double rate) const { return !(bChangeFilter && (rate < dChangeFrom || rate > dChangeTo)); }
};

#endif
