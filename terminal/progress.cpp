#include "terminal/progress.h"

#include <unistd.h>

#include <cstdio>

namespace tools {

namespace {

constexpr std::chrono::milliseconds kFirst(1000);
constexpr std::chrono::milliseconds kEvery(250);
constexpr char kClearLine[] = "\r\033[K";

}  // namespace

Progress::Progress(bool wanted)
    : m_bOn(wanted && isatty(STDERR_FILENO) != 0), m_Next(Clock::now() + kFirst) {}

Progress::~Progress() {
    Hide();
}

bool Progress::LookAtClock() {
    const Clock::time_point now = Clock::now();
    if (now < m_Next) {
        return false;
    }
    m_Next = now + kEvery;
    return true;
}

void Progress::Show(const std::string& line) {
    m_bShown = true;
    std::fprintf(stderr, "%s%s", kClearLine, line.c_str());
}

void Progress::Hide() {
    if (m_bShown) {
        std::fputs(kClearLine, stderr);
        m_bShown = false;
    }
}

}  // namespace tools
