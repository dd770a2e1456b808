#include "terminal/text.h"

#include <charconv>
#include <cstdio>

namespace tools {

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string Printable(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        if (byte == '\\') {
            text += "\\\\";
        } else if (byte >= ' ' && byte <= '~') {
            text += byte;
        } else {
            char escape[sizeof("\\xNN")];
            std::snprintf(escape, sizeof(escape), "\\x%02x",
                          static_cast<unsigned>(static_cast<unsigned char>(byte)));
            text += escape;
        }
    }
    return text;
}

std::string Quoted(std::string_view text) {
    return '"' + Printable(text) + '"';
}

std::string Counted(uint64_t count, const std::string& one, const std::string& many) {
    const std::string plural = many.empty() ? one + "s" : many;
    return std::to_string(count) + " " + (count == 1 ? one : plural);
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : between) + word;
    }
    return text;
}

std::optional<int64_t> ParseInteger(std::string_view text) {
    int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

std::string DecimalText(int64_t scaled, int decimals) {
    std::string digits = std::to_string(scaled < 0 ? -scaled : scaled);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places) {
        digits.insert(0, places + 1 - digits.size(), '0');
    }
    const std::size_t point = digits.size() - places;
    std::string text = scaled < 0 ? "-" : "";
    text.append(digits, 0, point) += '.';
    return text.append(digits, point);
}

}  // namespace tools
