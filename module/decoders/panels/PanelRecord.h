// The whole record of a panel's numbered fields, and the range of them that a screen takes.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_PANELRECORD_H
#define TICKMUX_MODULE_DECODERS_PANELS_PANELRECORD_H

#include <cstddef>
#include <span>

#include "module/layouts/field_panel.h"
#include "module/wire/shapes.h"

// What a screen takes: the fields from First to Last.
struct FieldRange {
    int First = -1;
    int Last = -1;

    bool Holds(int number) const { return First <= number && number <= Last; }
    bool IsIn(std::span<const PanelField> table) const {
        return First >= 0 && First <= Last && Last < static_cast<int>(table.size());
    }
};

template <const auto& Table>
class PanelRecord {
    static_assert(IsNumbered(Table));

public:
    PanelRecord() { Clear(); }
    void Clear() { FillBlank(m_Bytes); }

    // A field's value, without its colour, as the array that it is.
    template <int Number>
    auto& Value() {
        constexpr int kColor = Table[Number].HasColor ? kColorWidth : 0;
        using Array = char[static_cast<std::size_t>(Table[Number].Width - kColor)];
        return *reinterpret_cast<Array*>(m_Bytes + WidthOf(Table, 0, Number) + kColor);
    }
    template <int Number>
    char (&Color())[kColorWidth] {
        static_assert(Table[Number].HasColor);
        return *reinterpret_cast<char(*)[kColorWidth]>(m_Bytes + WidthOf(Table, 0, Number));
    }

    std::span<char> Of(const FieldRange& range) {
        return {m_Bytes + WidthOf(Table, 0, range.First), SizeOf(range)};
    }
    static std::size_t SizeOf(const FieldRange& range) {
        return static_cast<std::size_t>(WidthOf(Table, range.First, range.Last + 1));
    }

private:
    char m_Bytes[WidthOf(Table)];
};

#endif
