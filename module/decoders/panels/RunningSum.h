// A running sum that a panel keeps in its field's text, where the inquiry began it; blanks count as 0.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_RUNNINGSUM_H
#define TICKMUX_MODULE_DECODERS_PANELS_RUNNINGSUM_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "module/wire/codecs.h"

// As long as the text is the whole number of the last sum, it is not read again.
class RunningSum {
public:
    // The field has another text.
    void Forget() { m_bIsText = false; }

    template <std::size_t N>
    void Add(char (&field)[N], int32_t amount) {
        const double sum = (m_bIsText ? static_cast<double>(m_nSum) : ToDouble(field)) + amount;
        m_bIsText = std::fabs(sum) < Limit<N>() && static_cast<double>(static_cast<int64_t>(sum)) == sum;
        if (m_bIsText) {
            m_nSum = static_cast<int64_t>(sum);
            Put(field, m_nSum);
        } else {
            Put<0>(field, sum);
        }
    }

private:
    // Below it the field has room for all digits and a sign, and doubles are exact.
    template <std::size_t N>
    static constexpr double Limit() {
        constexpr double kExact = 9007199254740992.0;
        double limit = 1.0;
        for (std::size_t digit = 1; digit < N; ++digit) {
            limit *= 10.0;
        }
        return std::min(limit, kExact);
    }

    bool m_bIsText = false;
    int64_t m_nSum = 0;
};

#endif
