// Small work on text: trimming, numbers, what is safe to print, and the fill of fixed-width fields.
#ifndef TICKMUX_TERMINAL_TEXT_H
#define TICKMUX_TERMINAL_TEXT_H

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "module/wire/shapes.h"

namespace tools {

// Without the spaces at its ends.
std::string_view Trim(std::string_view text);

// Bytes outside printable ASCII as \xNN, a backslash as two, so that no field can upset a terminal.
std::string Printable(std::string_view bytes);

// Printable, between double quotes.
std::string Quoted(std::string_view text);

// "1 packet", "2 packets"; the plural adds an s unless it is given.
std::string Counted(uint64_t count, const std::string& one, const std::string& many = "");

std::string Joined(const std::vector<std::string>& words, const char* between = ", ");

// A whole decimal number and nothing else.
std::optional<int64_t> ParseInteger(std::string_view text);

// A number with so many decimals, given as a count of its last place: 12345, 2 is "123.45".
std::string DecimalText(int64_t scaled, int decimals);

// `text` at the left of a field, spaces behind; a longer one loses its tail.
template <std::size_t N>
void PutLeft(char (&field)[N], std::string_view text) {
    FillBlank(field);
    std::memcpy(field, text.data(), std::min(text.size(), N));
}

// `text` at the right of a field, spaces in front; a longer one loses its tail.
template <std::size_t N>
void PutRight(char (&field)[N], std::string_view text) {
    FillBlank(field);
    const std::size_t length = std::min(text.size(), N);
    std::memcpy(field + N - length, text.data(), length);
}

// A number over the whole field, zeros in front.
template <std::size_t N>
void PutDigits(char (&field)[N], int64_t number) {
    const std::string digits = std::to_string(number);
    PutRight(field, std::string(N - std::min(N, digits.size()), '0') + digits);
}

}  // namespace tools

#endif
