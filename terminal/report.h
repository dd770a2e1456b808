// What a replay prints at its end, and the page of layouts.
#ifndef TICKMUX_TERMINAL_REPORT_H
#define TICKMUX_TERMINAL_REPORT_H

#include <string>

#include "terminal/replay.h"
#include "terminal/terminal.h"

namespace tools {

// Each screen as its user sees it last.
std::string ImagesText(const Terminal& terminal);

// The figures of the run; the terminal has closed, so that its requests are all counted.
std::string SummaryText(const ReplaySummary& summary, const Terminal& terminal);

// A Markdown page: for each map the fields of its Init text and of what its screen receives.
std::string LayoutsPage();

}  // namespace tools

#endif
