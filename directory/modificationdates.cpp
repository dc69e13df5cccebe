#include "directory/modificationdates.h"

#include "common/filetime.h"

#include <QDate>

ModificationDates::ModificationDates(const QString &format)
    : m_format(format)
{
}

QString ModificationDates::text(qint64 msSinceEpoch)
{
    if (msSinceEpoch == noTime)
        return QString();
    const qint64 day = WallClock::dayOf(m_clock.at(msSinceEpoch));
    QString &text = m_textByDay[day];
    if (text.isNull())
        text = QDate(1970, 1, 1).addDays(day).toString(m_format);
    return text;
}
