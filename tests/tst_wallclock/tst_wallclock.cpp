#include "directory/wallclock.h"

#include "support/timezone.h"

#include <QDateTime>
#include <QTest>

namespace {
const qint64 endOfSummerTime = 1382835600; // 27 October 2013, 03:00 becomes 02:00 in Berlin

/** What the clock on the wall shows, read as if it hung in Greenwich. */
qint64 byQt(qint64 ms)
{
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(ms);
    return QDate(1970, 1, 1).daysTo(local.date()) * Q_INT64_C(86400000) +
           QTime(0, 0).msecsTo(local.time());
}
} // namespace

class tst_WallClock : public QObject
{
    Q_OBJECT

private slots:
    void itIsTheClockOfQt_data();
    void itIsTheClockOfQt();
    void theHourAfterSummerTimeComesTwice();
    void daysBeginAtMidnightAlsoBefore1970();
    void anotherZoneIsNoticed();
};

void tst_WallClock::itIsTheClockOfQt_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::newRow("unset") << QByteArray();
    QTest::newRow("Berlin") << QByteArray("Europe/Berlin");
    QTest::newRow("UTC") << QByteArray("UTC");
    QTest::newRow("half an hour off") << QByteArray("Australia/Lord_Howe");
    QTest::newRow("behind") << QByteArray("America/St_Johns");
    QTest::newRow("a day that was left out") << QByteArray("Pacific/Apia");
}

void tst_WallClock::itIsTheClockOfQt()
{
    QFETCH(QByteArray, zone);
    const TimeZone timeZone(zone.isEmpty() ? nullptr : zone.constData());
    WallClock clock;
    const qint64 step = Q_INT64_C(17) * (3 * 3600 + 17 * 60 + 11) * 1000 + 123;
    const qint64 year2050 = Q_INT64_C(2524608000000);
    for (qint64 ms = -year2050 / 10; ms < year2050; ms += step)
        QCOMPARE(clock.at(ms), byQt(ms));
    // Quarters of an hour through more than a year, with both its changes.
    const qint64 quarter = 900;
    for (qint64 seconds = 1293840000; seconds < 1325376000 + 864000; seconds += quarter) {
        QCOMPARE(clock.at(seconds * 1000), byQt(seconds * 1000));
        QCOMPARE(clock.at(seconds * 1000 - 1), byQt(seconds * 1000 - 1));
    }
}

void tst_WallClock::theHourAfterSummerTimeComesTwice()
{
    const TimeZone berlin("Europe/Berlin");
    WallClock clock;
    const qint64 hour = 3600;
    const qint64 first = clock.at((endOfSummerTime - hour) * 1000);
    QCOMPARE(clock.at(endOfSummerTime * 1000 - 1), first + hour * 1000 - 1);
    QCOMPARE(clock.at(endOfSummerTime * 1000), first);
}

void tst_WallClock::daysBeginAtMidnightAlsoBefore1970()
{
    const qint64 day = 86400000;
    QCOMPARE(WallClock::dayOf(0), qint64(0));
    QCOMPARE(WallClock::dayOf(day - 1), qint64(0));
    QCOMPARE(WallClock::dayOf(day), qint64(1));
    QCOMPARE(WallClock::dayOf(-1), qint64(-1));
    QCOMPARE(WallClock::dayOf(-day), qint64(-1));
    QCOMPARE(WallClock::dayOf(-day - 1), qint64(-2));
}

void tst_WallClock::anotherZoneIsNoticed()
{
    const TimeZone berlin("Europe/Berlin");
    const QByteArray here = WallClock::zone();
    QCOMPARE(WallClock::zone(), here);
    const TimeZone utc("UTC");
    QVERIFY(WallClock::zone() != here);
    QCOMPARE(WallClock().at(endOfSummerTime * 1000), endOfSummerTime * 1000);
}

QTEST_MAIN(tst_WallClock)
#include "tst_wallclock.moc"
