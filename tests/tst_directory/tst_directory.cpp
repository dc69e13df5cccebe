// What a Directory is and what it lists.

#include "directory/directory.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/listing.h"
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

/** What a relisting with the same names emits, seen by a later receiver. */
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
    void getIndexFindsTheExactName();
    void isDirCountsTheFolderReadAndKnowsItsEnds();
    void aThrowLeavesTheMutexFree();
    void listsTakeNothingFromOutside();
    void destructionLeavesTheItems();
    void tenThousandEntriesAreListed();

private:
    TestDir *m_home;
};

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
