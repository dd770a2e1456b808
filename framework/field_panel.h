// Records of numbered text fields, of which a screen takes a range.
//
// A table tells the fields in order of their numbers; they lie one behind the other. A field with a tag
// begins with the two characters of a colour tag, its value stands behind.
#ifndef TICKMUX_FRAMEWORK_FIELD_PANEL_H
#define TICKMUX_FRAMEWORK_FIELD_PANEL_H

#include <cstddef>
#include <cstring>
#include <span>

#include "framework/codecs.h"
#include "framework/shapes.h"

struct PanelField {
    int Number;
    int Width;
    bool HasTag;
    const char* Content;
};

inline constexpr int kTagWidth = 2;

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

    // A field's value, without its tag, as the array that it is.
    template <int Number>
    auto& Value() {
        constexpr int kTag = Table[Number].HasTag ? kTagWidth : 0;
        using Array = char[static_cast<std::size_t>(Table[Number].Width - kTag)];
        return *reinterpret_cast<Array*>(m_Bytes + WidthOf(Table, 0, Number) + kTag);
    }
    template <int Number>
    char (&Tag())[kTagWidth] {
        static_assert(Table[Number].HasTag);
        return *reinterpret_cast<char(*)[kTagWidth]>(m_Bytes + WidthOf(Table, 0, Number));
    }

    char* At(const FieldRange& range) { return m_Bytes + WidthOf(Table, 0, range.First); }
    static std::size_t SizeOf(const FieldRange& range) {
        return static_cast<std::size_t>(WidthOf(Table, range.First, range.Last + 1));
    }

private:
    char m_Bytes[WidthOf(Table)];
};

#endif
