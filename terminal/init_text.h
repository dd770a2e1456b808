// An Init text in the making: the request tag, unless the map has none, then the parts of the map's layout,
// with named fields.
#ifndef TICKMUX_TERMINAL_INIT_TEXT_H
#define TICKMUX_TERMINAL_INIT_TEXT_H

#include <string>
#include <string_view>
#include <vector>

#include "terminal/fields.h"
#include "terminal/text.h"

namespace tools {

// What stands in front of so many rows.
template <class Row>
void PutRepeat(RepeatHead& repeat, std::size_t rows) {
    FillBlank(repeat);
    PutRight(repeat.Count, std::to_string(rows));
    PutRight(repeat.Size, std::to_string(sizeof(Row)));
}

class InitText {
public:
    InitText() : m_Bytes(sizeof(RequestTag), ' '), m_Fields{kTagField} {}
    static InitText WithoutTag() {
        InitText text;
        text.Cut(0);
        return text;
    }

    // A screen whose text has none gets buffers without one.
    bool HasTag() const { return !m_Fields.empty() && m_Fields.front().Name == kTagField.Name; }

    // One more part behind the others; its fields' names begin with `name` and a dot unless that is empty.
    template <class Part>
    void Append(const std::string& name, const Part& part) {
        const std::vector<Field> fields = FieldsOf<Part>(m_Bytes.size(), name.empty() ? "" : name + ".");
        m_Fields.insert(m_Fields.end(), fields.begin(), fields.end());
        m_Bytes.append(reinterpret_cast<const char*>(&part), sizeof(Part));
    }

    // A repeat block of one row: "Repeat" and "Row".
    template <class Row>
    void AppendRow(const Row& row) {
        RepeatHead repeat;
        PutRepeat<Row>(repeat, 1);
        Append("Repeat", repeat);
        Append("Row", row);
    }

    // The same as Append for a part of spaces that is told by its fields alone.
    void AppendBlank(const std::vector<Field>& fields, std::size_t size);

    // Sets a field, spaces behind a shorter value. A field is named in full, "Head.Price", or by its last
    // word where only one field ends with it. BadInput for a name or a value that does not fit.
    void Set(std::string_view name, std::string_view value);

    // A field, named as for Set, with its spaces.
    std::string_view Value(std::string_view name) const { return Find(name).Of(m_Bytes); }

    std::string_view Bytes() const { return m_Bytes; }
    // Takes `size` bytes out; the fields that begin there are gone.
    void Remove(std::size_t from, std::size_t size);
    // Ends the text behind its first `size` bytes.
    void Cut(std::size_t size) { Remove(size, m_Bytes.size() - size); }

    // Zero-terminated, for InitMap.
    char* Data() { return m_Bytes.data(); }

    LayoutTable Table() const { return {"Init text", 0, m_Bytes.size(), m_Fields}; }

private:
    const Field& Find(std::string_view name) const;

    std::string m_Bytes;
    std::vector<Field> m_Fields;
};

// The rows at the end of a text: "Row1", "Row2" and so on.
template <class Row>
void AppendRows(InitText& text, const std::vector<Row>& rows, const std::string& name = "Row") {
    for (std::size_t number = 0; number < rows.size(); ++number) {
        text.Append(name + std::to_string(number + 1), rows[number]);
    }
}

}  // namespace tools

#endif
