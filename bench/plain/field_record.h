// A panel's record of numbered fields, found by walking the table.
#ifndef TICKMUX_BENCH_PLAIN_FIELD_RECORD_H
#define TICKMUX_BENCH_PLAIN_FIELD_RECORD_H

#include <cstring>
#include <vector>

#include "bench/plain/codecs.h"
#include "bench/plain/rates.h"
#include "framework/field_panel.h"

namespace plain {

class FieldRecord {
public:
    template <size_t Fields>
    explicit FieldRecord(const PanelField (&table)[Fields])
        : m_pTable(table),
          m_nFields(static_cast<int>(Fields)),
          m_Bytes(static_cast<size_t>(OffsetOf(Fields))) {
        Clear();
    }

    void Clear() { memset(m_Bytes.data(), ' ', m_Bytes.size()); }
    int Fields() const { return m_nFields; }

    int OffsetOf(int number) const {
        int offset = 0;
        for (int i = 0; i < number; ++i) {
            offset += m_pTable[i].Width;
        }
        return offset;
    }
    char* At(int offset) { return m_Bytes.data() + offset; }

    char* Tag(int number) { return At(OffsetOf(number)); }
    char* Value(int number) { return Tag(number) + (m_pTable[number].HasTag ? 2 : 0); }
    int Width(int number) const { return m_pTable[number].Width - (m_pTable[number].HasTag ? 2 : 0); }

    int32_t ReadLong(int number) { return AsciiToLong(Value(number), Width(number)); }
    double ReadDouble(int number) { return AsciiToDouble(Value(number), Width(number)); }
    void WriteLong(int number, int32_t value) { LongToAscii(value, Value(number), Width(number)); }
    void WriteInt64(int number, int64_t value) { Int64ToAscii(value, Value(number), Width(number)); }
    void WriteDouble(int number, double value, int dec) {
        DoubleToAscii(value, Value(number), Width(number), dec);
    }
    void AddDouble(int number, double amount) { WriteDouble(number, ReadDouble(number) + amount, 0); }

private:
    const PanelField* m_pTable;
    int m_nFields;
    std::vector<char> m_Bytes;
};

}  // namespace plain

#endif
