#include "directory/folderlisting.h"

#include "support/testdir.h"
#include "support/timezone.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTest>

namespace {
const time_t noon = 1370080800;
const qint64 endOfSummerTime = 1382835600; // 27 October 2013, 03:00 becomes 02:00 in Berlin

QStringList namesIn(const FolderListing &listing)
{
    QStringList names;
    for (const FolderEntry &entry : listing.entries())
        names.append(entry.name);
    return names;
}

QStringList list(const char *names)
{
    return QString(names).split(' ');
}
} // namespace

class tst_FolderListing : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsListedBeforeAReading();
    void anUnchangedFolderStaysAsItIs();
    void anotherOrderIsTaken();
    void whatChangedInTheFolderCounts();
    void aFileInPlaceOfAFolderCounts();
    void anotherFolderIsListed();
    void aChangedZoneOrdersTheHourThatComesTwice();
};

void tst_FolderListing::nothingIsListedBeforeAReading()
{
    FolderListing listing;
    QCOMPARE(listing.entries().size(), 0);
    listing.read("/nowhere", QDir::Name);
    QCOMPARE(listing.entries().size(), 0);
}

void tst_FolderListing::anUnchangedFolderStaysAsItIs()
{
    const TestDir dir;
    dir.file("b", 10, noon);
    dir.file("a", 20, noon + 1);
    FolderListing listing;
    for (int i = 0; i < 3; ++i) {
        listing.read(dir.path(), QDir::Time);
        QCOMPARE(namesIn(listing), list("a b"));
        QCOMPARE(listing.entries().first().size, qint64(20));
    }
}

void tst_FolderListing::anotherOrderIsTaken()
{
    const TestDir dir;
    dir.file("a", 10, noon);
    dir.file("c", 20, noon + 2);
    dir.file("b", 30, noon + 1);
    FolderListing listing;
    listing.read(dir.path(), QDir::Name);
    QCOMPARE(namesIn(listing), list("a b c"));
    listing.read(dir.path(), QDir::Name | QDir::Reversed);
    QCOMPARE(namesIn(listing), list("c b a"));
    listing.read(dir.path(), QDir::Time);
    QCOMPARE(namesIn(listing), list("c b a"));
    listing.read(dir.path(), QDir::Size);
    QCOMPARE(namesIn(listing), list("b c a"));
}

void tst_FolderListing::whatChangedInTheFolderCounts()
{
    const TestDir dir;
    dir.file("a", 10, noon);
    dir.file("b", 20, noon + 1);
    FolderListing bySize;
    bySize.read(dir.path(), QDir::Size);
    QCOMPARE(namesIn(bySize), list("b a"));
    FolderListing byTime;
    byTime.read(dir.path(), QDir::Time);
    QCOMPARE(namesIn(byTime), list("b a"));

    dir.file("a", 30, noon);
    bySize.read(dir.path(), QDir::Size);
    QCOMPARE(namesIn(bySize), list("a b"));

    byTime.read(dir.path(), QDir::Time);
    QCOMPARE(namesIn(byTime), list("b a"));
    setTimes(dir.path("a"), noon, noon + 2);
    byTime.read(dir.path(), QDir::Time);
    QCOMPARE(namesIn(byTime), list("a b"));

    QVERIFY(QFile::rename(dir.path("a"), dir.path("c")));
    byTime.read(dir.path(), QDir::Time);
    QCOMPARE(namesIn(byTime), list("c b"));

    QVERIFY(QFile::remove(dir.path("b")));
    byTime.read(dir.path(), QDir::Time);
    QCOMPARE(namesIn(byTime), list("c"));
}

void tst_FolderListing::aFileInPlaceOfAFolderCounts()
{
    const TestDir dir;
    dir.folder("a");
    setTimes(dir.path("a"), noon, noon);
    const qint64 size = QFileInfo(dir.path("a")).size();
    FolderListing listing;
    listing.read(dir.path(), QDir::Name);
    QVERIFY(listing.entries().first().isDir);
    QVERIFY(QDir().rmdir(dir.path("a")));
    dir.file("a", size, noon);
    listing.read(dir.path(), QDir::Name);
    QVERIFY(!listing.entries().first().isDir);
}

void tst_FolderListing::anotherFolderIsListed()
{
    const TestDir first;
    first.file("a");
    const TestDir second;
    second.file("b");
    FolderListing listing;
    listing.read(first.path(), QDir::Name);
    listing.read(second.path(), QDir::Name);
    QCOMPARE(namesIn(listing), list("b"));
    listing.read("/nowhere", QDir::Name);
    QCOMPARE(namesIn(listing), QStringList());
}

// As QDir of the same Qt has it: Qt 5 goes by the clock on the wall, Qt 4.8 does not.
void tst_FolderListing::aChangedZoneOrdersTheHourThatComesTwice()
{
    const TestDir dir;
    dir.file("before", 1, endOfSummerTime - 600);
    dir.file("after", 1, endOfSummerTime + 300);
    const QDir::Filters files = QDir::Files;
    FolderListing listing;
    for (const char *zone : {"UTC", "Europe/Berlin", "UTC"}) {
        const TimeZone timeZone(zone);
        listing.read(dir.path(), QDir::Time);
        QCOMPARE(namesIn(listing), QDir(dir.path()).entryList(files, QDir::Time));
    }
}

QTEST_MAIN(tst_FolderListing)
#include "tst_folderlisting.moc"
