// A question to a benchmark: what does the module cost, and what its plain and its competent form where there
// are such?
//
// All are run in turns, repetition by repetition, so that what the machine does meanwhile meets all of them.
#ifndef TICKMUX_BENCH_SUPPORT_QUESTION_H
#define TICKMUX_BENCH_SUPPORT_QUESTION_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

using Pass = std::function<void()>;

// How many times the module's time a form is to take; 0: no aim.
struct Aims {
    double Plain = 0;
    double Competent = 0;
};

struct Question {
    std::string What;
    Aims Aim;
    int64_t Items;  // in one pass
    Pass Module;
    Pass Plain = nullptr;      // null: there is no such form
    Pass Competent = nullptr;  // null: the same
    Pass Floor = nullptr;      // what no form can leave out, alone; null: not asked
};

// The exit status of a program that asks them. Benchmark's own options count; each question gives
// "What/module", and "What/plain", "What/competent" and "What/floor" if there are such, with the aims as
// counters.
int Ask(int argc, char** argv, const std::vector<Question>& questions);

// Ends the program with a message: what was to be compared is not the same.
[[noreturn]] void Differ(const std::string& what);

}  // namespace bench

#endif
