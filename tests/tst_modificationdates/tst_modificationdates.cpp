#include "directory/modificationdates.h"

#include "directory/folderreader.h"

#include "support/timezone.h"

#include <QTest>

class tst_ModificationDates : public QObject
{
    Q_OBJECT

private slots:
    void dateIsTheLocalOneInTheFormat();
    void noTimeHasNoDate();
    void aChangedZoneCountsFromTheNextListingOn();
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

QTEST_MAIN(tst_ModificationDates)
#include "tst_modificationdates.moc"
