// Text files of words: one record a line, its words between blanks.
//
// A # where a word might begin ends the line. What stands between double quotes has its blanks.
#ifndef TICKMUX_TERMINAL_WORD_FILE_H
#define TICKMUX_TERMINAL_WORD_FILE_H

#include <functional>
#include <string>
#include <vector>

namespace tools {

// Calls `take` with the place, file and line number, and the words of each line that has any. BadInput for a
// file that cannot be read and for a broken line; what `take` throws gets the place in front.
using TakeWords = std::function<void(const std::string& place, const std::vector<std::string>& words)>;
void ReadWordFile(const std::string& path, const TakeWords& take);

}  // namespace tools

#endif
