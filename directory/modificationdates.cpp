#include "directory/modificationdates.h"

#include "directory/folderreader.h"

#include <QDateTime>

#include <ctime>

namespace {
const qint64 msPerSecond = 1000;
const qint64 msPerDay = Q_INT64_C(86400000);
const int julianDayOf1970 = 2440588;

// Outside these Qt goes ways of its own, each version another.
const qint64 firstPlainDay = Q_INT64_C(259200);    // 4 January 1970
const qint64 lastPlainDay = Q_INT64_C(2145571200); // 28 December 2037

qint64 floorDivided(qint64 dividend, qint64 divisor)
{
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

qint64 wallClockOfQt(qint64 msSinceEpoch)
{
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(msSinceEpoch);
    return (local.date().toJulianDay() - julianDayOf1970) * msPerDay +
           QTime(0, 0).msecsTo(local.time());
}
} // namespace

void refreshTimeZone()
{
    tzset();
}

qint64 wallClock(qint64 msSinceEpoch)
{
    const qint64 seconds = floorDivided(msSinceEpoch, msPerSecond);
    if (seconds < firstPlainDay || seconds > lastPlainDay)
        return wallClockOfQt(msSinceEpoch);

    const time_t time = static_cast<time_t>(seconds);
    tm local;
    localtime_r(&time, &local);
    return msSinceEpoch + local.tm_gmtoff * msPerSecond;
}

ModificationDates::ModificationDates(const QString &format)
    : m_format(format)
{
    refreshTimeZone();
}

QString ModificationDates::text(qint64 msSinceEpoch)
{
    if (msSinceEpoch == noTime)
        return QString();
    const qint64 day = floorDivided(wallClock(msSinceEpoch), msPerDay);
    QString &text = m_textByDay[day];
    if (text.isNull())
        text = QDate::fromJulianDay(day + julianDayOf1970).toString(m_format);
    return text;
}
