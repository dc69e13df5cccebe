#ifndef WALLCLOCK_H
#define WALLCLOCK_H

#include <QByteArray>
#include <QHash>

/**
 * Local time as the clock on the wall shows it. For the length of one listing: the time zone is the
 * one that holds when the object is made.
 *
 * The same as QDateTime's conversion, which looks at the time zone afresh for every single date:
 * here that is done twice for each day of the calendar.
 */
class WallClock
{
public:
    WallClock();

    /** The time @p msSinceEpoch on the wall, in milliseconds since 1970 on that clock. */
    qint64 at(qint64 msSinceEpoch);

    /** Days from 1970 to @p ms milliseconds after its beginning. */
    static qint64 dayOf(qint64 ms);

    /** What the C library calls the time zone, with its distance from UTC: another one differs. */
    static QByteArray zone();

private:
    QHash<qint64, qint64> m_offsets; // milliseconds by day
};

#endif // WALLCLOCK_H
