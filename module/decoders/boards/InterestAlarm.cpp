#include "module/decoders/boards/InterestAlarm.h"

#include <cstddef>
#include <iterator>

namespace {

constexpr double kNoLowerBound = -1.0;

}  // namespace

InterestAlarm InterestAlarm::Load(const SettingsFile& file, const char* section) {
    constexpr std::size_t kRoom = 127;
    InterestAlarm alarm{};
    alarm.BasisPrice = file.Long<kRoom>(section, "Basis price");
    alarm.Comparison = file.Long<kRoom>(section, "comparison");
    alarm.PriceMode = file.Long<kRoom>(section, "price");
    alarm.DecreasedPrice = file.Double<kRoom>(section, "decreased price");
    alarm.IncreasedPrice = file.Double<kRoom>(section, "increased price", kNoLowerBound);
    alarm.VolumeLimit = file.Double<kRoom>(section, "Volume");
    return alarm;
}

bool InterestAlarm::IsMetBy(const AlarmFigures& figures) const {
    const int32_t values[] = {figures.Price, figures.Best1Price, figures.Best2Price};
    if (Comparison < 0 || Comparison >= static_cast<int32_t>(std::size(values))) {
        return false;  // the volume does not count either
    }
    return IsPriceMetBy(values[Comparison]) || (VolumeLimit >= 1.0 && figures.TotalVolume >= VolumeLimit);
}

bool InterestAlarm::IsPriceMetBy(double value) const {
    if (PriceMode == kPrices) {
        // A limit below 1 switches the other one off too.
        return DecreasedPrice >= 1.0 && IncreasedPrice >= 1.0 &&
               (value >= DecreasedPrice || value <= IncreasedPrice);
    }
    if (PriceMode == kPercent && BasisPrice >= 1) {
        const double upper = BasisPrice + DecreasedPrice * BasisPrice * 0.01;
        const double lower =
            IncreasedPrice == kNoLowerBound ? kNoLowerBound : BasisPrice + IncreasedPrice * BasisPrice * 0.01;
        return value >= upper || value <= lower;
    }
    return false;
}
