#include "terminal/code_page.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <optional>

#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr auto kFirstOfPair = static_cast<unsigned char>('\x81');
constexpr std::size_t kPair = 2;

constexpr char kUnicode[] = "UTF-8";
constexpr char kCodePage[] = "CP949";

class Converter {
public:
    Converter(const char* from, const char* to) : m_hTable(iconv_open(to, from)) {
        if (m_hTable == reinterpret_cast<iconv_t>(-1)) {
            throw Failure(
                "the system's iconv does not know CP949; install the C library's conversion tables");
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { iconv_close(m_hTable); }

    // Whole letters for which there is room; none for bytes that are no letter.
    std::optional<std::string> Text(std::string_view bytes, std::size_t most) const {
        std::string in(bytes);
        std::string out(most, ' ');
        char* from = in.data();
        char* to = out.data();
        std::size_t left = in.size();
        std::size_t room = most;
        iconv(m_hTable, nullptr, nullptr, nullptr, nullptr);
        if (iconv(m_hTable, &from, &left, &to, &room) == static_cast<std::size_t>(-1) && errno != E2BIG) {
            return std::nullopt;
        }
        out.resize(most - room);
        return out;
    }

private:
    iconv_t m_hTable;
};

// The code point whose UTF-8 bytes begin here, and their number.
struct Letter {
    uint32_t Point;
    std::size_t Size;
};

Letter FirstLetter(std::string_view text) {
    const auto byte = [text](std::size_t i) {
        return i < text.size() ? static_cast<uint32_t>(static_cast<unsigned char>(text[i])) : 0U;
    };
    const auto low = [&byte](std::size_t i) { return byte(i) & 0x3FU; };
    if (byte(0) < 0xC0U) {
        return {byte(0), 1};
    }
    if (byte(0) < 0xE0U) {
        return {(byte(0) & 0x1FU) << 6U | low(1), 2};
    }
    return {(byte(0) & 0x0FU) << 12U | low(1) << 6U | low(2), 3};
}

// Hangul and its letters, Chinese characters, and the full-width forms.
bool IsWide(uint32_t point) {
    constexpr struct {
        uint32_t First;
        uint32_t Last;
    } kWide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3},
                 {0xF900, 0xFAFF}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}};
    for (const auto& [first, last] : kWide) {
        if (point >= first && point <= last) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::string ShownText(std::string_view bytes) {
    static const Converter converter(kCodePage, kUnicode);
    constexpr std::size_t kLongest = 8;
    bytes = bytes.substr(0, bytes.find('\0'));
    std::string text;
    while (!bytes.empty()) {
        const bool inPair = static_cast<unsigned char>(bytes[0]) >= kFirstOfPair && bytes.size() >= kPair;
        const std::string letter =
            inPair ? converter.Text(bytes.substr(0, kPair), kLongest).value_or("") : "";
        text += letter.empty() ? Printable(bytes.substr(0, 1)) : letter;
        bytes.remove_prefix(letter.empty() ? 1 : kPair);
    }
    return text;
}

std::string CodePageText(std::string_view text, std::size_t most) {
    static const Converter converter(kUnicode, kCodePage);
    const std::optional<std::string> bytes = converter.Text(text, most);
    if (!bytes) {
        throw Failure("text " + Quoted(text) + " is not one of code page 949");
    }
    return *bytes;
}

std::size_t ShownWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Letter letter = FirstLetter(text);
        width += IsWide(letter.Point) ? 2 : 1;
        text.remove_prefix(std::min(letter.Size, text.size()));
    }
    return width;
}

}  // namespace tools
