#include "directory/directory.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/signallog.h"
#include "support/surface.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QMetaEnum>
#include <QPointer>
#include <QTest>

#include <stdexcept>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
const char logs[] = "/home/ostan/logs";
const int afterTheMarksMs = 400;

QStringList shownNames(Directory *directory)
{
    QDeclarativeListProperty<File> files = directory->files();
    QStringList names;
    for (int i = 0; i < files.count(&files); ++i)
        names.append(files.at(&files, i)->name());
    return names;
}

File *shownFile(Directory *directory, int index)
{
    QDeclarativeListProperty<File> files = directory->files();
    return files.at(&files, index);
}

/** The breadcrumb as "name=fullpath". */
QStringList breadcrumb(Directory *directory)
{
    QDeclarativeListProperty<Path> paths = directory->paths();
    QStringList steps;
    for (int i = 0; i < paths.count(&paths); ++i) {
        const Path *path = paths.at(&paths, i);
        steps.append(path->name() + '=' + path->fullpath());
    }
    return steps;
}

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

class tst_Directory : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void propertiesSignalsAndSlotsStandInTheirOrder();
    void enumsHaveTheirNumbers();

    void aNewDirectoryMakesItsRootAndListsNothing();
    void aNewDirectoryThrowsWithoutTheAccount();
    void refreshListsTheLogsNewestFirst();
    void anEntryCarriesNameSizeDateAndKind();
    void datesAreInTheShortFormatOfTheDefaultLocale();
    void oddNamesAreListedAsTheyAre();
    void hiddenEntriesAreNotListed();

    void sameNamesKeepTheOldItemsAndEmitNothing();
    void otherNamesReplaceAllItemsAndMarkThemLater();
    void anEmptyFolderComparedWithAnEmptyListIsEqual();
    void aFolderThatIsGoneLeavesEverythingAsItIs();
    void anUnreadableFolderShowsThePreviousEntries();
    void aFolderThatVanishesComesBackEmpty();

    void reorderByDateTurnsTheInitialOrderRound();
    void everyReorderSetsItsFlagAndDirection_data();
    void everyReorderSetsItsFlagAndDirection();
    void aNewSortKeyListsFourTimes();
    void theSameSortKeyOrOrderDoesNothing();
    void sortingByNameIgnoresCase();
    void sortingByKindKeepsNamesAscendingInBothDirections();
    void writingAFlagListsAgainInTheSameOrder();
    void anUnknownSortTypeSortsBySize();

    void setRootMakesAMissingFolderAsTheAccount();
    void theSameRootDoesNothing();
    void aRootThatCannotBeMadeIsNotReported();
    void aRootWithoutTheAccountThrowsBeforeAnySignal();
    void setCurrentPathIgnoresEmptyAndEqual();
    void aPathOutsideTheRootIsListed();
    void selectPathWantsTheRootAnywhereInThePath();

    void theBreadcrumbStartsWithTheRoot();
    void theTopFolderHasNoBreadcrumb();
    void aRootBelowTheTopGivesPathsWithTwoSeparators();
    void thePathAboveTheRootGivesWhatQtCallsIt();
    void oldBreadcrumbItemsLiveOn();

    void getIndexFindsTheExactName();
    void isDirCountsTheFolderReadAndKnowsItsEnds();
    void aThrowLeavesTheMutexFree();

    void theScriptFilterHidesOtherFilesButNoFolders();
    void theScriptFilterStaysForOtherFolders();
    void filtersCanBeCountedOnly();
    void dataFoldersAreWhereTheyBelong();
    void theSoilFolderIsMade();
    void theSameViewTwiceDoesNothing();

    void listsTakeNothingFromOutside();
    void destructionLeavesTheItems();
    void tenThousandEntriesAreListed();

private:
    TestDir *m_home;
};

// Each test starts with the account's home as a new instrument has it.
void tst_Directory::init()
{
    m_home = new TestDir("/home/ostan");
    QVERIFY(chown("/home/ostan", ostanUid, ostanGid) == 0);
}

void tst_Directory::cleanup()
{
    delete m_home;
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_Directory::propertiesSignalsAndSlotsStandInTheirOrder()
{
    QCOMPARE(surface(Directory::staticMetaObject),
             QStringList() << "int filesCount r constant"
                           << "QDeclarativeListProperty<File> files r filesChanged"
                           << "int pathsCount r pathsChanged"
                           << "QDeclarativeListProperty<Path> paths r pathsChanged"
                           << "QString root rw rootChanged"
                           << "QString currentPath rw currentPathChanged"
                           << "QString selectedFiles r selectedFilesChanged"
                           << "qint64 selectedFilesKB rw selectedFilesKBChanged"
                           << "bool nameSorted rw nameSortedChanged"
                           << "bool dateSorted rw dateSortedChanged"
                           << "bool sizeSorted rw sizeSortedChanged"
                           << "bool typeSorted rw typeSortedChanged"
                           << "bool ascendingSorted rw ascendingSortedChanged"
                           << "QDeclarativeListProperty<QString> filters r filtersChanged"
                           << "signal void updateDirectory()"
                           << "signal void filesChanged()"
                           << "signal void pathsChanged()"
                           << "signal void filtersChanged()"
                           << "signal void filenameChanged()"
                           << "signal void rootChanged()"
                           << "signal void currentPathChanged()"
                           << "signal void fileContentChanged()"
                           << "signal void nameSortedChanged()"
                           << "signal void dateSortedChanged()"
                           << "signal void sizeSortedChanged()"
                           << "signal void typeSortedChanged()"
                           << "signal void ascendingSortedChanged()"
                           << "signal void selectedFilesChanged()"
                           << "signal void selectedFilesKBChanged()"
                           << "slot void refresh()"
                           << "slot void setRoot(QString)"
                           << "slot void setCurrentPath(QString)"
                           << "slot void reorderByName()"
                           << "slot void reorderByDate()"
                           << "slot void reorderBySize()"
                           << "slot void reorderByType()"
                           << "slot void setNameSorted(bool)"
                           << "slot void setDateSorted(bool)"
                           << "slot void setSizeSorted(bool)"
                           << "slot void setTypeSorted(bool)"
                           << "slot void setAscendingSorted(bool)"
                           << "slot void selectFile(int)"
                           << "slot void selectPath(QString)"
                           << "slot bool isDir(int)"
                           << "slot void setSortType(Directory::SortType)"
                           << "slot void setSortOrder(Directory::SortOrder)"
                           << "slot int getIndex(QString)"
                           << "slot void setIsSelectedAt(int,bool)"
                           << "slot QString copySelectedTo(QString)"
                           << "slot void clearSelectedFiles()"
                           << "slot void updateSelectedFiles()"
                           << "slot void updateSelectedFilesKB()"
                           << "slot void clearAll()"
                           << "slot void selectAll()"
                           << "slot bool exists(QString)"
                           << "slot bool newFile(QString)"
                           << "slot bool newDirectory(QString)"
                           << "slot bool deleteFile(int)"
                           << "slot bool renameFile(int,QString)"
                           << "slot void viewScriptDirectory()"
                           << "slot void viewLogDirectory()"
                           << "slot void viewGraphDefinitionDirectory()"
                           << "slot void viewConfigsDirectory()"
                           << "slot void viewSoilFluxDirectory()"
                           << "slot QString getSoilFluxDirectory()");
}

void tst_Directory::enumsHaveTheirNumbers()
{
    const QMetaObject &type = Directory::staticMetaObject;
    const QMetaEnum keys = type.enumerator(type.indexOfEnumerator("SortType"));
    QCOMPARE(keys.keyToValue("name"), 0);
    QCOMPARE(keys.keyToValue("date"), 1);
    QCOMPARE(keys.keyToValue("size"), 2);
    QCOMPARE(keys.keyToValue("kind"), 3);
    const QMetaEnum orders = type.enumerator(type.indexOfEnumerator("SortOrder"));
    QCOMPARE(orders.keyToValue("ascending"), 4);
    QCOMPARE(orders.keyToValue("descending"), 5);
}

void tst_Directory::aNewDirectoryMakesItsRootAndListsNothing()
{
    Directory directory;

    QCOMPARE(directory.root(), QString(logs));
    QCOMPARE(directory.currentPath(), QString(logs));
    QVERIFY(QDir(logs).exists());
    QCOMPARE(ownerOf(logs), ostanUid);
    QCOMPARE(directory.filesCount(), 0);
    QCOMPARE(directory.pathsCount(), 0);
    QCOMPARE(directory.selectedFiles(), QString());
    QCOMPARE(directory.selectedFilesKB(), qint64(0));
    QVERIFY(!directory.nameSorted());
    QVERIFY(directory.dateSorted());
    QVERIFY(!directory.sizeSorted());
    QVERIFY(!directory.typeSorted());
    QVERIFY(directory.ascendingSorted());

    SignalLog log(&directory);
    letTimePass(afterTheMarksMs);
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(directory.filesCount(), 0);
}

void tst_Directory::aNewDirectoryThrowsWithoutTheAccount()
{
    const AccountDatabase nobody("root:x:0:0::/root:/bin/sh\n");
    QString message;
    try {
        Directory directory;
    } catch (const std::runtime_error &error) {
        message = error.what();
    }
    QCOMPARE(message, QString("Unable to drop priviledges: Username 'ostan' not found"));
    QVERIFY(!QFile::exists(logs));
}

void tst_Directory::refreshListsTheLogsNewestFirst()
{
    m_home->folder("logs");
    m_home->file("logs/old.log", 1, 1370000000);
    m_home->file("logs/new.log", 1, 1370000200);
    m_home->file("logs/middling.log", 1, 1370000100);
    Directory directory;
    SignalLog log(&directory);

    directory.refresh();

    QCOMPARE(log.names(), QStringList() << "filesChanged"
                                        << "pathsChanged");
    QCOMPARE(shownNames(&directory), QStringList() << "new.log"
                                                   << "middling.log"
                                                   << "old.log");
    QCOMPARE(directory.filesCount(), 3);
}

void tst_Directory::anEntryCarriesNameSizeDateAndKind()
{
    m_home->folder("logs/soil");
    m_home->file("logs/a.log", 3000, 1370037599); // 31 May 2013, 23:59:59 in Berlin
    Directory directory;
    directory.setSortType(Directory::kind);

    const File *folder = shownFile(&directory, 0);
    QCOMPARE(folder->name(), QString("soil"));
    QVERIFY(folder->isDir());
    const File *file = shownFile(&directory, 1);
    QCOMPARE(file->name(), QString("a.log"));
    QCOMPARE(file->sizeBytes(), qint64(3000));
    QCOMPARE(file->size(), QString("3 KB"));
    QCOMPARE(file->date(), QDate(2013, 5, 31).toString(QLocale().dateFormat(QLocale::ShortFormat)));
    QVERIFY(!file->isDir());
    QVERIFY(!file->isSelected());
    QVERIFY(!file->parent());
}

void tst_Directory::datesAreInTheShortFormatOfTheDefaultLocale()
{
    m_home->folder("logs");
    m_home->file("logs/a.log", 1, 1370037599);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    Directory directory;
    directory.refresh();
    QLocale::setDefault(QLocale::c());
    QCOMPARE(shownFile(&directory, 0)->date(), QString("31.05.13"));
}

void tst_Directory::oddNamesAreListedAsTheyAre()
{
    const QStringList names = QStringList() << "\"quoted\" 'name'"
                                            << "new\nline"
                                            << "two  blanks" << QString::fromUtf8("w\303\244rme")
                                            << QString(255, 'x');
    m_home->folder("logs");
    for (const QString &name : names)
        m_home->file("logs/" + name);
    Directory directory;
    directory.setSortType(Directory::name);
    QStringList expected = QDir(logs).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    QCOMPARE(expected.size(), names.size());
    QCOMPARE(shownNames(&directory), expected);
}

void tst_Directory::hiddenEntriesAreNotListed()
{
    m_home->folder("logs/.cache");
    m_home->file("logs/.hidden");
    Directory directory;
    directory.refresh();
    QCOMPARE(directory.filesCount(), 0);
}

void tst_Directory::sameNamesKeepTheOldItemsAndEmitNothing()
{
    m_home->folder("logs");
    m_home->file("logs/a.log", 1, 1370000000);
    m_home->file("logs/b.log", 1, 1360000000);
    Directory directory;
    directory.refresh();
    File *const before = shownFile(&directory, 0);
    SignalLog log(&directory);

    m_home->file("logs/a.log", 5000, 1371000000);
    directory.refresh();

    QCOMPARE(log.names(), QStringList("pathsChanged"));
    QCOMPARE(shownFile(&directory, 0), before);
    QCOMPARE(before->size(), QString("1 bytes"));
}

void tst_Directory::otherNamesReplaceAllItemsAndMarkThemLater()
{
    m_home->folder("logs");
    m_home->file("logs/a.log", 1, 1370000000);
    Directory directory;
    directory.refresh();
    directory.setIsSelectedAt(0, true);
    const QPointer<File> before = shownFile(&directory, 0);
    SignalLog log(&directory);

    m_home->file("logs/b.log", 1, 1360000000);
    directory.refresh();

    QVERIFY(!before);
    QCOMPARE(log.names(), QStringList() << "filesChanged"
                                        << "pathsChanged");
    QCOMPARE(shownNames(&directory), QStringList() << "a.log"
                                                   << "b.log");
    QVERIFY(!shownFile(&directory, 0)->isSelected());
    letTimePass(100);
    QVERIFY(!shownFile(&directory, 0)->isSelected());
    QVERIFY(waitUntil([&] { return shownFile(&directory, 0)->isSelected(); }));
    QVERIFY(!shownFile(&directory, 1)->isSelected());
}

void tst_Directory::anEmptyFolderComparedWithAnEmptyListIsEqual()
{
    Directory directory;
    SignalLog log(&directory);
    directory.refresh();
    QCOMPARE(log.names(), QStringList("pathsChanged"));
}

void tst_Directory::aFolderThatIsGoneLeavesEverythingAsItIs()
{
    m_home->folder("logs/soil");
    m_home->file("logs/soil/a.csv");
    Directory directory;
    directory.setCurrentPath("/home/ostan/logs/soil");
    removeTree("/home/ostan/logs/soil");
    SignalLog log(&directory);
    DebugLog lines;

    directory.refresh();

    QCOMPARE(lines.lines(), QStringList("ERROR: Directory::refreshFileList failed to cd to  " +
                                        quoted("/home/ostan/logs/soil")));
    QCOMPARE(shownNames(&directory), QStringList("a.csv"));
    QCOMPARE(log.names(), QStringList("pathsChanged"));
}

// Qt asks with the real user id whether a folder is readable, so that the whole process has to be
// another user's: a child, whose exit status tells what it saw.
void tst_Directory::anUnreadableFolderShowsThePreviousEntries()
{
    m_home->folder("logs/secret");
    m_home->file("logs/secret/b.log");
    m_home->file("logs/a.log");
    QVERIFY(chmod("/home/ostan/logs/secret", 0711) == 0);
    QVERIFY(chown("/home/ostan/logs/secret", 0, 0) == 0);

    const pid_t child = fork();
    if (child == 0) {
        if (setresuid(ostanUid, ostanUid, ostanUid) != 0)
            _exit(1);
        Directory directory;
        directory.refresh();
        const QStringList before = shownNames(&directory);
        SignalLog log(&directory);
        DebugLog lines;
        directory.setCurrentPath("/home/ostan/logs/secret");
        if (lines.lines() !=
            QStringList("WARNING:  " + quoted(QDir::currentPath()) + "  not readable!"))
            _exit(2);
        if (shownNames(&directory) != before || before.size() != 2)
            _exit(3);
        if (log.names() != quietRelisting("currentPathChanged"))
            _exit(4);
        _exit(0);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
}

void tst_Directory::aFolderThatVanishesComesBackEmpty()
{
    m_home->folder("logs/soil");
    m_home->file("logs/soil/a.csv");
    Directory directory;
    directory.setCurrentPath("/home/ostan/logs/soil");
    removeTree("/home/ostan/logs/soil");
    directory.refresh();
    m_home->folder("logs/soil");
    SignalLog log(&directory);
    directory.refresh();
    QCOMPARE(directory.filesCount(), 0);
    QCOMPARE(log.names(), QStringList() << "filesChanged"
                                        << "pathsChanged");
}

void tst_Directory::reorderByDateTurnsTheInitialOrderRound()
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

void tst_Directory::everyReorderSetsItsFlagAndDirection_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("flag");
    QTest::newRow("name") << QByteArray("reorderByName") << QByteArray("nameSorted");
    QTest::newRow("size") << QByteArray("reorderBySize") << QByteArray("sizeSorted");
    QTest::newRow("type") << QByteArray("reorderByType") << QByteArray("typeSorted");
}

void tst_Directory::everyReorderSetsItsFlagAndDirection()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, flag);
    Directory directory;
    directory.reorderByDate(); // descending: a new key starts ascending again
    QVERIFY(!directory.ascendingSorted());

    QVERIFY(QMetaObject::invokeMethod(&directory, slot.constData()));
    for (const char *each : {"nameSorted", "dateSorted", "sizeSorted", "typeSorted"})
        QCOMPARE(directory.property(each).toBool(), flag == each);
    QVERIFY(directory.ascendingSorted());
    QVERIFY(QMetaObject::invokeMethod(&directory, slot.constData()));
    QVERIFY(!directory.ascendingSorted());
    QVERIFY(QMetaObject::invokeMethod(&directory, slot.constData()));
    QVERIFY(directory.ascendingSorted());
}

void tst_Directory::aNewSortKeyListsFourTimes()
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

void tst_Directory::theSameSortKeyOrOrderDoesNothing()
{
    Directory directory;
    SignalLog log(&directory);
    directory.setSortType(Directory::date);
    directory.setSortOrder(Directory::ascending);
    QCOMPARE(log.names(), QStringList());
}

void tst_Directory::sortingByNameIgnoresCase()
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

void tst_Directory::sortingByKindKeepsNamesAscendingInBothDirections()
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

void tst_Directory::writingAFlagListsAgainInTheSameOrder()
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
        QVERIFY(directory.setProperty(flag, state)); // unchanged, and emitted all the same
        QCOMPARE(log.take(), quietRelisting(QByteArray(flag).append("Changed").constData()));
        QVERIFY(directory.setProperty(flag, !state));
        QCOMPARE(directory.property(flag).toBool(), !state);
        QCOMPARE(log.take(), quietRelisting(QByteArray(flag).append("Changed").constData()));
    }
    QCOMPARE(shownNames(&directory), QStringList() << "b.log"
                                                   << "a.log");
}

void tst_Directory::anUnknownSortTypeSortsBySize()
{
    m_home->folder("logs");
    m_home->file("logs/small", 1, 1370000100);
    m_home->file("logs/large", 2, 1370000000);
    Directory directory;
    directory.setSortType(static_cast<Directory::SortType>(77));
    QCOMPARE(shownNames(&directory), QStringList() << "large"
                                                   << "small");
}

void tst_Directory::setRootMakesAMissingFolderAsTheAccount()
{
    Directory directory;
    SignalLog log(&directory);
    directory.setRoot("/home/ostan/deep/new root");
    QVERIFY(QDir("/home/ostan/deep/new root").exists());
    QCOMPARE(ownerOf("/home/ostan/deep"), ostanUid);
    QCOMPARE(ownerOf("/home/ostan/deep/new root"), ostanUid);
    QCOMPARE(directory.root(), QString("/home/ostan/deep/new root"));
    QCOMPARE(directory.currentPath(), QString("/home/ostan/deep/new root"));
    QCOMPARE(log.names(), QStringList("rootChanged") + quietRelisting("currentPathChanged"));
}

void tst_Directory::theSameRootDoesNothing()
{
    Directory directory;
    removeTree(logs);
    SignalLog log(&directory);
    directory.setRoot(logs);
    QCOMPARE(log.names(), QStringList());
    QVERIFY(!QFile::exists(logs));
}

void tst_Directory::aRootThatCannotBeMadeIsNotReported()
{
    const TestDir elsewhere;
    QVERIFY(chmod(QFile::encodeName(elsewhere.path()).constData(), 0755) == 0);
    Directory directory;
    SignalLog log(&directory);
    DebugLog lines;
    directory.setRoot(elsewhere.path("root"));
    QVERIFY(!QFile::exists(elsewhere.path("root")));
    QCOMPARE(directory.root(), elsewhere.path("root"));
    QCOMPARE(log.names(), QStringList("rootChanged") + quietRelisting("currentPathChanged"));
    QCOMPARE(lines.lines(), QStringList("ERROR: Directory::refreshFileList failed to cd to  " +
                                        quoted(elsewhere.path("root"))));
}

void tst_Directory::aRootWithoutTheAccountThrowsBeforeAnySignal()
{
    Directory directory;
    SignalLog log(&directory);
    bool thrown = false;
    {
        const AccountDatabase nobody("root:x:0:0::/root:/bin/sh\n");
        try {
            directory.setRoot("/home/ostan/other");
        } catch (const std::runtime_error &) {
            thrown = true;
        }
    }
    QVERIFY(thrown);
    QCOMPARE(log.names(), QStringList());
    QVERIFY(!QFile::exists("/home/ostan/other"));
    QCOMPARE(directory.currentPath(), QString(logs));
}

void tst_Directory::setCurrentPathIgnoresEmptyAndEqual()
{
    Directory directory;
    SignalLog log(&directory);
    directory.setCurrentPath(QString());
    directory.setCurrentPath(logs);
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(directory.currentPath(), QString(logs));
}

void tst_Directory::aPathOutsideTheRootIsListed()
{
    m_home->folder("configs");
    m_home->file("configs/site.cfg");
    Directory directory;
    directory.setCurrentPath("/home/ostan/configs");
    QCOMPARE(shownNames(&directory), QStringList("site.cfg"));
    QCOMPARE(breadcrumb(&directory), QStringList("configs=/home/ostan/configs"));

    directory.setCurrentPath("/home");
    // The homes of the people of this machine may be beside it.
    QVERIFY(shownNames(&directory).contains("ostan"));
    QCOMPARE(breadcrumb(&directory), QStringList("..=/home/ostan/.."));
}

void tst_Directory::selectPathWantsTheRootAnywhereInThePath()
{
    m_home->folder("logs/soil");
    const TestDir copy;
    copy.folder("home/ostan/logs");
    Directory directory;
    SignalLog log(&directory);

    directory.selectPath("/home/ostan");
    directory.selectPath("/home/ostan/logs/missing");
    directory.selectPath("/HOME/ostan/logs");
    directory.selectPath(QString());
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(directory.currentPath(), QString(logs));

    directory.selectPath("/home/ostan/logs/soil/");
    QCOMPARE(directory.currentPath(), QString("/home/ostan/logs/soil"));
    directory.selectPath(copy.path("home/ostan/logs"));
    QCOMPARE(directory.currentPath(), copy.path("home/ostan/logs"));
}

void tst_Directory::theBreadcrumbStartsWithTheRoot()
{
    m_home->folder("logs/soil/may 2013");
    Directory directory;
    directory.setCurrentPath("/home/ostan/logs/soil/may 2013");
    QCOMPARE(breadcrumb(&directory), QStringList() << "logs=/home/ostan/logs"
                                                   << "soil=/home/ostan/logs/soil"
                                                   << "may 2013=/home/ostan/logs/soil/may 2013");
    QCOMPARE(directory.pathsCount(), 3);
    directory.setCurrentPath(logs);
    QCOMPARE(breadcrumb(&directory), QStringList("logs=/home/ostan/logs"));
}

void tst_Directory::theTopFolderHasNoBreadcrumb()
{
    Directory directory;
    directory.refresh();
    SignalLog log(&directory);
    directory.setRoot("/");
    QCOMPARE(directory.pathsCount(), 0);
    QCOMPARE(log.count("pathsChanged"), 0);
    QCOMPARE(log.count("filesChanged"), 1);
}

void tst_Directory::aRootBelowTheTopGivesPathsWithTwoSeparators()
{
    Directory directory;
    directory.setRoot("/home");
    QCOMPARE(breadcrumb(&directory), QStringList("home=//home"));
}

void tst_Directory::thePathAboveTheRootGivesWhatQtCallsIt()
{
    Directory directory;
    directory.setCurrentPath("/home/ostan");
    const QString relative = QDir("/home/ostan").relativeFilePath("/home/ostan");
    if (relative.isEmpty())
        QCOMPARE(breadcrumb(&directory), QStringList());
    else
        QCOMPARE(breadcrumb(&directory), QStringList(relative + "=/home/ostan/" + relative));
}

void tst_Directory::oldBreadcrumbItemsLiveOn()
{
    Directory directory;
    directory.refresh();
    QDeclarativeListProperty<Path> paths = directory.paths();
    const QPointer<Path> before = paths.at(&paths, 0);
    directory.refresh();
    QVERIFY(before);
    QVERIFY(before != paths.at(&paths, 0));
    delete before;
}

void tst_Directory::getIndexFindsTheExactName()
{
    m_home->folder("logs");
    for (const char *name : {"a", "A", "b c"})
        m_home->file(QString("logs/") + name);
    Directory directory;
    directory.setSortType(Directory::kind);
    QCOMPARE(shownNames(&directory), QStringList() << "A"
                                                   << "a"
                                                   << "b c");
    QCOMPARE(directory.getIndex("a"), 1);
    QCOMPARE(directory.getIndex("b c"), 2);
    QCOMPARE(directory.getIndex("b"), -1);
    QCOMPARE(directory.getIndex(QString()), -1);
}

void tst_Directory::isDirCountsTheFolderReadAndKnowsItsEnds()
{
    m_home->folder("autoprogs/library");
    m_home->file("autoprogs/a.txt");
    m_home->file("autoprogs/b.py");
    Directory directory;
    directory.setSortType(Directory::name);
    directory.viewScriptDirectory();
    QCOMPARE(shownNames(&directory), QStringList() << "b.py"
                                                   << "library");
    QVERIFY(!directory.isDir(0));
    QVERIFY(!directory.isDir(1));
    QVERIFY(directory.isDir(2));
    QVERIFY(!directory.isDir(-1));
    QVERIFY(!directory.isDir(3));
}

void tst_Directory::aThrowLeavesTheMutexFree()
{
    Directory directory;
    {
        const AccountDatabase nobody("root:x:0:0::/root:/bin/sh\n");
        bool thrown = false;
        try {
            directory.newDirectory("folder");
        } catch (const std::runtime_error &) {
            thrown = true;
        }
        QVERIFY(thrown);
    }
    m_home->file("logs/a.log");
    directory.refresh();
    QCOMPARE(shownNames(&directory), QStringList("a.log"));
}

void tst_Directory::theScriptFilterHidesOtherFilesButNoFolders()
{
    m_home->folder("autoprogs/library");
    for (const char *name : {"a.py", "b.PY", "c.pyc", "d.txt"})
        m_home->file(QString("autoprogs/") + name);
    Directory directory;
    directory.setSortType(Directory::name);
    directory.viewScriptDirectory();
    QCOMPARE(shownNames(&directory), QStringList() << "a.py"
                                                   << "c.pyc"
                                                   << "library");
}

void tst_Directory::theScriptFilterStaysForOtherFolders()
{
    m_home->folder("logs");
    m_home->file("logs/a.log");
    m_home->file("logs/about.py.log");
    Directory directory;
    directory.viewScriptDirectory();
    directory.viewLogDirectory();
    QCOMPARE(shownNames(&directory), QStringList("about.py.log"));
}

void tst_Directory::filtersCanBeCountedOnly()
{
    Directory directory;
    QDeclarativeListProperty<QString> filters = directory.filters();
    QCOMPARE(filters.count(&filters), 0);
    directory.viewScriptDirectory();
    directory.viewLogDirectory();
    directory.viewScriptDirectory();
    QCOMPARE(filters.count(&filters), 1);
    QCOMPARE(*filters.at(&filters, 0), QString(".py"));
    QString another(".txt");
    filters.append(&filters, &another);
    QCOMPARE(filters.count(&filters), 1);
}

void tst_Directory::dataFoldersAreWhereTheyBelong()
{
    Directory directory;
    SignalLog log(&directory);
    directory.viewGraphDefinitionDirectory();
    QCOMPARE(directory.root(), QString("/home/ostan/graph_definitions"));
    QCOMPARE(directory.currentPath(), directory.root());
    directory.viewConfigsDirectory();
    QCOMPARE(directory.root(), QString("/home/ostan/configs"));
    directory.viewSoilFluxDirectory();
    QCOMPARE(directory.root(), QString("/home/ostan/logs/soil"));
    directory.viewScriptDirectory();
    QCOMPARE(directory.root(), QString("/home/ostan/autoprogs"));
    directory.viewLogDirectory();
    QCOMPARE(directory.root(), QString(logs));
    QCOMPARE(log.count("rootChanged"), 5);
    QCOMPARE(log.count("currentPathChanged"), 5);
    QCOMPARE(log.count("filtersChanged"), 0);
}

void tst_Directory::theSoilFolderIsMade()
{
    Directory directory;
    QCOMPARE(directory.getSoilFluxDirectory(), QString("/home/ostan/logs/soil"));
    QVERIFY(!QFile::exists("/home/ostan/logs/soil"));
    directory.viewSoilFluxDirectory();
    QCOMPARE(ownerOf("/home/ostan/logs/soil"), ostanUid);
    QCOMPARE(directory.filesCount(), 0);
    QCOMPARE(breadcrumb(&directory), QStringList("soil=/home/ostan/logs/soil"));
}

void tst_Directory::theSameViewTwiceDoesNothing()
{
    Directory directory;
    directory.viewConfigsDirectory();
    m_home->file("configs/new.cfg");
    SignalLog log(&directory);
    directory.viewConfigsDirectory();
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(directory.filesCount(), 0);
}

void tst_Directory::listsTakeNothingFromOutside()
{
    Directory directory;
    directory.refresh();
    QDeclarativeListProperty<File> files = directory.files();
    QDeclarativeListProperty<Path> paths = directory.paths();
    File file;
    Path path;
    files.append(&files, &file);
    paths.append(&paths, &path);
    QCOMPARE(directory.filesCount(), 0);
    QCOMPARE(directory.pathsCount(), 1);
    QVERIFY(!files.at(&files, 0));
    QVERIFY(!paths.at(&paths, 1));
    QVERIFY(!files.clear);
    QVERIFY(!paths.clear);
}

void tst_Directory::destructionLeavesTheItems()
{
    m_home->folder("logs");
    m_home->file("logs/a.log");
    Directory *directory = new Directory;
    directory->refresh();
    const QPointer<File> file = shownFile(directory, 0);
    QDeclarativeListProperty<Path> paths = directory->paths();
    const QPointer<Path> path = paths.at(&paths, 0);
    delete directory;
    QVERIFY(file);
    QVERIFY(path);
    delete file;
    delete path;
}

void tst_Directory::tenThousandEntriesAreListed()
{
    m_home->folder("logs");
    for (int i = 0; i < 10000; ++i)
        m_home->file(QString("logs/%1.log").arg(i, 5, 10, QChar('0')), QByteArray(),
                     1370000000 + i);
    Directory directory;
    directory.refresh();
    QCOMPARE(directory.filesCount(), 10000);
    QCOMPARE(shownFile(&directory, 0)->name(), QString("09999.log"));
    QCOMPARE(shownFile(&directory, 9999)->name(), QString("00000.log"));
    directory.reorderByName();
    QCOMPARE(shownFile(&directory, 0)->name(), QString("00000.log"));
}

QTEST_MAIN(tst_Directory)
#include "tst_directory.moc"
