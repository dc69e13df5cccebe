#include "support/waiting.h"

#include <QElapsedTimer>
#include <QTest>

namespace {
const int stepMs = 5;
} // namespace

bool waitUntil(const std::function<bool()> &condition, int deadlineMs)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > deadlineMs)
            return false;
        QTest::qWait(stepMs);
    }
    return true;
}

void letTimePass(int ms)
{
    QTest::qWait(ms);
}
