// Texts of the terminal's own code page, 949: one byte a Latin letter, two bytes a Korean syllable.
#ifndef TICKMUX_TERMINAL_CODE_PAGE_H
#define TICKMUX_TERMINAL_CODE_PAGE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace tools {

// A text up to a zero byte, as UTF-8. What the code page does not have, and what could upset a terminal, is
// shown as by Printable.
std::string ShownText(std::string_view bytes);

// The other way: as many letters of a UTF-8 text as take up to `most` bytes. Failure for one that the code
// page does not have.
std::string CodePageText(std::string_view text, std::size_t most);

// How wide a terminal draws what ShownText gives: a syllable takes two columns.
std::size_t ShownWidth(std::string_view text);

}  // namespace tools

#endif
