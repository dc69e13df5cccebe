#include "support/moment.h"

#include "support/signallog.h"
#include "support/waiting.h"

#include <QTimer>

namespace {
const int marginMs = 5;
const int littleMs = 50;
} // namespace

Moment::Moment(int ms, const std::function<void()> &action)
    : m_action(action)
    , m_isOver(false)
{
    QTimer::singleShot(ms, this, SLOT(come()));
}

void Moment::come()
{
    m_action();
    m_isOver = true;
}

QStringList signalsAround(int delayMs, QObject *sender, const std::function<void()> &operation)
{
    SignalLog log(sender);
    QStringList spans;
    const std::function<void()> endSpan = [&] { spans.append(log.take().join(" ")); };
    const Moment justBefore(delayMs - marginMs, endSpan);
    operation();
    const Moment justAfter(delayMs + marginMs, endSpan);
    const Moment muchLater(2 * delayMs + littleMs, endSpan);
    waitUntil([&] { return muchLater.isOver(); });
    return spans;
}
