#include "directory/wallclock.h"

#include <QDateTime>

#include <ctime>

namespace {
const qint64 msPerSecond = 1000;
const qint64 secondsPerDay = 86400;
const qint64 msPerDay = secondsPerDay * msPerSecond;
const qint64 changing = msPerDay; // no offset is as large

// Outside these Qt goes ways of its own, each version another.
const qint64 firstPlainDay = 3;    // 4 January 1970
const qint64 lastPlainDay = 24832; // 27 December 2037

qint64 wallClockOfQt(qint64 msSinceEpoch)
{
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(msSinceEpoch);
    return QDate(1970, 1, 1).daysTo(local.date()) * msPerDay + QTime(0, 0).msecsTo(local.time());
}

qint64 offsetAt(qint64 seconds)
{
    const time_t time = static_cast<time_t>(seconds);
    tm local;
    localtime_r(&time, &local);
    return local.tm_gmtoff * msPerSecond;
}

// No zone changes its offset to and fro within a day.
qint64 offsetOfDay(qint64 day)
{
    const qint64 first = offsetAt(day * secondsPerDay);
    return first == offsetAt((day + 1) * secondsPerDay - 1) ? first : changing;
}
} // namespace

WallClock::WallClock()
{
    tzset();
}

qint64 WallClock::at(qint64 msSinceEpoch)
{
    const qint64 day = dayOf(msSinceEpoch);
    if (day < firstPlainDay || day > lastPlainDay)
        return wallClockOfQt(msSinceEpoch);

    QHash<qint64, qint64>::const_iterator offset = m_offsets.constFind(day);
    if (offset == m_offsets.constEnd())
        offset = m_offsets.insert(day, offsetOfDay(day));
    return msSinceEpoch + (*offset == changing ? offsetAt(msSinceEpoch / msPerSecond) : *offset);
}

qint64 WallClock::dayOf(qint64 ms)
{
    return ms / msPerDay - (ms % msPerDay < 0 ? 1 : 0);
}

QByteArray WallClock::zone()
{
    tzset();
    return QByteArray::number(qint64(timezone)).append(tzname[0]).append(' ').append(tzname[1]);
}
