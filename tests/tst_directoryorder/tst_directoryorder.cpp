// What a Directory sorts by, and how often it lists when that changes.

#include "directory/directory.h"

#include "support/account.h"
#include "support/listing.h"
#include "support/signallog.h"
#include "support/testdir.h"

#include <QTest>

#include <unistd.h>

namespace {
/** What one relisting with a changed list and a breadcrumb emits, seen by a later receiver. */
QStringList relisting(const char *cause)
{
    return QStringList() << "filesChanged"
                         << "pathsChanged"
                         << "updateDirectory" << cause;
}

/** The same when the names are as before. */
QStringList quietRelisting(const char *cause)
{
    return QStringList() << "pathsChanged"
                         << "updateDirectory" << cause;
}
} // namespace

class tst_DirectoryOrder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void reorderByDateTurnsTheInitialOrderRound();
    void everyReorderSetsItsFlagAndDirection_data();
    void everyReorderSetsItsFlagAndDirection();
    void aNewSortKeyListsFourTimes();
    void theSameSortKeyOrOrderDoesNothing();
    void sortingByNameIgnoresCase();
    void sortingByKindKeepsNamesAscendingInBothDirections();
    void writingAFlagListsAgainInTheSameOrder();
    void anUnknownSortTypeSortsBySize();

private:
    TestDir *m_home;
};

void tst_DirectoryOrder::init()
{
    m_home = new TestDir("/home/ostan");
    QVERIFY(chown("/home/ostan", ostanUid, ostanGid) == 0);
}

void tst_DirectoryOrder::cleanup()
{
    delete m_home;
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_DirectoryOrder::reorderByDateTurnsTheInitialOrderRound()
{
    m_home->folder("logs");
    m_home->file("logs/b.log", 1, 1370000000);
    m_home->file("logs/a.log", 1, 1370000100);
    Directory directory;
    directory.refresh();
    SignalLog log(&directory);

    directory.reorderByDate();
    QCOMPARE(shownNames(&directory), QStringList() << "b.log"
                                                   << "a.log");
    QVERIFY(!directory.ascendingSorted());
    QCOMPARE(log.take(), relisting("ascendingSortedChanged"));

    directory.reorderByDate();
    QCOMPARE(shownNames(&directory), QStringList() << "a.log"
                                                   << "b.log");
    QVERIFY(directory.ascendingSorted());
    QCOMPARE(log.take(), relisting("ascendingSortedChanged"));
}

void tst_DirectoryOrder::everyReorderSetsItsFlagAndDirection_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("flag");
    QTest::newRow("name") << QByteArray("reorderByName") << QByteArray("nameSorted");
    QTest::newRow("size") << QByteArray("reorderBySize") << QByteArray("sizeSorted");
    QTest::newRow("type") << QByteArray("reorderByType") << QByteArray("typeSorted");
}

void tst_DirectoryOrder::everyReorderSetsItsFlagAndDirection()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, flag);
    Directory directory;
    directory.reorderByDate(); // descending: a new key starts ascending again
    QVERIFY(!directory.ascendingSorted());

    QVERIFY(QMetaObject::invokeMethod(&directory, slot.constData()));
    for (const char *each : {"nameSorted", "dateSorted", "sizeSorted", "typeSorted"})
        QVERIFY2(directory.property(each).toBool() == (flag == each), each);
    QVERIFY(directory.ascendingSorted());
    QVERIFY(QMetaObject::invokeMethod(&directory, slot.constData()));
    QVERIFY(!directory.ascendingSorted());
    QVERIFY(QMetaObject::invokeMethod(&directory, slot.constData()));
    QVERIFY(directory.ascendingSorted());
}

void tst_DirectoryOrder::aNewSortKeyListsFourTimes()
{
    m_home->folder("logs");
    m_home->file("logs/b.log", 1, 1370000100);
    m_home->file("logs/a.log", 1, 1370000000);
    Directory directory;
    directory.refresh();
    SignalLog log(&directory);

    directory.setSortType(Directory::name);

    QCOMPARE(log.names(), relisting("nameSortedChanged") + quietRelisting("dateSortedChanged") +
                              quietRelisting("sizeSortedChanged") +
                              quietRelisting("typeSortedChanged"));
    QCOMPARE(shownNames(&directory), QStringList() << "a.log"
                                                   << "b.log");
}

void tst_DirectoryOrder::theSameSortKeyOrOrderDoesNothing()
{
    Directory directory;
    SignalLog log(&directory);
    directory.setSortType(Directory::date);
    directory.setSortOrder(Directory::ascending);
    QCOMPARE(log.names(), QStringList());
}

void tst_DirectoryOrder::sortingByNameIgnoresCase()
{
    m_home->folder("logs");
    for (const char *name : {"B.log", "a.log", "c.log"})
        m_home->file(QString("logs/") + name);
    Directory directory;
    directory.reorderByName();
    QCOMPARE(shownNames(&directory), QStringList() << "a.log"
                                                   << "B.log"
                                                   << "c.log");
    directory.reorderByName();
    QCOMPARE(shownNames(&directory), QStringList() << "c.log"
                                                   << "B.log"
                                                   << "a.log");
}

void tst_DirectoryOrder::sortingByKindKeepsNamesAscendingInBothDirections()
{
    m_home->folder("logs/y");
    m_home->folder("logs/X");
    m_home->file("logs/b");
    m_home->file("logs/C");
    Directory directory;
    directory.reorderByType();
    QCOMPARE(shownNames(&directory), QStringList() << "X"
                                                   << "y"
                                                   << "C"
                                                   << "b");
    directory.reorderByType();
    QCOMPARE(shownNames(&directory), QStringList() << "C"
                                                   << "b"
                                                   << "X"
                                                   << "y");
}

void tst_DirectoryOrder::writingAFlagListsAgainInTheSameOrder()
{
    m_home->folder("logs");
    m_home->file("logs/b.log", 1, 1370000100);
    m_home->file("logs/a.log", 1, 1370000000);
    Directory directory;
    directory.refresh();
    SignalLog log(&directory);

    for (const char *flag :
         {"nameSorted", "dateSorted", "sizeSorted", "typeSorted", "ascendingSorted"}) {
        const bool state = directory.property(flag).toBool();
        QVERIFY2(directory.setProperty(flag, state), flag); // unchanged, and emitted all the same
        QCOMPARE(log.take(), quietRelisting(QByteArray(flag).append("Changed").constData()));
        QVERIFY2(directory.setProperty(flag, !state), flag);
        QVERIFY2(directory.property(flag).toBool() == !state, flag);
        QCOMPARE(log.take(), quietRelisting(QByteArray(flag).append("Changed").constData()));
    }
    QCOMPARE(shownNames(&directory), QStringList() << "b.log"
                                                   << "a.log");
}

void tst_DirectoryOrder::anUnknownSortTypeSortsBySize()
{
    m_home->folder("logs");
    m_home->file("logs/small", 1, 1370000100);
    m_home->file("logs/large", 2, 1370000000);
    Directory directory;
    directory.setSortType(static_cast<Directory::SortType>(77));
    QCOMPARE(shownNames(&directory), QStringList() << "large"
                                                   << "small");
}

QTEST_MAIN(tst_DirectoryOrder)
#include "tst_directoryorder.moc"
