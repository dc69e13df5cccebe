#ifndef MODIFICATIONDATES_H
#define MODIFICATIONDATES_H

#include <QHash>
#include <QString>
#include <QtGlobal>

/**
 * Local time as the clock on the wall shows it, in milliseconds since 1970 on that clock.
 *
 * The same as QDateTime's conversion, which looks at the time zone afresh for every single date:
 * here that is done once, by the first call after refreshTimeZone().
 */
qint64 wallClock(qint64 msSinceEpoch);

/** Takes notice of a changed time zone. To be called once before a run of conversions. */
void refreshTimeZone();

/** Writes modification times as local dates, each day once. For the length of one listing. */
class ModificationDates
{
public:
    /** Dates in @p format, in the terms of QDate::toString(). */
    explicit ModificationDates(const QString &format);

    /** Local date of @p msSinceEpoch; an empty text for noTime. */
    QString text(qint64 msSinceEpoch);

private:
    const QString m_format;
    QHash<qint64, QString> m_textByDay;
};

#endif // MODIFICATIONDATES_H
