#include "module/decoders/monitor/TradeFilters.h"

#include "module/wire/change_rate.h"

TradeFilters TradeFilters::Load(const SettingsFile& file) {
    constexpr std::size_t kFromRoom = 32;
    constexpr std::size_t kToRoom = 1024;
    const auto isOn = [&file](const char* key) { return file.Integer("TRADE_MONITOR", key, 0) != 0; };
    TradeFilters filters;
    filters.bPriceFilter = isOn("PRICE");
    filters.bChangeFilter = isOn("CHANGE%");
    filters.bVolumeFilter = isOn("VOLUME");
    if (filters.bPriceFilter) {
        filters.nPriceFrom = file.Long<kFromRoom>("PRICE", "FROM");
        filters.nPriceTo = file.Long<kToRoom>("PRICE", "TO");
    }
    if (filters.bChangeFilter) {
        filters.dChangeFrom = MovedToZero(file.Double<kFromRoom>("CHANGE%", "FROM"));
        filters.dChangeTo = file.Double<kToRoom>("CHANGE%", "TO");
    }
    if (filters.bVolumeFilter) {
        filters.nVolumeFrom = file.Long<kFromRoom>("VOLUME", "FROM");
    }
    return filters;
}
