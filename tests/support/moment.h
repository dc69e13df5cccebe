#ifndef MOMENT_H
#define MOMENT_H

#include <QObject>
#include <QStringList>

#include <functional>

/**
 * Does something once, some time from now. Timers of one thread fire in the order of their times,
 * however busy the machine is: a moment just before and one just after a delay prove the delay
 * without measuring it.
 */
class Moment : public QObject
{
    Q_OBJECT

public:
    /** Calls @p action in @p ms from now. */
    Moment(int ms, const std::function<void()> &action);

    bool isOver() const
    {
        return m_isOver;
    }

private slots:
    void come();

private:
    const std::function<void()> m_action;
    bool m_isOver;
};

/**
 * Runs @p operation and tells which signals @p sender emits in three spans of time, each joined
 * with blanks: until 5 ms before @p delayMs are over, in the 10 ms around that, and afterwards
 * until the delay has gone by once more and a little.
 */
QStringList signalsAround(int delayMs, QObject *sender, const std::function<void()> &operation);

#endif // MOMENT_H
