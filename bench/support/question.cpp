#include "bench/support/question.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>

namespace bench {

namespace {

void Register(const Question& question, const char* form, const Pass& pass) {
    if (!pass) {
        return;
    }
    const std::string name = question.What + "/" + form;
    benchmark::RegisterBenchmark(name.c_str(), [&question, &pass](benchmark::State& state) {
        pass();  // what a first pass allocates is not the question
        for ([[maybe_unused]] auto _ : state) {
            pass();
        }
        state.SetItemsProcessed(state.iterations() * question.Items);
        state.counters["plain aim"] = question.Aim.Plain;
        state.counters["competent aim"] = question.Aim.Competent;
    });
}

}  // namespace

int Ask(int argc, char** argv, const std::vector<Question>& questions) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string defaults[] = {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=9",
                              "--benchmark_min_time=0.02", "--benchmark_report_aggregates_only=true"};
    for (std::string& option : defaults) {
        arguments.insert(arguments.begin() + 1, option.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    for (const Question& question : questions) {
        Register(question, "plain", question.Plain);
        Register(question, "competent", question.Competent);
        Register(question, "module", question.Module);
        Register(question, "floor", question.Floor);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

void Differ(const std::string& what) {
    std::cerr << "the forms are not to be compared: " << what << "\n";
    std::exit(1);
}

}  // namespace bench
