// The places of a list whose decoders have something to send at the batch end, found in order however long
// the list is: a bit for each place, and above it one for each 64 of these.
#ifndef TICKMUX_MODULE_FRAMEWORK_CHANGED_PLACES_H
#define TICKMUX_MODULE_FRAMEWORK_CHANGED_PLACES_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "module/containers/plain_array.h"

class ChangedPlaces {
public:
    static constexpr std::size_t kNone = SIZE_MAX;

    // For so many places, of which new ones are not marked; false if memory fails.
    bool MakeRoom(std::size_t places) {
        return Stretch(m_Bits, places / kBits + 1) && Stretch(m_Words, m_Bits.Size() / kBits + 1);
    }

    void Mark(std::size_t place) {
        m_Bits[place / kBits] |= BitOf(place);
        m_Words[place / kBits / kBits] |= BitOf(place / kBits);
    }
    bool IsMarked(std::size_t place) const { return (m_Bits[place / kBits] & BitOf(place)) != 0; }

    void Unmark(std::size_t place) {
        uint64_t& bits = m_Bits[place / kBits];
        bits &= ~BitOf(place);
        if (bits == 0) {
            m_Words[place / kBits / kBits] &= ~BitOf(place / kBits);
        }
    }

    // The first marked place from this one on.
    std::size_t FirstFrom(std::size_t place) const {
        const std::size_t word = place / kBits;
        if (word < m_Bits.Size()) {
            if (const uint64_t bits = m_Bits[word] & From(place); bits != 0) {
                return PlaceOf(word, bits);
            }
        }
        if (word + 1 >= m_Bits.Size()) {
            return kNone;
        }
        for (std::size_t above = (word + 1) / kBits; above < m_Words.Size(); ++above) {
            const uint64_t words =
                m_Words[above] & (above == (word + 1) / kBits ? From(word + 1) : ~uint64_t{0});
            if (words != 0) {
                const std::size_t found = PlaceOf(above, words);
                return PlaceOf(found, m_Bits[found]);
            }
        }
        return kNone;
    }

private:
    using Bits = PlainArray<uint64_t>;

    static constexpr std::size_t kBits = 64;

    static uint64_t BitOf(std::size_t place) { return uint64_t{1} << place % kBits; }
    static uint64_t From(std::size_t place) { return ~uint64_t{0} << place % kBits; }
    static std::size_t PlaceOf(std::size_t word, uint64_t bits) {
        return word * kBits + static_cast<std::size_t>(std::countr_zero(bits));
    }
    static bool Stretch(Bits& bits, std::size_t size) {
        const std::size_t former = bits.Size();
        if (size > former) {
            if (!bits.Reserve(size)) {
                return false;
            }
            bits.Resize(size);
            std::fill(bits.Data() + former, bits.Data() + size, uint64_t{0});
        }
        return true;
    }

    Bits m_Bits;
    Bits m_Words;  // which of them are not 0
};

#endif
