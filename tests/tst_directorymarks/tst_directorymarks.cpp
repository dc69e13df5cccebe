// What becomes of the selection and its marks when the folder shown or its contents change.

#include "directory/directory.h"

#include "support/debuglog.h"
#include "support/listing.h"
#include "support/moment.h"
#include "support/reaction.h"
#include "support/signallog.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QTest>

namespace {
const int marksDelayMs = 200;
} // namespace

class tst_DirectoryMarks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void marksComeBackAfterARelisting();
    void anEntryThatItsOwnMarkDoesAwayWithIsNotSelected();
    void selectAllGoesOnWithTheEntriesListedMeanwhile();
    void marksComeBackAfterNavigation();
    void theSelectionOutlivesAnotherRoot();
    void theSameNamesKeepTheirMarks();
    void selectAllBeforeTheMarksAreBackCountsTwice();
    void selectAllSurvivesAListingInBetween();
    void marksAreSetWithoutASignalOfTheDirectory();
    void theTotalMayGoBelowZero();
    void thePathIsTakenAsItStands();
    void aDeletedFileStaysSelected();
    void aRenamedFileStaysSelectedUnderItsOldName();

private:
    void list(const QString &path);
    void select(const QString &name, bool isSelected = true);

    TestDir *m_folder;
    Directory *m_directory;
};

void tst_DirectoryMarks::init()
{
    m_folder = new TestDir;
    m_directory = new Directory;
    m_directory->setSortType(Directory::name);
}

void tst_DirectoryMarks::cleanup()
{
    delete m_directory;
    delete m_folder;
}

void tst_DirectoryMarks::list(const QString &path)
{
    m_directory->setCurrentPath(path);
}

void tst_DirectoryMarks::select(const QString &name, bool isSelected)
{
    m_directory->setIsSelectedAt(m_directory->getIndex(name), isSelected);
}

// Unlike selectFile(), which counts the folder read.
void tst_DirectoryMarks::marksComeBackAfterARelisting()
{
    for (const char *name : {"a.log", "b.log", "c.log"})
        m_folder->file(name);
    list(m_folder->path());
    const Moment settled(marksDelayMs + 5, [] {}); // the first listing brings marks of its own
    QVERIFY(waitUntil([&] { return settled.isOver(); }));
    select("a.log");
    select("c.log");
    QStringList before;
    QStringList after;

    m_folder->file("d.log");
    const Moment justBefore(marksDelayMs - 5, [&] { before = markedNames(m_directory); });
    m_directory->refresh();
    QCOMPARE(markedNames(m_directory), QStringList());
    const Moment justAfter(marksDelayMs + 5, [&] { after = markedNames(m_directory); });

    QVERIFY(waitUntil([&] { return justAfter.isOver(); }));
    QCOMPARE(before, QStringList());
    QCOMPARE(after, QStringList() << "a.log"
                                  << "c.log");
    QCOMPARE(m_directory->selectedFiles(), QString("a.log c.log"));
}

void tst_DirectoryMarks::marksComeBackAfterNavigation()
{
    m_folder->folder("week");
    m_folder->file("week/a.log", 3000);
    m_folder->file("week/b.log", 3000);
    list(m_folder->path("week"));
    select("b.log");
    SignalLog log(m_directory);

    list(m_folder->path());
    QCOMPARE(m_directory->selectedFiles(), QString("b.log"));
    QCOMPARE(markedNames(m_directory), QStringList());
    list(m_folder->path("week"));
    QCOMPARE(markedNames(m_directory), QStringList());

    QVERIFY(waitUntil([&] { return !markedNames(m_directory).isEmpty(); }));
    QCOMPARE(markedNames(m_directory), QStringList("b.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
    QCOMPARE(log.count("selectedFilesChanged"), 0);
}

void tst_DirectoryMarks::theSelectionOutlivesAnotherRoot()
{
    const TestDir logs("/home/ostan/logs");
    logs.file("a.log", 3000);
    m_directory->refresh();
    select("a.log");

    m_directory->viewConfigsDirectory();
    QCOMPARE(m_directory->selectedFiles(), QString("a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
    m_directory->viewLogDirectory();
    QVERIFY(waitUntil([&] { return markedNames(m_directory) == QStringList("a.log"); }));
}

void tst_DirectoryMarks::theSameNamesKeepTheirMarks()
{
    m_folder->file("a.log");
    m_folder->file("b.log");
    list(m_folder->path());
    select("b.log");
    m_directory->refresh();
    QCOMPARE(markedNames(m_directory), QStringList("b.log"));
}

// The marks tell selectAll() what is selected, and for 200 ms they don't.
void tst_DirectoryMarks::selectAllBeforeTheMarksAreBackCountsTwice()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    select("a.log");
    m_folder->file("b.log", 3000);
    m_directory->refresh();

    m_directory->selectAll();

    QCOMPARE(m_directory->selectedFiles(), QString("a.log b.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2 + 2 + 2));
}

// A screen may refresh when it hears of a changed selection, and the items walked are gone then.
void tst_DirectoryMarks::selectAllSurvivesAListingInBetween()
{
    m_folder->file("b.log", 1024);
    m_folder->file("c.log", 1024);
    list(m_folder->path());
    m_folder->file("a.log", 1024);
    const Reaction relist(m_directory, SIGNAL(selectedFilesChanged()),
                          [&] { m_directory->refresh(); });

    m_directory->selectAll();

    QCOMPARE(shownNames(m_directory), QStringList() << "a.log"
                                                    << "b.log"
                                                    << "c.log");
    QVERIFY(m_directory->selectedFiles().endsWith("b.log c.log"));
}

void tst_DirectoryMarks::marksAreSetWithoutASignalOfTheDirectory()
{
    m_folder->file("a.log");
    m_folder->file("b.log");
    list(m_folder->path());
    select("a.log");
    shownFile(m_directory, 0)->setIsSelected(false);
    shownFile(m_directory, 1)->setIsSelected(true);
    SignalLog log(m_directory);
    DebugLog debug;

    m_directory->updateSelectedFiles();

    QCOMPARE(markedNames(m_directory), QStringList("a.log"));
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
}

// What is taken off is the size listed last.
void tst_DirectoryMarks::theTotalMayGoBelowZero()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    select("a.log");
    m_folder->file("a.log", 5000);
    m_folder->file("b.log");
    m_directory->refresh();
    select("a.log", false);
    QCOMPARE(m_directory->selectedFiles(), QString());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2 - 4));
}

void tst_DirectoryMarks::thePathIsTakenAsItStands()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    select("a.log");
    list(m_folder->path() + '/');
    m_directory->updateSelectedFiles();
    QCOMPARE(markedNames(m_directory), QStringList());
    select("a.log");
    QCOMPARE(m_directory->selectedFiles(), QString("a.log a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(4));
}

void tst_DirectoryMarks::aDeletedFileStaysSelected()
{
    m_folder->file("a.log", 3000);
    m_folder->file("b.log", 3000);
    list(m_folder->path());
    select("a.log");

    QVERIFY(m_directory->deleteFile(0));
    QVERIFY(waitUntil([&] { return m_directory->filesCount() == 1; }));
    QCOMPARE(m_directory->selectedFiles(), QString("a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));

    m_directory->clearAll();
    QCOMPARE(m_directory->selectedFiles(), QString());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(0));
}

void tst_DirectoryMarks::aRenamedFileStaysSelectedUnderItsOldName()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    select("a.log");

    QVERIFY(m_directory->renameFile(0, "b.log"));
    QVERIFY(waitUntil([&] { return shownNames(m_directory) == QStringList("b.log"); }));
    m_directory->updateSelectedFiles();
    QCOMPARE(markedNames(m_directory), QStringList());
    QCOMPARE(m_directory->selectedFiles(), QString("a.log"));
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
}

// A handler of the mark has the folder listed anew, and the entry is another one then.
void tst_DirectoryMarks::anEntryThatItsOwnMarkDoesAwayWithIsNotSelected()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    const Reaction relisting(shownFile(m_directory, 0), SIGNAL(isSelectedChanged()), [&] {
        m_folder->file("b.log", 3000);
        m_directory->refresh();
    });
    m_directory->setIsSelectedAt(0, true);
    QCOMPARE(m_directory->filesCount(), 2);
    QCOMPARE(m_directory->selectedFiles(), QString());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(0));
}

void tst_DirectoryMarks::selectAllGoesOnWithTheEntriesListedMeanwhile()
{
    m_folder->file("a.log", 3000);
    list(m_folder->path());
    const Reaction relisting(shownFile(m_directory, 0), SIGNAL(isSelectedChanged()), [&] {
        m_folder->file("b.log", 3000);
        m_directory->refresh();
    });
    m_directory->selectAll();
    QCOMPARE(m_directory->filesCount(), 2);
    QCOMPARE(markedNames(m_directory), QStringList(shownNames(m_directory).mid(1)));
    QCOMPARE(m_directory->selectedFiles(), shownNames(m_directory).last());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(2));
}

QTEST_MAIN(tst_DirectoryMarks)
#include "tst_directorymarks.moc"
