// The panels of a stock and of an index: numbered fields, of which the workspace takes a range.
#include <algorithm>
#include <span>

#include "module/layouts/RITRDE01.h"
#include "module/layouts/RSTRDE01.h"
#include "terminal/code_page.h"
#include "terminal/errors.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/panel.h"
#include "terminal/text.h"

namespace tools {

namespace {

using PanelTable = std::span<const PanelField>;

constexpr char kFirst[] = "FirstField";
constexpr char kLast[] = "LastField";

std::size_t ColorWidthOf(const PanelField& field) {
    return field.HasColor ? kColorWidth : 0;
}

std::size_t SizeOf(PanelTable table) {
    return static_cast<std::size_t>(WidthOf(table));
}

enum class Naming { Number, NumberAndContent };

// The fields one behind the other, each colour apart from its value.
std::vector<Field> FieldsOf(PanelTable table, std::size_t offset, Naming naming) {
    std::vector<Field> fields;
    for (const PanelField& field : table) {
        const std::string name = "Field" + std::to_string(field.Number);
        const std::size_t color = ColorWidthOf(field);
        const auto width = static_cast<std::size_t>(field.Width);
        if (color != 0) {
            fields.push_back({name + ".Color", offset, color});
        }
        const std::string content = naming == Naming::Number ? "" : std::string(" ") + field.Content;
        fields.push_back({name + content, offset + color, width - color});
        offset += width;
    }
    return fields;
}

LayoutTable DisplayTable(PanelTable table) {
    std::vector<Field> fields = FieldsOf(table, sizeof(RequestTag), Naming::NumberAndContent);
    fields.insert(fields.begin(), kTagField);
    return {"Display buffer of all fields", 0, sizeof(RequestTag) + SizeOf(table), std::move(fields)};
}

int64_t NumberIn(const InitText& text, const char* name) {
    return ParseInteger(Trim(text.Value(name))).value_or(-1);
}

// The fields that the text asks for.
PanelTable RangeOf(const InitText& text, PanelTable table) {
    const int64_t first = NumberIn(text, kFirst);
    const int64_t last = NumberIn(text, kLast);
    if (first < 0 || first > last || last >= static_cast<int64_t>(table.size())) {
        throw BadInput("fields " + Quoted(Trim(text.Value(kFirst))) + " to " +
                       Quoted(Trim(text.Value(kLast))) + " are no range; give " + kFirst + " and " + kLast +
                       " from 0 to " + std::to_string(table.size() - 1) + ", the first not above the last");
    }
    return table.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1));
}

void PutNumber(InitText& text, const char* name, int number) {
    const std::string digits = std::to_string(number);
    text.Set(name, std::string(text.Value(name).size() - digits.size(), '0') + digits);
}

// Lets go of the fields outside of the range, in which nothing may stand.
void KeepRange(InitText& text, PanelTable table) {
    const PanelTable range = RangeOf(text, table);
    const std::size_t start = text.Bytes().size() - SizeOf(table);
    std::size_t at = start;
    for (const PanelField& field : table) {
        const auto width = static_cast<std::size_t>(field.Width);
        const bool isOut = field.Number < range.front().Number || field.Number > range.back().Number;
        if (isOut && !Trim(text.Bytes().substr(at, width)).empty()) {
            throw BadInput("Field" + std::to_string(field.Number) + " lies outside of the range " +
                           std::to_string(range.front().Number) + " to " +
                           std::to_string(range.back().Number) + "; widen it, or leave the field out");
        }
        at += width;
    }
    PutNumber(text, kFirst, range.front().Number);
    PutNumber(text, kLast, range.back().Number);
    const std::size_t before = SizeOf(table.first(static_cast<std::size_t>(range.front().Number)));
    text.Remove(start, before);
    text.Cut(start + SizeOf(range));
}

// Of the inquiry's fields those that hold something.
class FieldPanel : public Panel {
public:
    explicit FieldPanel(PanelTable range) : Panel(DisplayTable(range)), m_Range(range) {}

    std::string Show(std::string_view buffer) const override {
        std::vector<Line> lines;
        std::size_t width = 0;
        std::size_t at = sizeof(RequestTag);
        for (const PanelField& field : m_Range) {
            const std::string_view color = buffer.substr(at, ColorWidthOf(field));
            const std::string_view whole = buffer.substr(at, static_cast<std::size_t>(field.Width));
            const std::string value = ShownText(Trim(whole.substr(color.size())));
            const std::string content = field.Content;
            if (!value.empty() || !content.ends_with("inquiry")) {
                lines.push_back({std::to_string(field.Number), Printable(Trim(color)), content + ":", value});
                width = std::max(width, lines.back().Content.size());
            }
            at += whole.size();
        }
        std::string text = "  Tag: " + Printable(buffer.substr(0, sizeof(RequestTag))) + "\n";
        for (Line& line : lines) {
            line.Number.insert(0, 2 - line.Number.size(), ' ');
            line.Tag.resize(std::max(line.Tag.size(), std::size_t{1}), ' ');
            if (!line.Value.empty()) {
                line.Content.resize(width + 1, ' ');
            }
            text += "  " + line.Number + " " + line.Tag + " " + line.Content + line.Value + "\n";
        }
        return text;
    }

private:
    struct Line {
        std::string Number;
        std::string Tag;
        std::string Content;
        std::string Value;
    };

    const PanelTable m_Range;
};

// All fields, unless the workspace takes fewer.
template <class Init, const auto& Table, auto KeyOf>
InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    Init init;
    FillBlank(init);
    init.Key = KeyOf(key);
    InitText text;
    text.Append("", init);
    text.AppendBlank(FieldsOf(Table, 0, Naming::Number), SizeOf(Table));
    PutNumber(text, kFirst, 0);
    PutNumber(text, kLast, static_cast<int>(std::size(Table)) - 1);
    return text;
}

template <const auto& Table>
std::vector<LayoutTable> Display() {
    return {DisplayTable(Table)};
}

template <const auto& Table>
std::unique_ptr<Screen> Open(const InitText& init, std::size_t /*rows*/) {
    return std::make_unique<FieldPanel>(RangeOf(init, Table));
}

template <const auto& Table>
void Complete(InitText& text) {
    KeepRange(text, Table);
}

template <class Init, const auto& Table, auto KeyOf>
constexpr ScreenKind PanelKind(const char* map, const char* sampleKey) {
    return {map, MakeInit<Init, Table, KeyOf>, Display<Table>, Open<Table>, sampleKey, Complete<Table>};
}

}  // namespace

const ScreenKind kIndexPanelScreen = PanelKind<IndexPanelInit, kIndexPanel, IndexKeyOf>("RITRDE01_R", "COMP");
const ScreenKind kStockPanelScreen =
    PanelKind<StockPanelInit, kStockPanel, StockKeyOf>("RSTRDE01_R", "1ASII");

}  // namespace tools
