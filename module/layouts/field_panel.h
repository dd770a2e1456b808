// Records of numbered text fields, of which a screen takes a range.
//
// A table tells the fields in order of their numbers; they lie one behind the other. A field with a
// colour begins with its two characters, its value stands behind.
#ifndef TICKMUX_MODULE_LAYOUTS_FIELD_PANEL_H
#define TICKMUX_MODULE_LAYOUTS_FIELD_PANEL_H

#include <cstddef>
#include <span>

#include "module/wire/shapes.h"

struct PanelField {
    int Number;
    int Width;
    bool HasColor;
    const char* Content;
};

inline constexpr int kColorWidth = 2;

// The sum of the widths of the fields from `from` to before `to`.
constexpr int WidthOf(std::span<const PanelField> table, int from, int to) {
    int width = 0;
    for (int number = from; number < to; ++number) {
        width += table[static_cast<std::size_t>(number)].Width;
    }
    return width;
}

constexpr int WidthOf(std::span<const PanelField> table) {
    return WidthOf(table, 0, static_cast<int>(table.size()));
}

// A table can be walked by number.
constexpr bool IsNumbered(std::span<const PanelField> table) {
    int number = 0;
    for (const PanelField& field : table) {
        if (field.Number != number++) {
            return false;
        }
    }
    return true;
}

#endif
