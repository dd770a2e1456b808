// The diagnostic log of order messages, one line a message. The file is opened and closed for each, so that a
// line stands in it whatever becomes of the process. What cannot be written is lost without a word.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_ORDERLOG_H
#define TICKMUX_MODULE_DECODERS_ORDERS_ORDERLOG_H

#include <string_view>

// Appends a line to "c:\logs\" and `file`: the stamp "[HH:MM:SS:mmm]", four blanks, the tag in brackets, and
// the message up to a zero byte, with blanks in front up to its whole length. The hour is UTC's and nine,
// from 15:00 UTC on beyond 23. A message of more than 500 bytes is broken behind each 500.
void WriteLogLine(std::string_view file, std::string_view tag, std::string_view message);

#endif
