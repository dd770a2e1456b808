#include "module/framework/init_reader.h"

#include <algorithm>
#include <cstring>

#include "module/wire/codecs.h"

InitReader::InitReader(const char* buffer) {
    const std::size_t length = std::strlen(buffer);
    std::memcpy(m_Tag.Bytes, buffer, std::min(length, sizeof(m_Tag.Bytes)));
    m_pCursor = buffer + sizeof(m_Tag.Bytes);
    m_nRemain = static_cast<int>(length) - static_cast<int>(sizeof(m_Tag.Bytes));
}

void InitReader::ReadTagAsBody() {
    m_pCursor -= sizeof(m_Tag.Bytes);
    m_nRemain += static_cast<int>(sizeof(m_Tag.Bytes));
}

bool InitReader::ReadBytes(void* dst, int n) {
    if (m_nRemain < n) {
        return false;
    }
    std::memcpy(dst, m_pCursor, static_cast<std::size_t>(n));
    m_pCursor += n;
    m_nRemain -= n;
    return true;
}

bool InitReader::ReadItems(RepeatHead& head, void* items, std::size_t room) {
    if (!Read(head)) {
        return false;
    }
    const int bytes = std::max(ToLong(head.Count), 0) * ToLong(head.Size);  // four digits each
    return bytes >= 0 && static_cast<std::size_t>(bytes) <= room && ReadBytes(items, bytes);
}

bool InitReader::ReadRows(void* rows, int rowSize, int maxCount) {
    auto* row = static_cast<char*>(rows);
    std::memset(row, ' ', static_cast<std::size_t>(rowSize) * static_cast<std::size_t>(maxCount));
    RepeatHead head;
    if (!Read(head)) {
        return false;
    }
    const int size = ToLong(head.Size);
    for (int left = std::min(ToLong(head.Count), maxCount); left > 0; --left) {
        if (size < 0 || m_nRemain < size) {
            m_nRemain = 0;
            return false;
        }
        std::memcpy(row, m_pCursor, static_cast<std::size_t>(std::min(size, rowSize)));
        row += rowSize;
        m_pCursor += size;
        m_nRemain -= size;
    }
    return true;
}
