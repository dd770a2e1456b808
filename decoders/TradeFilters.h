// The user's filters of a trade monitor.
#ifndef TICKMUX_DECODERS_TRADEFILTERS_H
#define TICKMUX_DECODERS_TRADEFILTERS_H

#include <cstdint>

#include "framework/settings_file.h"

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

    // `rateOf()` is worked out only if its filter is on.
    template <class RateOf>
    bool Pass(int32_t price, const RateOf& rateOf, int32_t volume) const {
        return !(bPriceFilter && (price < nPriceFrom || price > nPriceTo)) &&
               !(bChangeFilter && !HoldsRate(rateOf())) && !(bVolumeFilter && volume < nVolumeFrom);
    }

private:
    bool HoldsRate(double rate) const { return !(rate < dChangeFrom || rate > dChangeTo); }
};

#endif
