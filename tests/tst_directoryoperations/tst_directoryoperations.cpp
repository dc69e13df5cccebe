#include "directory/directory.h"

#include "support/account.h"
#include "support/listing.h"
#include "support/oddnames.h"
#include "support/reaction.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <limits>

#include <unistd.h>

class tst_DirectoryOperations : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void existsKnowsFilesFoldersAndAbsolutePaths();
    void existsNeedsNoAccount();
    void existsWorksWhileTheListingIsAnnounced();
    void existsFollowsNavigation();

    void renameFileRenamesAFile();
    void renameFileRenamesAFolder();
    void renameFileTakesOddNames_data();
    void renameFileTakesOddNames();
    void renameFileIgnoresABadIndex_data();
    void renameFileIgnoresABadIndex();
    void renameFileOverwritesNothing_data();
    void renameFileOverwritesNothing();
    void renameFileOfAVanishedFileListsAgain();

    void deleteFileRemovesAFile();
    void deleteFileRemovesAnEmptyFolder();
    void deleteFileKeepsAFolderWithContents();
    void deleteFileRemovesALinkAndNotItsTarget();
    void deleteFileTakesOddNames_data();
    void deleteFileTakesOddNames();
    void deleteFileIgnoresABadIndex_data();
    void deleteFileIgnoresABadIndex();
    void deleteFileOfAVanishedFileListsAgain();
    void indexesCountTheFolderReadUnderAFilter();

    void severalOperationsListOnceEach();
    void beforeTheFirstListingTheWorkingDirectoryCounts();
    void afterAFailedNavigationTheFolderListedCounts();
    void anObjectMayGoBeforeItsListing();

private:
    void list();

    TestDir *m_folder;
    TestDir *m_elsewhere; // the working directory
    Directory *m_directory;
};

void tst_DirectoryOperations::init()
{
    m_folder = new TestDir;
    m_elsewhere = new TestDir;
    QVERIFY(QDir::setCurrent(m_elsewhere->path()));
    m_directory = new Directory;
    m_directory->setSortType(Directory::name);
}

void tst_DirectoryOperations::cleanup()
{
    delete m_directory;
    QDir::setCurrent("/");
    delete m_elsewhere;
    delete m_folder;
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_DirectoryOperations::list()
{
    m_directory->setCurrentPath(m_folder->path());
}

void tst_DirectoryOperations::existsKnowsFilesFoldersAndAbsolutePaths()
{
    m_folder->file("a.log");
    m_folder->file(".hidden");
    m_folder->folder("soil");
    m_folder->file("soil/b.log");
    list();
    bool results[8];

    QCOMPARE(emittedBy(m_directory,
                       [&] {
                           results[0] = m_directory->exists("a.log");
                           results[1] = m_directory->exists(".hidden");
                           results[2] = m_directory->exists("soil");
                           results[3] = m_directory->exists("soil/b.log");
                           results[4] = m_directory->exists(m_elsewhere->path());
                           results[5] = m_directory->exists("b.log");
                           results[6] = m_directory->exists("A.LOG");
                           results[7] = m_directory->exists(m_elsewhere->path("a.log"));
                       }),
             nothing());

    for (int i = 0; i < 8; ++i)
        QCOMPARE(results[i], i < 5);
    QVERIFY(!m_directory->exists(""));
}

void tst_DirectoryOperations::existsNeedsNoAccount()
{
    m_folder->file("a.log");
    list();
    const AccountDatabase nobody("root:x:0:0::/root:/bin/sh\n");
    QVERIFY(m_directory->exists("a.log"));
    QVERIFY(!m_directory->exists("b.log"));
}

void tst_DirectoryOperations::existsWorksWhileTheListingIsAnnounced()
{
    m_folder->file("a.log");
    bool exists = false;
    const Reaction underTheMutex(m_directory, SIGNAL(filesChanged()),
                                 [&] { exists = m_directory->exists("a.log"); });
    list();
    QVERIFY(exists);
}

void tst_DirectoryOperations::existsFollowsNavigation()
{
    m_folder->folder("soil");
    m_folder->file("soil/b.log");
    list();
    m_directory->selectFile(0);
    QVERIFY(m_directory->exists("b.log"));
    QVERIFY(!m_directory->exists("soil"));
}

void tst_DirectoryOperations::renameFileRenamesAFile()
{
    m_folder->file("a.log", QByteArray("contents"));
    m_folder->file("b.log");
    list();
    bool renamed = false;
    QCOMPARE(emittedBy(m_directory, [&] { renamed = m_directory->renameFile(0, "c.log"); }),
             oneListing());
    QVERIFY(renamed);
    QCOMPARE(shownNames(m_directory), QStringList() << "b.log"
                                                    << "c.log");
    QCOMPARE(m_folder->contents("c.log"), QByteArray("contents"));
    QCOMPARE(m_folder->names(), shownNames(m_directory));
}

void tst_DirectoryOperations::renameFileRenamesAFolder()
{
    m_folder->folder("soil");
    m_folder->file("soil/a.log", QByteArray("contents"));
    list();
    QVERIFY(m_directory->renameFile(0, "air"));
    QCOMPARE(m_folder->names(), QStringList("air"));
    QCOMPARE(m_folder->contents("air/a.log"), QByteArray("contents"));
}

void tst_DirectoryOperations::renameFileTakesOddNames_data()
{
    addOddNames();
}

void tst_DirectoryOperations::renameFileTakesOddNames()
{
    QFETCH(QString, name);
    m_folder->file("a.log");
    list();
    QVERIFY(m_directory->renameFile(0, name));
    QCOMPARE(m_folder->names(), QStringList(name));
    m_directory->refresh();
    QCOMPARE(shownNames(m_directory), QStringList(name));
    QVERIFY(m_directory->renameFile(0, "a.log"));
    QCOMPARE(m_folder->names(), QStringList("a.log"));
}

namespace {
void addBadIndexes()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("as many as entries") << 2;
    QTest::newRow("smallest number") << std::numeric_limits<int>::min();
    QTest::newRow("largest number") << std::numeric_limits<int>::max();
}
} // namespace

void tst_DirectoryOperations::renameFileIgnoresABadIndex_data()
{
    addBadIndexes();
}

void tst_DirectoryOperations::renameFileIgnoresABadIndex()
{
    QFETCH(int, index);
    m_folder->file("a.log");
    m_folder->file("b.log");
    list();
    bool renamed = true;
    QCOMPARE(emittedBy(m_directory, [&] { renamed = m_directory->renameFile(index, "c.log"); }),
             nothing());
    QVERIFY(!renamed);
    QCOMPARE(m_folder->names(), QStringList() << "a.log"
                                              << "b.log");
}

void tst_DirectoryOperations::renameFileOverwritesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a file") << "b.log";
    QTest::newRow("a folder") << "soil";
    QTest::newRow("itself") << "a.log";
    QTest::newRow("no name") << QString();
    QTest::newRow("256 bytes") << QString(256, 'x');
    QTest::newRow("missing folder") << "missing/a.log";
}

void tst_DirectoryOperations::renameFileOverwritesNothing()
{
    QFETCH(QString, name);
    m_folder->file("a.log", QByteArray("a"));
    m_folder->file("b.log", QByteArray("b"));
    m_folder->folder("soil");
    list();
    bool renamed = true;
    QCOMPARE(emittedBy(m_directory, [&] { renamed = m_directory->renameFile(0, name); }),
             oneQuietListing());
    QVERIFY(!renamed);
    QCOMPARE(m_folder->names(), QStringList() << "a.log"
                                              << "b.log"
                                              << "soil");
    QCOMPARE(m_folder->contents("a.log"), QByteArray("a"));
    QCOMPARE(m_folder->contents("b.log"), QByteArray("b"));
}

void tst_DirectoryOperations::renameFileOfAVanishedFileListsAgain()
{
    m_folder->file("a.log");
    list();
    QVERIFY(QFile::remove(m_folder->path("a.log")));
    bool renamed = true;
    QCOMPARE(emittedBy(m_directory, [&] { renamed = m_directory->renameFile(0, "b.log"); }),
             oneListing());
    QVERIFY(!renamed);
    QCOMPARE(m_folder->names(), QStringList());
    QCOMPARE(shownNames(m_directory), QStringList());
}

void tst_DirectoryOperations::deleteFileRemovesAFile()
{
    m_folder->file("a.log");
    m_folder->file("b.log");
    list();
    bool removed = false;
    QCOMPARE(emittedBy(m_directory, [&] { removed = m_directory->deleteFile(1); }), oneListing());
    QVERIFY(removed);
    QCOMPARE(m_folder->names(), QStringList("a.log"));
    QCOMPARE(shownNames(m_directory), QStringList("a.log"));
}

void tst_DirectoryOperations::deleteFileRemovesAnEmptyFolder()
{
    m_folder->folder("week");
    m_folder->folder("week/soil");
    m_directory->setCurrentPath(m_folder->path("week"));
    bool removed = false;
    QCOMPARE(emittedBy(m_directory, [&] { removed = m_directory->deleteFile(0); }), oneListing());
    QVERIFY(removed);
    QVERIFY(!QFile::exists(m_folder->path("week/soil")));
    QCOMPARE(m_folder->names(), QStringList("week")); // not its parent, though empty too
}

void tst_DirectoryOperations::deleteFileKeepsAFolderWithContents()
{
    m_folder->folder("soil");
    m_folder->file("soil/.hidden", QByteArray("contents"));
    list();
    bool removed = true;
    QCOMPARE(emittedBy(m_directory, [&] { removed = m_directory->deleteFile(0); }),
             oneQuietListing());
    QVERIFY(!removed);
    QCOMPARE(m_folder->contents("soil/.hidden"), QByteArray("contents"));
}

// A link to a folder counts as a folder, which rmdir doesn't take a link for.
void tst_DirectoryOperations::deleteFileRemovesALinkAndNotItsTarget()
{
    m_elsewhere->file("target.log", QByteArray("contents"));
    m_elsewhere->folder("target");
    QVERIFY(QFile::link(m_elsewhere->path("target.log"), m_folder->path("a.log")));
    QVERIFY(QFile::link(m_elsewhere->path("target"), m_folder->path("b")));
    list();
    QVERIFY(m_directory->deleteFile(0));
    QVERIFY(!m_directory->deleteFile(1));
    QCOMPARE(m_folder->names(), QStringList("b"));
    QCOMPARE(m_elsewhere->contents("target.log"), QByteArray("contents"));
    QVERIFY(QDir(m_elsewhere->path("target")).exists());
}

void tst_DirectoryOperations::deleteFileTakesOddNames_data()
{
    addOddNames();
}

void tst_DirectoryOperations::deleteFileTakesOddNames()
{
    QFETCH(QString, name);
    m_folder->file(name);
    list();
    QVERIFY(m_directory->deleteFile(0));
    QCOMPARE(m_folder->names(), QStringList());
}

void tst_DirectoryOperations::deleteFileIgnoresABadIndex_data()
{
    addBadIndexes();
}

void tst_DirectoryOperations::deleteFileIgnoresABadIndex()
{
    QFETCH(int, index);
    m_folder->file("a.log");
    m_folder->file("b.log");
    list();
    bool removed = true;
    QCOMPARE(emittedBy(m_directory, [&] { removed = m_directory->deleteFile(index); }), nothing());
    QVERIFY(!removed);
    QCOMPARE(m_folder->names(), QStringList() << "a.log"
                                              << "b.log");
}

void tst_DirectoryOperations::deleteFileOfAVanishedFileListsAgain()
{
    m_folder->file("a.log");
    list();
    QVERIFY(QFile::remove(m_folder->path("a.log")));
    bool removed = true;
    QCOMPARE(emittedBy(m_directory, [&] { removed = m_directory->deleteFile(0); }), oneListing());
    QVERIFY(!removed);
    QCOMPARE(shownNames(m_directory), QStringList());
}

void tst_DirectoryOperations::indexesCountTheFolderReadUnderAFilter()
{
    const TestDir scripts("/home/ostan/autoprogs");
    scripts.file("a.txt");
    scripts.file("b.py");
    scripts.file("c.txt");
    m_directory->viewScriptDirectory();
    QCOMPARE(shownNames(m_directory), QStringList("b.py"));

    QVERIFY(m_directory->renameFile(2, "d.txt"));
    QVERIFY(m_directory->deleteFile(0));
    QCOMPARE(scripts.names(), QStringList() << "b.py"
                                            << "d.txt");
}

void tst_DirectoryOperations::severalOperationsListOnceEach()
{
    list();
    int shownAtOnce = -1;
    const std::function<void()> operations = [&] {
        m_directory->newDirectory("a");
        m_directory->newDirectory("b");
        m_directory->newDirectory("b");
        shownAtOnce = m_directory->filesCount();
    };
    QCOMPARE(
        emittedBy(m_directory, operations),
        spans("", "filesChanged pathsChanged updateDirectory pathsChanged updateDirectory", ""));
    QCOMPARE(shownAtOnce, 0);
    QCOMPARE(shownNames(m_directory), QStringList() << "a"
                                                    << "b");
}

void tst_DirectoryOperations::beforeTheFirstListingTheWorkingDirectoryCounts()
{
    Directory directory;
    m_elsewhere->file("a.log");
    QVERIFY(directory.exists("a.log"));
    QVERIFY(!directory.newFile("a.log"));
    QVERIFY(directory.newDirectory("soil"));
    QVERIFY(QDir(m_elsewhere->path("soil")).exists());
    QVERIFY(!directory.renameFile(0, "b.log"));
    QVERIFY(!directory.deleteFile(0));

    directory.refresh();
    QVERIFY(!directory.exists("a.log"));
}

void tst_DirectoryOperations::afterAFailedNavigationTheFolderListedCounts()
{
    m_folder->file("a.log");
    list();
    m_directory->setCurrentPath(m_folder->path("missing"));
    QVERIFY(m_directory->exists("a.log"));
    QVERIFY(m_directory->newDirectory("soil"));
    QVERIFY(m_directory->renameFile(0, "b.log"));
    QCOMPARE(m_folder->names(), QStringList() << "b.log"
                                              << "soil");
}

void tst_DirectoryOperations::anObjectMayGoBeforeItsListing()
{
    list();
    QVERIFY(m_directory->newDirectory("soil"));
    m_directory->copySelectedTo(m_elsewhere->path());
    delete m_directory;
    m_directory = nullptr;
    letTimePass(400);
}

QTEST_MAIN(tst_DirectoryOperations)
#include "tst_directoryoperations.moc"
