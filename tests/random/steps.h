#ifndef STEPS_H
#define STEPS_H

#include <functional>
#include <ostream>
#include <string>
#include <vector>

/** One thing that happens: which of so many, and two numbers that say to what. */
struct Step
{
    int action;
    int first;
    int second;
};

std::ostream &operator<<(std::ostream &stream, const Step &step);

/** Does the steps. @return what was not as it must be, empty when all was */
typedef std::function<std::string(const std::vector<Step> &)> Property;

/** Number of steps that FILEBROWSER_STEPS asks for; without it, those of a sample. */
int wantedSteps();

/**
 * Tries @p property on random sequences of steps, about @p steps in all, with actions from 0 up to
 * and without @p actions. A sequence that fails is made as short as it can be, and printed with the
 * seed that finds it again.
 *
 * @return whether the property held always
 */
bool holdsFor(int steps, int actions, const Property &property);

#endif // STEPS_H
