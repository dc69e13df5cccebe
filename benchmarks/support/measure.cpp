#include "support/measure.h"

#include <chrono>
#include <cmath>

namespace {
double secondsOf(const Step &step)
{
    if (step.prepare)
        step.prepare();
    const auto start = std::chrono::steady_clock::now();
    step.run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}
} // namespace

Step step(const std::function<void()> &run)
{
    const Step step = {std::function<void()>(), run};
    return step;
}

void measure(benchmark::State &state, const Step &reference, const Step &work,
             const std::function<QString()> &check)
{
    for (auto round : state) {
        static_cast<void>(round);
        secondsOf(reference); // what was in the caches before is another contender's
        const double before = secondsOf(reference);
        const double taken = secondsOf(work);
        const QString mistake = check();
        const double after = secondsOf(reference);
        if (!mistake.isEmpty()) {
            state.SkipWithError(mistake.toLocal8Bit().constData());
            return;
        }
        state.SetIterationTime(taken);
        state.counters["reference"] = (before + after) / 2;
        state.counters["noise"] = std::fabs(before - after) / (before + after);
    }
}
