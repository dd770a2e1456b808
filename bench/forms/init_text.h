// An Init text, read from its head on.
#ifndef TICKMUX_BENCH_FORMS_INIT_TEXT_H
#define TICKMUX_BENCH_FORMS_INIT_TEXT_H

#include <algorithm>
#include <cstring>

#include "module/wire/shapes.h"

namespace forms {

template <class Style>
class InitText {
public:
    explicit InitText(const char* text) : m_pText(text), m_nRemain(static_cast<int>(strlen(text))) {}

    int Remain() const { return m_nRemain; }

    bool ReadBytes(void* dst, int n) {
        if (m_nRemain < n) {
            return false;
        }
        memcpy(dst, m_pText, static_cast<size_t>(n));
        m_pText += n;
        m_nRemain -= n;
        return true;
    }

    // The head, and the first `maxCount` rows behind it; a row that does not come has spaces.
    bool ReadRepeatBlock(RepeatHead* head, void* rows, int rowSize, int maxCount) {
        memset(rows, ' ', static_cast<size_t>(rowSize) * static_cast<size_t>(maxCount));
        if (!ReadBytes(head, sizeof(*head)) ||
            Style::AsciiToLong(head->Size, sizeof(head->Size)) != rowSize) {
            return false;
        }
        const int count = std::min(Style::AsciiToLong(head->Count, sizeof(head->Count)), maxCount);
        return ReadBytes(rows, std::max(count, 0) * rowSize);
    }

private:
    const char* m_pText;
    int m_nRemain;
};

}  // namespace forms

#endif
