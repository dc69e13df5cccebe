#ifndef MODIFICATIONDATES_H
#define MODIFICATIONDATES_H

#include "directory/wallclock.h"

#include <QHash>
#include <QString>
#include <QtGlobal>

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
    WallClock m_clock;
    QHash<qint64, QString> m_textByDay;
};

#endif // MODIFICATIONDATES_H
