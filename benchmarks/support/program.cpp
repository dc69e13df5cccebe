#include "support/program.h"

#include <algorithm>
#include <cstdlib>

const char plugin[] = "this plugin";

namespace {
/** Number of rounds, from the environment because benchmarks are added before options are read. */
int roundsAskedFor()
{
    const char *rounds = getenv("FILEBROWSER_ROUNDS");
    return rounds ? atoi(rounds) : 1;
}
} // namespace

void addBenchmark(const std::string &task, const std::string &contender, double goal, Rounds rounds,
                  const std::function<void(benchmark::State &)> &function)
{
    const auto run = [function, goal](benchmark::State &state) {
        function(state);
        if (goal > 0)
            state.counters["goal"] = goal;
    };
    // The bar parts what the report shows in two columns.
    benchmark::RegisterBenchmark((task + "|" + contender).c_str(), run)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(std::max(1, roundsAskedFor() / rounds))
        ->Unit(benchmark::kMillisecond);
}

int runBenchmarks(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
