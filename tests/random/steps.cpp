#include "random/steps.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include <rapidcheck.h>

namespace {
const int sampleSteps = 3000;
const int longestRun = 120; // half of it on average
const int range = 1000;
const uint64_t sampleSeed = 20130506; // the same steps each time; a long run makes up its own

bool isLong()
{
    return getenv("FILEBROWSER_STEPS") != nullptr;
}
} // namespace

std::ostream &operator<<(std::ostream &stream, const Step &step)
{
    return stream << "{" << step.action << ", " << step.first << ", " << step.second << "}";
}

int wantedSteps()
{
    const char *const wanted = getenv("FILEBROWSER_STEPS");
    return wanted ? atoi(wanted) : sampleSteps;
}

bool holdsFor(int steps, int actions, const Property &property)
{
    using namespace rc::detail;
    TestParams params = configuration().testParams;
    params.maxSize = longestRun;
    params.maxSuccess = std::max(1, 2 * steps / longestRun);
    if (!isLong())
        params.seed = sampleSeed;

    const rc::Gen<Step> step = rc::gen::noShrink(rc::gen::construct<Step>(
        rc::gen::inRange(0, actions), rc::gen::inRange(0, range), rc::gen::inRange(0, range)));
    const rc::Gen<std::vector<Step>> sequence = rc::gen::container<std::vector<Step>>(step);
    bool isFound = false;
    const TestResult result = checkTestable(
        [&] {
            const std::string complaint = property(*sequence);
            if (complaint.empty())
                return;
            if (!isFound)
                std::cerr << complaint << "; looking for the shortest way there" << std::endl;
            isFound = true;
            RC_FAIL(complaint);
        },
        TestMetadata(), params);
    printResultMessage(result, std::cerr);
    std::cerr << std::endl;
    return result.is<SuccessResult>();
}
