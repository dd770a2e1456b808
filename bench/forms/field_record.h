// A panel's record of numbered fields, with the place of each worked out once.
#ifndef TICKMUX_BENCH_FORMS_FIELD_RECORD_H
#define TICKMUX_BENCH_FORMS_FIELD_RECORD_H

#include <cstring>
#include <vector>

#include "module/layouts/field_panel.h"

namespace forms {

template <class Style>
class FieldRecord {
public:
    template <size_t Fields>
    explicit FieldRecord(const PanelField (&table)[Fields]) : m_pTable(table), m_Offsets(1, 0) {
        for (const PanelField& field : table) {
            m_Offsets.push_back(m_Offsets.back() + field.Width);
        }
        m_Bytes.resize(static_cast<size_t>(m_Offsets.back()));
        Clear();
    }

    void Clear() { memset(m_Bytes.data(), ' ', m_Bytes.size()); }
    int Fields() const { return static_cast<int>(m_Offsets.size()) - 1; }

    // Of the last field's number and 1: where the record ends.
    int OffsetOf(int number) const { return m_Offsets[static_cast<size_t>(number)]; }
    char* Color(int number) { return m_Bytes.data() + OffsetOf(number); }
    char* Value(int number) { return Color(number) + (m_pTable[number].HasColor ? 2 : 0); }
    int Width(int number) const { return m_pTable[number].Width - (m_pTable[number].HasColor ? 2 : 0); }

    int32_t ReadLong(int number) { return Style::AsciiToLong(Value(number), Width(number)); }
    double ReadDouble(int number) { return Style::AsciiToDouble(Value(number), Width(number)); }
    void WriteLong(int number, int32_t value) { Style::LongToAscii(value, Value(number), Width(number)); }
    void WriteDouble(int number, double value, int dec) {
        Style::DoubleToAscii(value, Value(number), Width(number), dec);
    }
    void AddDouble(int number, double amount) { WriteDouble(number, ReadDouble(number) + amount, 0); }

private:
    const PanelField* m_pTable;
    std::vector<int> m_Offsets;
    std::vector<char> m_Bytes;
};

}  // namespace forms

#endif
