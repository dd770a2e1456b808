// A line on the terminal that tells how far a long run is. It appears after about a second, and never where
// standard error is no terminal.
#ifndef TICKMUX_TERMINAL_PROGRESS_H
#define TICKMUX_TERMINAL_PROGRESS_H

#include <chrono>
#include <string>

namespace tools {

class Progress {
public:
    explicit Progress(bool wanted = true);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    // True from time to time; then the line is to be shown anew.
    bool IsDue() { return m_bOn && LookAtClock(); }
    void Show(const std::string& line);
    // Makes way for another line.
    void Hide();

private:
    using Clock = std::chrono::steady_clock;

    bool LookAtClock();

    bool m_bOn;
    bool m_bShown = false;
    Clock::time_point m_Next;
};

}  // namespace tools

#endif
