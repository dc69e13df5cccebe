#ifndef PROGRAM_H
#define PROGRAM_H

#include <functional>
#include <string>

#include <benchmark/benchmark.h>

/** What the report calls the contender that all this is about. */
extern const char plugin[];

/** How often something is measured, as a share of what was asked for. */
enum Rounds {
    allRounds = 1,
    aThird = 3, ///< for peers: nothing hangs on their third digit
    aFifth = 5  ///< for what takes seconds
};

/**
 * Adds the benchmark of @p task as done by @p contender. All rounds of all benchmarks take turns in
 * random order.
 *
 * @param goal how many times the reference it may take; 0 for none
 */
void addBenchmark(const std::string &task, const std::string &contender, double goal, Rounds rounds,
                  const std::function<void(benchmark::State &)> &function);

/** Runs what was added, as Google Benchmark's options in @p argv say. @return for main() */
int runBenchmarks(int argc, char **argv);

#endif // PROGRAM_H
