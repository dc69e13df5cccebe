#include "directory/modificationdates.h"

#include "common/filecopy.h"
#include "common/filetime.h"
#include "directory/entryorder.h"
#include "directory/folderreader.h"
#include "tree/filesystemmodel.h"

#include "support/loading.h"
#include "support/testdir.h"
#include "support/timezone.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

namespace {
struct Time
{
    const char *name;
    qint64 seconds;
};

const Time times[] = {
    {"1901-12-13", Q_INT64_C(-2147483648)}, {"1960-06-01", Q_INT64_C(-302486400)},
    {"1969-12-31 23:59:59", Q_INT64_C(-1)}, {"1970-01-01", Q_INT64_C(0)},
    {"1970-01-02", Q_INT64_C(86400)},       {"2013-06-01", Q_INT64_C(1370080800)},
    {"2038-01-19", Q_INT64_C(2147483648)},  {"2040-06-01", Q_INT64_C(2222164800)},
    {"2106-02-07", Q_INT64_C(4294967295)},  {"2107-06-01", Q_INT64_C(4336502400)},
};

struct stat statusOf(const QString &path)
{
    struct stat info;
    if (stat(QFile::encodeName(path).constData(), &info) != 0)
        qFatal("no %s", qPrintable(path));
    return info;
}

qint64 modifiedOf(const QString &path)
{
    return statusOf(path).st_mtime;
}

qint64 accessedOf(const QString &path)
{
    return statusOf(path).st_atime;
}

/** Seconds in 32 bits, as QDateTime::toTime_t has them, which Qt 6 is without. */
quint32 secondsOf(const QDateTime &time)
{
#if QT_VERSION < 0x060000
    return time.toTime_t();
#else
    const qint64 seconds = time.isValid() ? time.toMSecsSinceEpoch() / 1000 : -1;
    return seconds < 0 || seconds > 0xffffffff ? 0xffffffff : static_cast<quint32>(seconds);
#endif
}

void setModified(const QString &path, qint64 seconds)
{
    setTimes(path, static_cast<time_t>(seconds), static_cast<time_t>(seconds));
}

// A C library of 32 bits that knows of larger times refuses them to those who don't.
bool canLookAt(const QString &path)
{
    return QFileInfo(path).exists();
}
} // namespace

class tst_ModificationDates : public QObject
{
    Q_OBJECT

private slots:
    void dateIsTheLocalOneInTheFormat();
    void noTimeHasNoDate();
    void aChangedZoneCountsFromTheNextListingOn();
    void everyTimeIsThatOfQFileInfo_data();
    void everyTimeIsThatOfQFileInfo();
    void everyTwoTimesAreInTheOrderOfQDir();
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

// One second of 1970, four years beyond 32 bits with a sign, and some beyond 32 bits without.
void tst_ModificationDates::everyTimeIsThatOfQFileInfo_data()
{
    QTest::addColumn<qint64>("seconds");
    for (const Time &time : times)
        QTest::newRow(time.name) << time.seconds;
}

void tst_ModificationDates::everyTimeIsThatOfQFileInfo()
{
    QFETCH(qint64, seconds);
    const TestDir dir;
    dir.file("a.log", 5000);
    setModified(dir.path("a.log"), seconds);
    if (!canLookAt(dir.path("a.log")))
        QSKIP("this Qt was built with times of 32 bits and can't look at such a file", SkipSingle);
    QVERIFY(QFile::link(dir.path("a.log"), dir.path("link")));
    const QDateTime expected = QFileInfo(dir.path("a.log")).lastModified();

    const QVector<FolderEntry> entries = readFolder(dir.path());
    QCOMPARE(entries.size(), 2);
    for (const FolderEntry &entry : entries) {
        QCOMPARE(entry.size, qint64(5000));
        QCOMPARE(ModificationDates("yyyy-MM-dd").text(entry.modified),
                 expected.date().toString("yyyy-MM-dd"));
    }

    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QModelIndex file = model.index(dir.path("a.log"));
    QCOMPARE(model.data(file, FileSystemModel::LastModifiedRole).toDateTime(), expected);
    QVERIFY(model.setData(file, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.checkedFilesKB(), quint64(5000));

    QVERIFY(copyFileWithTimes(dir.path("a.log"), dir.path("copy")));
    QCOMPARE(modifiedOf(dir.path("copy")), qint64(secondsOf(expected)));
    QCOMPARE(accessedOf(dir.path("copy")),
             qint64(secondsOf(QFileInfo(dir.path("a.log")).lastRead())));
}

void tst_ModificationDates::everyTwoTimesAreInTheOrderOfQDir()
{
    const QDir::Filters files = QDir::Files;
    const qint64 half = Q_INT64_C(1) << 31; // what QDir of Qt 4.8 can tell apart
    for (const Time &one : times) {
        for (const Time &other : times) {
            if (qAbs(qint64(quint32(one.seconds)) - qint64(quint32(other.seconds))) >= half)
                continue;
            const TestDir dir;
            dir.file("a");
            dir.file("b");
            setModified(dir.path("a"), one.seconds);
            setModified(dir.path("b"), other.seconds);
            if (!canLookAt(dir.path("a")) || !canLookAt(dir.path("b")))
                continue;
            for (int flags : {int(QDir::Time), int(QDir::Time | QDir::Reversed)}) {
                QVector<FolderEntry> entries = readFolder(dir.path());
                sortEntries(&entries, QDir::SortFlags(flags));
                QCOMPARE(entries.at(0).name,
                         QDir(dir.path()).entryList(files, QDir::SortFlags(flags)).first());
            }
        }
    }
}

QTEST_MAIN(tst_ModificationDates)
#include "tst_modificationdates.moc"
