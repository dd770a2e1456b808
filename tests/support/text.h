// Fixed-width text.
#ifndef TICKMUX_TESTS_SUPPORT_TEXT_H
#define TICKMUX_TESTS_SUPPORT_TEXT_H

#include <string>

// `text` with spaces behind or in front.
inline std::string Left(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), ' ');
}
inline std::string Right(const std::string& text, std::size_t width) {
    return std::string(width - text.size(), ' ') + text;
}

// The bytes of a layout or a field.
template <class Bytes>
std::string Text(const Bytes& bytes) {
    static_assert(alignof(Bytes) == 1);
    return {reinterpret_cast<const char*>(&bytes), sizeof(Bytes)};
}

#endif
