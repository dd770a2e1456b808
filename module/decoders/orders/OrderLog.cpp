#include "module/decoders/orders/OrderLog.h"

#include <algorithm>
#include <cstring>

#include "host/platform/platform.h"
#include "host/services/services.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kPiece = 500;

// Gathers the line, so that one of common length is written at once.
class LineWriter {
public:
    explicit LineWriter(CFile& file) : m_File(file) {}
    ~LineWriter() { Flush(); }
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void Put(std::string_view text) {
        while (!text.empty()) {
            if (m_nUsed == sizeof(m_Buffer)) {
                Flush();
            }
            const std::size_t part = std::min(text.size(), sizeof(m_Buffer) - m_nUsed);
            std::memcpy(m_Buffer + m_nUsed, text.data(), part);
            m_nUsed += part;
            text.remove_prefix(part);
        }
    }

    // The number stands behind zeros that fill the field.
    void PutNumber(unsigned number, std::size_t width) {
        char digits[8];
        for (std::size_t i = width; i > 0; --i) {
            digits[i - 1] = static_cast<char>('0' + number % 10);
            number /= 10;
        }
        Put({digits, width});
    }

private:
    void Flush() {
        m_File.Write(m_Buffer, static_cast<UINT>(m_nUsed));
        m_nUsed = 0;
    }

    CFile& m_File;
    std::size_t m_nUsed = 0;
    char m_Buffer[4096];
};

void PutStamp(LineWriter& line) {
    constexpr unsigned kHoursAhead = 9;
    SYSTEMTIME now;
    GetSystemTime(&now);
    line.Put("[");
    line.PutNumber(now.wHour + kHoursAhead, 2);
    line.Put(":");
    line.PutNumber(now.wMinute, 2);
    line.Put(":");
    line.PutNumber(now.wSecond, 2);
    line.Put(":");
    line.PutNumber(now.wMilliseconds, 3);
    line.Put("]   ");
}

// A stretch of the message as it is printed: right-aligned, nothing behind a zero byte.
void PutPiece(LineWriter& line, std::string_view printed, std::size_t blanks, std::size_t first,
              std::size_t length) {
    constexpr std::string_view kBlanks = "                                ";
    const std::size_t end = first + length;
    while (first < std::min(end, blanks)) {
        const std::size_t part = std::min({kBlanks.size(), blanks - first, end - first});
        line.Put(kBlanks.substr(0, part));
        first += part;
    }
    if (first < end) {
        line.Put(printed.substr(first - blanks, end - first));
    }
}

bool OpenLog(CFile& log, const char* path) {
    constexpr UINT kAppend = CFile::modeWrite | CFile::modeCreate | CFile::modeNoTruncate;
    if (log.Open(path, kAppend) != FALSE) {
        return true;
    }
    CreateDirectoryA("C:\\logs", nullptr);
    return log.Open(path, kAppend) != FALSE;
}

}  // namespace

void WriteLogLine(std::string_view file, std::string_view tag, std::string_view message) {
    constexpr std::string_view kFolder = "c:\\logs\\";
    char path[64] = {};
    std::memcpy(path, kFolder.data(), kFolder.size());
    std::memcpy(path + kFolder.size(), file.data(), std::min(file.size(), sizeof(path) - kFolder.size() - 1));
    CFile log;
    if (!OpenLog(log, path)) {
        return;
    }
    log.SeekToEnd();
    const std::string_view printed = message.substr(0, message.find('\0'));
    const std::size_t blanks = message.size() - printed.size();
    LineWriter line(log);
    PutStamp(line);
    line.Put(" [");
    line.Put(tag);
    line.Put("]");
    std::size_t first = 0;
    if (message.size() > kPiece) {
        for (; message.size() - first >= kPiece; first += kPiece) {
            PutPiece(line, printed, blanks, first, kPiece);
            line.Put(kLineEnd);
        }
    }
    PutPiece(line, printed, blanks, first, message.size() - first);
    line.Put(kLineEnd);
}
