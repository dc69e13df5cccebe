#include "directory/modificationdates.h"

#include "directory/folderreader.h"

#include <QDateTime>
#include <QTest>

#include <cstdlib>
#include <ctime>

namespace {
class TimeZone
{
public:
    explicit TimeZone(const char *zone)
        : m_previous(qgetenv("TZ"))
    {
        if (zone)
            setenv("TZ", zone, 1);
        else
            unsetenv("TZ");
        tzset();
    }

    ~TimeZone()
    {
        setenv("TZ", m_previous.constData(), 1);
        tzset();
    }

private:
    const QByteArray m_previous;
};

QDateTime localByQt(qint64 seconds)
{
    return QDateTime::fromMSecsSinceEpoch(seconds * 1000);
}
} // namespace

class tst_ModificationDates : public QObject
{
    Q_OBJECT

private slots:
    void dateIsTheLocalOneInTheFormat();
    void noTimeHasNoDate();
    void aChangedZoneCountsFromTheNextListingOn();
    void wallClockIsThatOfQt_data();
    void wallClockIsThatOfQt();
};

void tst_ModificationDates::dateIsTheLocalOneInTheFormat()
{
    const TimeZone berlin("Europe/Berlin");
    ModificationDates dates("yyyy-MM-dd");
    QCOMPARE(dates.text(Q_INT64_C(1370037599999)), QString("2013-05-31"));
    QCOMPARE(dates.text(Q_INT64_C(1370037600000)), QString("2013-06-01"));
    QCOMPARE(dates.text(Q_INT64_C(1370037600001)), QString("2013-06-01"));
    QCOMPARE(dates.text(Q_INT64_C(0)), QString("1970-01-01"));
    QCOMPARE(dates.text(Q_INT64_C(-86400000)), QString("1969-12-31"));
}

void tst_ModificationDates::noTimeHasNoDate()
{
    ModificationDates dates("yyyy-MM-dd");
    QCOMPARE(dates.text(noTime), QString());
}

void tst_ModificationDates::aChangedZoneCountsFromTheNextListingOn()
{
    const qint64 noonInBerlin = Q_INT64_C(1370080800000);
    QCOMPARE(ModificationDates("dd").text(noonInBerlin), QString("01"));
    const TimeZone farEast("Asia/Tokyo");
    QCOMPARE(ModificationDates("dd").text(noonInBerlin + Q_INT64_C(8) * 3600 * 1000),
             QString("02"));
}

void tst_ModificationDates::wallClockIsThatOfQt_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("unset") << QByteArray();
    QTest::newRow("Berlin") << QByteArray("Europe/Berlin");
    QTest::newRow("UTC") << QByteArray("UTC");
    QTest::newRow("half an hour off") << QByteArray("Australia/Lord_Howe");
    QTest::newRow("behind") << QByteArray("America/St_Johns");
}

void tst_ModificationDates::wallClockIsThatOfQt()
{
    QFETCH(QByteArray, zone);
    const TimeZone timeZone(zone.isEmpty() ? nullptr : zone.constData());
    const qint64 step = 3 * 3600 + 17 * 60 + 11;
    const qint64 year2050 = Q_INT64_C(2524608000);
    for (qint64 seconds = -year2050 / 10; seconds < year2050; seconds += step * 17) {
        QDateTime asUtc = localByQt(seconds);
        const QString expected = asUtc.toString("yyyy-MM-dd hh:mm:ss");
        asUtc =
            QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC).addMSecs(wallClock(seconds * 1000));
        QCOMPARE(asUtc.toString("yyyy-MM-dd hh:mm:ss"), expected);
    }
}

QTEST_MAIN(tst_ModificationDates)
#include "tst_modificationdates.moc"
