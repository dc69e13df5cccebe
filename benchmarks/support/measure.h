#ifndef MEASURE_H
#define MEASURE_H

#include <QString>

#include <functional>

#include <benchmark/benchmark.h>

/** Something to be timed. */
struct Step
{
    std::function<void()> prepare; ///< not timed; may be empty
    std::function<void()> run;
};

/** A step that needs no preparation. */
Step step(const std::function<void()> &run);

/**
 * Times @p work and, right before and right after it, @p reference: a machine that is faster or
 * slower now than a second ago is so for both, and their ratio stays. The time of work becomes that
 * of the benchmark, the mean of the two others its counter "reference". The counter "noise" is by
 * how much, as a share, either of the two is off that mean.
 *
 * What @p check finds wrong afterwards is its result; the time counts only when that is empty.
 */
void measure(benchmark::State &state, const Step &reference, const Step &work,
             const std::function<QString()> &check);

#endif // MEASURE_H
