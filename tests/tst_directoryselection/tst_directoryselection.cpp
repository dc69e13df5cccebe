#include "directory/directory.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/listing.h"
#include "support/reaction.h"
#include "support/signallog.h"
#include "support/testdir.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <limits>

#include <sys/stat.h>

namespace {
/** What updateSelectedFilesKB() writes: the text ends in a blank and the stream adds one. */
QString totalLine(int kb)
{
    return "Directory::updateSelectedFilesKB () - KB =  " + QString::number(kb);
}

} // namespace

class tst_DirectorySelection : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void selectingAFileMarksNamesAndCountsIt();
    void selectingTwiceCountsTwice();
    void deselectingWhatIsNotSelectedDoesNothing();
    void onlyWholeKilobytesOfEachFileCount();
    void aFileBeyondFourGigabytesCountsInFull();
    void namesStandInTheOrderOfTheirPaths();
    void capitalsStandBeforeSmallLetters();
    void foldersAreOrderedByTheirPathsToo();
    void oneNameInTwoFoldersStandsTwice();
    void oddNamesAreJoinedAsTheyAre();
    void aFolderCanBeSelected();
    void indexesBeyondTheListAreIgnored_data();
    void indexesBeyondTheListAreIgnored();
    void indexesCountWhatIsShown();

    void selectAllTakesEveryFileAndNoFolder();
    void selectAllLeavesOutWhatIsMarked();
    void selectAllInAnEmptyFolderDoesNothing();

    void clearingEmptiesTheSelectionOfAllFolders_data();
    void clearingEmptiesTheSelectionOfAllFolders();
    void clearingTakesTheMarksAwayBeforeItTells();
    void clearingNothingTellsAsWell();

    void writingTheTotalTellsRealChangesOnly();
    void selectingGoesOnFromAWrittenTotal();
    void askingForTheTotalWritesOneLineOnly();

    void selectFileOpensAFolder();
    void selectFileDoesNothingElsewhere_data();
    void selectFileDoesNothingElsewhere();
    void selectFileIgnoresAFolderThatVanished();
    void selectFileIgnoresAFolderOutOfReach();

private:
    void list(const QString &path);
    void select(const QString &name, bool isSelected = true);

    TestDir *m_folder;
    Directory *m_directory;
};

void tst_DirectorySelection::init()
{
    m_folder = new TestDir;
    m_directory = new Directory;
    m_directory->setSortType(Directory::name);
}

void tst_DirectorySelection::cleanup()
{
    delete m_directory;
    delete m_folder;
}

void tst_DirectorySelection::list(const QString &path)
{
    m_directory->setCurrentPath(path);
}

void tst_DirectorySelection::select(const QString &name, bool isSelected)
{
    m_directory->setIsSelectedAt(m_directory->getIndex(name), isSelected);
}

void tst_DirectorySelection::selectingAFileMarksNamesAndCountsIt()
{
    m_folder->file("a.log", 3000);
    m_folder->file("b.log", 5000);
    list(m_folder->path());
    SignalLog log(m_directory);
    SignalLog fileLog(shownFile(m_directory, 1));
    QStringList marks;
    const Reaction look(m_directory, SIGNAL(selectedFilesChanged()),
                        [&] { marks = markedNames(m_directory); });
    DebugLog debug;

    m_directory->setIsSelectedAt(1, true);

    QCOMPARE(log.names(), QStringList("selectedFilesChanged"));
    QCOMPARE(fileLog.names(), QStringList("isSelectedChanged"));
    QCOMPARE(marks, QStringList("b.log"));
    QCOMPARE(debug.lines(), QStringList(totalLine(4)));
    QCOMPARE(m_directory->selectedFiles(), QString("b.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(4));
    QCOMPARE(markedNames(m_directory), QStringList("b.log"));
}

void tst_DirectorySelection::selectingTwiceCountsTwice()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    SignalLog log(m_directory);
    SignalLog fileLog(shownFile(m_directory, 0));

    m_directory->setIsSelectedAt(0, true);
    m_directory->setIsSelectedAt(0, true);
    QCOMPARE(m_directory->selectedFiles(), QString("a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(4));
    QCOMPARE(log.take(), QStringList() << "selectedFilesChanged"
                                       << "selectedFilesChanged");
    QCOMPARE(fileLog.names(), QStringList("isSelectedChanged"));

    m_directory->setIsSelectedAt(0, false);
    QCOMPARE(m_directory->selectedFiles(), QString());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
    QCOMPARE(log.take(), QStringList("selectedFilesChanged"));
}

void tst_DirectorySelection::deselectingWhatIsNotSelectedDoesNothing()
{
    m_folder->file("a.log", 3000);
    m_folder->file("b.log", 3000);
    list(m_folder->path());
    select("a.log");
    SignalLog log(m_directory);
    DebugLog debug;

    select("b.log", false);

    QCOMPARE(log.names(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
    QCOMPARE(m_directory->selectedFiles(), QString("a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
}

void tst_DirectorySelection::onlyWholeKilobytesOfEachFileCount()
{
    m_folder->file("a", 1023);
    m_folder->file("b", 2047);
    m_folder->file("c", 1023);
    list(m_folder->path());
    m_directory->selectAll();
    QCOMPARE(m_directory->selectedFilesKB(), qint64(0 + 1 + 0));
}

void tst_DirectorySelection::aFileBeyondFourGigabytesCountsInFull()
{
    m_folder->file("huge", Q_INT64_C(5) << 30);
    list(m_folder->path());
    select("huge");
    QCOMPARE(m_directory->selectedFilesKB(), Q_INT64_C(5) << 20);
}

void tst_DirectorySelection::namesStandInTheOrderOfTheirPaths()
{
    m_folder->file("beta");
    m_folder->file("alpha gamma");
    list(m_folder->path());
    select("beta");
    select("alpha gamma");
    QCOMPARE(m_directory->selectedFiles(), QString("alpha gamma beta"));
}

void tst_DirectorySelection::capitalsStandBeforeSmallLetters()
{
    for (const char *name : {"a", "B", "_", "1"})
        m_folder->file(name);
    list(m_folder->path());
    m_directory->selectAll();
    QCOMPARE(m_directory->selectedFiles(), QString("1 B _ a"));
}

void tst_DirectorySelection::foldersAreOrderedByTheirPathsToo()
{
    m_folder->folder("week");
    m_folder->folder("week 2"); // a blank stands before the separator
    m_folder->file("week/a.log", 1024);
    m_folder->file("week 2/z.log", 2048);
    list(m_folder->path("week"));
    select("a.log");
    list(m_folder->path("week 2"));
    select("z.log");
    QCOMPARE(m_directory->selectedFiles(), QString("z.log a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(3));
}

void tst_DirectorySelection::oneNameInTwoFoldersStandsTwice()
{
    for (const char *name : {"one", "two"}) {
        m_folder->folder(name);
        m_folder->file(QString(name) + "/a.log", 1024);
        list(m_folder->path(name));
        select("a.log");
    }
    QCOMPARE(m_directory->selectedFiles(), QString("a.log a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
}

void tst_DirectorySelection::oddNamesAreJoinedAsTheyAre()
{
    const QString umlaut = QString::fromUtf8("w\303\244rme");
    const QString longest(255, 'x');
    const QStringList names = QStringList() << " a  b "
                                            << "\"q\" 'r'"
                                            << "n\nm" << umlaut << longest;
    for (const QString &name : names)
        m_folder->file(name);
    list(m_folder->path());
    m_directory->selectAll();
    QCOMPARE(m_directory->selectedFiles(),
             QString(" a  b  \"q\" 'r' n\nm " + umlaut + ' ' + longest));
}

void tst_DirectorySelection::aFolderCanBeSelected()
{
    m_folder->folder("soil");
    list(m_folder->path());
    const qint64 kb = shownFile(m_directory, 0)->sizeKB();
    m_directory->setIsSelectedAt(0, true);
    QCOMPARE(m_directory->selectedFiles(), QString("soil"));
    QCOMPARE(m_directory->selectedFilesKB(), kb);
    QCOMPARE(markedNames(m_directory), QStringList("soil"));
}

void tst_DirectorySelection::indexesBeyondTheListAreIgnored_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("as many as entries") << 2;
    QTest::newRow("smallest number") << std::numeric_limits<int>::min();
    QTest::newRow("largest number") << std::numeric_limits<int>::max();
}

void tst_DirectorySelection::indexesBeyondTheListAreIgnored()
{
    QFETCH(int, index);
    m_folder->file("a.log", 3000);
    m_folder->file("b.log", 3000);
    list(m_folder->path());
    select("a.log");
    SignalLog log(m_directory);
    DebugLog debug;

    m_directory->setIsSelectedAt(index, true);
    m_directory->setIsSelectedAt(index, false);

    QCOMPARE(log.names(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
    QCOMPARE(m_directory->selectedFiles(), QString("a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
}

// Unlike selectFile(), which counts the folder read.
void tst_DirectorySelection::indexesCountWhatIsShown()
{
    const TestDir scripts("/home/ostan/autoprogs");
    scripts.file("a.txt");
    scripts.folder("library");
    scripts.file("z.py");
    m_directory->viewScriptDirectory();
    QCOMPARE(shownNames(m_directory), QStringList() << "library"
                                                    << "z.py");

    m_directory->setIsSelectedAt(2, true);
    QCOMPARE(m_directory->selectedFiles(), QString());
    m_directory->setIsSelectedAt(1, true);
    QCOMPARE(m_directory->selectedFiles(), QString("z.py"));
    m_directory->selectFile(0);
    QCOMPARE(m_directory->currentPath(), scripts.path());
    m_directory->selectFile(1);
    QCOMPARE(m_directory->currentPath(), scripts.path("library"));
}

void tst_DirectorySelection::selectAllTakesEveryFileAndNoFolder()
{
    m_folder->folder("2013");
    m_folder->folder("soil");
    m_folder->file("a.log", 500);
    m_folder->file("b.log", 1024);
    m_folder->file("c.log", 4096);
    list(m_folder->path());
    SignalLog log(m_directory);
    QStringList steps;
    const Reaction look(m_directory, SIGNAL(selectedFilesChanged()), [&] {
        steps.append(m_directory->selectedFiles() + " | " + markedNames(m_directory).join(" "));
    });
    DebugLog debug;

    m_directory->selectAll();

    QCOMPARE(log.names(), QStringList() << "selectedFilesChanged"
                                        << "selectedFilesChanged"
                                        << "selectedFilesChanged");
    QCOMPARE(steps, QStringList() << "a.log | a.log"
                                  << "a.log b.log | a.log b.log"
                                  << "a.log b.log c.log | a.log b.log c.log");
    QCOMPARE(debug.lines(), QStringList() << totalLine(0) << totalLine(1) << totalLine(5));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(5));
}

void tst_DirectorySelection::selectAllLeavesOutWhatIsMarked()
{
    m_folder->file("a.log", 3000);
    m_folder->file("b.log", 3000);
    list(m_folder->path());
    select("a.log");
    SignalLog log(m_directory);

    m_directory->selectAll();
    QCOMPARE(log.take(), QStringList("selectedFilesChanged"));
    QCOMPARE(m_directory->selectedFiles(), QString("a.log b.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(4));

    m_directory->selectAll();
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(4));
}

void tst_DirectorySelection::selectAllInAnEmptyFolderDoesNothing()
{
    list(m_folder->path());
    SignalLog log(m_directory);
    m_directory->selectAll();
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_directory->selectedFiles(), QString());
}

// A screen may refresh when it hears of a changed selection, and the items walked are gone then.
void tst_DirectorySelection::clearingEmptiesTheSelectionOfAllFolders_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("clearAll") << QByteArray("clearAll");
    QTest::newRow("clearSelectedFiles") << QByteArray("clearSelectedFiles");
}

void tst_DirectorySelection::clearingEmptiesTheSelectionOfAllFolders()
{
    QFETCH(QByteArray, slot);
    m_folder->folder("week");
    m_folder->file("week/a.log", 3000);
    m_folder->file("b.log", 3000);
    list(m_folder->path("week"));
    select("a.log");
    list(m_folder->path());
    select("b.log");
    QCOMPARE(m_directory->selectedFiles(), QString("b.log a.log"));
    SignalLog log(m_directory);
    DebugLog debug;

    QVERIFY(QMetaObject::invokeMethod(m_directory, slot.constData()));

    QCOMPARE(log.names(), QStringList("selectedFilesChanged"));
    QCOMPARE(debug.lines(), QStringList() << "Directory::clearSelectedFiles()" << totalLine(0));
    QCOMPARE(m_directory->selectedFiles(), QString());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(0));
    QCOMPARE(markedNames(m_directory), QStringList());
}

void tst_DirectorySelection::clearingTakesTheMarksAwayBeforeItTells()
{
    m_folder->file("a.log");
    list(m_folder->path());
    select("a.log");
    QStringList marks("never told");
    const Reaction look(m_directory, SIGNAL(selectedFilesChanged()),
                        [&] { marks = markedNames(m_directory); });
    m_directory->clearAll();
    QCOMPARE(marks, QStringList());
}

void tst_DirectorySelection::clearingNothingTellsAsWell()
{
    SignalLog log(m_directory);
    DebugLog debug;
    m_directory->clearAll();
    QCOMPARE(log.names(), QStringList("selectedFilesChanged"));
    QCOMPARE(debug.lines(), QStringList() << "Directory::clearSelectedFiles()" << totalLine(0));
}

// The marks tell selectAll() what is selected, and for 200 ms they don't.
// What is taken off is the size listed last.
void tst_DirectorySelection::writingTheTotalTellsRealChangesOnly()
{
    SignalLog log(m_directory);
    m_directory->setProperty("selectedFilesKB", 0);
    QCOMPARE(log.take(), QStringList());
    m_directory->setProperty("selectedFilesKB", 7);
    QCOMPARE(log.take(), QStringList("selectedFilesKBChanged"));
    m_directory->setProperty("selectedFilesKB", 7);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(7));
}

void tst_DirectorySelection::selectingGoesOnFromAWrittenTotal()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    m_directory->setSelectedFilesKB(100);
    SignalLog log(m_directory);
    select("a.log");
    QCOMPARE(m_directory->selectedFilesKB(), qint64(102));
    select("a.log", false);
    QCOMPARE(m_directory->selectedFilesKB(), qint64(100));
    m_directory->clearAll();
    QCOMPARE(m_directory->selectedFilesKB(), qint64(0));
    QCOMPARE(log.count("selectedFilesKBChanged"), 0);
}

void tst_DirectorySelection::askingForTheTotalWritesOneLineOnly()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    select("a.log");
    m_folder->file("a.log", 9000);
    SignalLog log(m_directory);
    DebugLog debug;
    m_directory->updateSelectedFilesKB();
    QCOMPARE(debug.lines(), QStringList(totalLine(2)));
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
}

void tst_DirectorySelection::selectFileOpensAFolder()
{
    m_folder->folder("two words");
    m_folder->file("two words/a.log");
    list(m_folder->path());
    SignalLog log(m_directory);

    m_directory->selectFile(0);

    // A later receiver hears the cause last.
    QCOMPARE(log.names(), QStringList() << "filesChanged"
                                        << "pathsChanged"
                                        << "updateDirectory"
                                        << "currentPathChanged");
    QCOMPARE(m_directory->currentPath(), m_folder->path("two words"));
    QCOMPARE(shownNames(m_directory), QStringList("a.log"));
    QCOMPARE(m_directory->selectedFiles(), QString());
}

void tst_DirectorySelection::selectFileDoesNothingElsewhere_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("a file") << 1;
    QTest::newRow("-1") << -1;
    QTest::newRow("as many as entries") << 2;
    QTest::newRow("smallest number") << std::numeric_limits<int>::min();
    QTest::newRow("largest number") << std::numeric_limits<int>::max();
}

void tst_DirectorySelection::selectFileDoesNothingElsewhere()
{
    QFETCH(int, index);
    m_folder->folder("a");
    m_folder->file("b.log");
    list(m_folder->path());
    SignalLog log(m_directory);
    DebugLog debug;
    m_directory->selectFile(index);
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
    QCOMPARE(m_directory->currentPath(), m_folder->path());
}

void tst_DirectorySelection::selectFileIgnoresAFolderThatVanished()
{
    m_folder->folder("a");
    list(m_folder->path());
    QVERIFY(QDir().rmdir(m_folder->path("a")));
    SignalLog log(m_directory);

    m_directory->selectFile(0);

    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_directory->currentPath(), m_folder->path());
    m_folder->file("b.log");
    QVERIFY(m_directory->exists("b.log")); // still looks in the folder listed
}

void tst_DirectorySelection::selectFileIgnoresAFolderOutOfReach()
{
    m_folder->folder("a");
    list(m_folder->path());
    chmod(QFile::encodeName(m_folder->path()).constData(), 0744);
    SignalLog log(m_directory);
    {
        const EffectiveUser stranger(strangerUid);
        m_directory->selectFile(0);
    }
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(m_directory->currentPath(), m_folder->path());
}

QTEST_MAIN(tst_DirectorySelection)
#include "tst_directoryselection.moc"
