#ifndef WAITING_H
#define WAITING_H

#include <functional>

/**
 * Runs the event loop until @p condition holds.
 *
 * @return whether it held within @p deadlineMs, which is generous: only a failing test waits so
 * long
 */
bool waitUntil(const std::function<bool()> &condition, int deadlineMs = 20000);

/** Runs the event loop for @p ms, to prove that something does not happen early. */
void letTimePass(int ms);

#endif // WAITING_H
