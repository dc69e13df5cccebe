#include "directory/entryorder.h"

#include "support/testdir.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTest>

#include <cstdlib>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>

namespace {
const QDir::Filters listed = QDir::Dirs | QDir::Files | QDir::Drives | QDir::NoDotAndDotDot;

void setModified(const QString &path, time_t seconds, long nanoseconds)
{
    timespec times[2];
    times[0].tv_sec = times[1].tv_sec = seconds;
    times[0].tv_nsec = times[1].tv_nsec = nanoseconds;
    utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0);
}

// Few names, sizes and times for many entries, so that most comparisons are ties.
void fillWithTies(const TestDir &dir, unsigned seed, time_t start)
{
    srand(seed);
    const QString letters = QString::fromUtf8("aAbB\303\244\303\204zZ");
    for (int i = 0; i < 300; ++i) {
        QString name;
        for (int length = 1 + rand() % 4; length > 0; --length)
            name += letters.at(rand() % letters.size());
        if (QFile::exists(dir.path(name)))
            continue;
        if (rand() % 5 == 0)
            dir.folder(name);
        else
            dir.file(name, qint64(rand() % 4));
        setModified(dir.path(name), start + rand() % 3 * 1800L, rand() % 3 * 400000000L);
    }
}

QStringList sortedNames(const QString &path, QDir::SortFlags flags)
{
    QVector<FolderEntry> entries = readFolder(path);
    sortEntries(&entries, flags);
    QStringList names;
    for (const FolderEntry &entry : entries)
        names.append(entry.name);
    return names;
}
} // namespace

class tst_EntryOrder : public QObject
{
    Q_OBJECT

private slots:
    void nothingAndOneEntryStayAsTheyAre();
    void tellsWhereEachEntryWent();
    void newestAndLargestComeFirst();
    void everyOrderIsThatOfQDir_data();
    void everyOrderIsThatOfQDir();
    void longNamesOfAnyLettersAreInTheOrderOfQDir();
    void timesAroundTheEndOfSummerTimeAreInTheOrderOfQDir();
};

void tst_EntryOrder::nothingAndOneEntryStayAsTheyAre()
{
    QVector<FolderEntry> entries;
    QCOMPARE(sortEntries(&entries, QDir::Time), QVector<int>());
    QCOMPARE(entries.size(), 0);

    const FolderEntry entry = {"only", 5, 1000, false};
    entries.append(entry);
    QCOMPARE(sortEntries(&entries, QDir::Size | QDir::Reversed), QVector<int>() << 0);
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().name, QString("only"));
}

void tst_EntryOrder::tellsWhereEachEntryWent()
{
    const TestDir dir;
    fillWithTies(dir, 1, 1370000000);
    const QVector<FolderEntry> unsorted = readFolder(dir.path());
    QVector<FolderEntry> entries = unsorted;
    const QVector<int> places = sortEntries(&entries, QDir::Name);
    QCOMPARE(places.size(), unsorted.size());
    for (int i = 0; i < entries.size(); ++i)
        QCOMPARE(unsorted.at(i).name, entries.at(places.at(i)).name);
}

void tst_EntryOrder::newestAndLargestComeFirst()
{
    const TestDir dir;
    dir.file("old and large", 30, 1370000000);
    dir.file("new and middling", 20, 1370000002);
    dir.file("middling and small", 10, 1370000001);

    QCOMPARE(sortedNames(dir.path(), QDir::Time), QStringList() << "new and middling"
                                                                << "middling and small"
                                                                << "old and large");
    QCOMPARE(sortedNames(dir.path(), QDir::Size), QStringList() << "old and large"
                                                                << "new and middling"
                                                                << "middling and small");
}

void tst_EntryOrder::everyOrderIsThatOfQDir_data()
{
    QTest::addColumn<int>("flags");
    QTest::newRow("name") << int(QDir::Name | QDir::IgnoreCase);
    QTest::newRow("name, reversed") << int(QDir::Name | QDir::IgnoreCase | QDir::Reversed);
    QTest::newRow("time") << int(QDir::Time);
    QTest::newRow("time, reversed") << int(QDir::Time | QDir::Reversed);
    QTest::newRow("size") << int(QDir::Size);
    QTest::newRow("size, reversed") << int(QDir::Size | QDir::Reversed);
    QTest::newRow("folders first") << int(QDir::Name | QDir::DirsFirst);
    QTest::newRow("folders last") << int(QDir::Name | QDir::DirsLast);
}

void tst_EntryOrder::everyOrderIsThatOfQDir()
{
    QFETCH(int, flags);
    const QDir::SortFlags order = QDir::SortFlags(flags);
    const time_t beginningOf1970 = 0; // is no time to Qt 5
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const TestDir dir;
        fillWithTies(dir, seed, seed % 2 ? 1370000000 : beginningOf1970);
        const QStringList expected = QDir(dir.path()).entryList(listed, order);
        QVERIFY(expected.size() > 100);
        QCOMPARE(sortedNames(dir.path(), order), expected);
    }
}

// Long ones that start alike, with letters on both sides of what fits into a byte.
void tst_EntryOrder::longNamesOfAnyLettersAreInTheOrderOfQDir()
{
    const QString letters = QString::fromUtf8("az\303\276\303\277\304\200\304\201\320\266");
    srand(1);
    for (int folder = 0; folder < 20; ++folder) {
        const TestDir dir;
        for (int i = 0; i < 300; ++i) {
            QString name(rand() % 20, QLatin1Char('a'));
            for (int length = 1 + rand() % 4; length > 0; --length)
                name += letters.at(rand() % letters.size());
            dir.file(name);
        }
        QCOMPARE(sortedNames(dir.path(), QDir::Name),
                 QDir(dir.path()).entryList(listed, QDir::Name));
        const QDir::SortFlags reversed = QDir::Name | QDir::IgnoreCase | QDir::Reversed;
        QCOMPARE(sortedNames(dir.path(), reversed), QDir(dir.path()).entryList(listed, reversed));
    }
}

void tst_EntryOrder::timesAroundTheEndOfSummerTimeAreInTheOrderOfQDir()
{
    const time_t endOfSummerTime = 1382835600; // 27 October 2013, 03:00 becomes 02:00 in Berlin
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const TestDir dir;
        fillWithTies(dir, seed, endOfSummerTime - 1800);
        QCOMPARE(sortedNames(dir.path(), QDir::Time),
                 QDir(dir.path()).entryList(listed, QDir::Time));
    }
}

QTEST_MAIN(tst_EntryOrder)
#include "tst_entryorder.moc"
