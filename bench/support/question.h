// A question to a benchmark: what does the module cost, and what its plain form where there is one?
//
// Both are run in turns, repetition by repetition, so that what the machine does meanwhile meets both.
#ifndef TICKMUX_BENCH_SUPPORT_QUESTION_H
#define TICKMUX_BENCH_SUPPORT_QUESTION_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Question {
    std::string What;
    double Aim;                   // plain / module; 0: none
    int64_t Items;                // in one pass
    std::function<void()> Plain;  // null: there is none
    std::function<void()> Module;
    std::function<void()> Floor = nullptr;  // what neither form can leave out, alone; null: not asked
};

// The exit status of a program that asks them. Benchmark's own options count; each question gives
// "What/module", and "What/plain" and "What/floor" if there are such, with the aim as a counter.
int Ask(int argc, char** argv, const std::vector<Question>& questions);

// Ends the program with a message: what was to be compared is not the same.
[[noreturn]] void Differ(const std::string& what);

}  // namespace bench

#endif
