// Where a Directory goes: root, current path, breadcrumb and the data folders.

#include "directory/directory.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/listing.h"
#include "support/signallog.h"
#include "support/testdir.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QTest>

#include <stdexcept>

#include <sys/stat.h>
#include <unistd.h>

namespace {
const char logs[] = "/home/ostan/logs";

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

/** What a relisting with the same names emits, seen by a later receiver. */
QStringList quietRelisting(const char *cause)
{
    return QStringList() << "pathsChanged"
                         << "updateDirectory" << cause;
}
} // namespace

class tst_DirectoryNavigation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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
    void theScriptFilterHidesOtherFilesButNoFolders();
    void theScriptFilterStaysForOtherFolders();
    void filtersCanBeCountedOnly();
    void dataFoldersAreWhereTheyBelong();
    void theSoilFolderIsMade();
    void theSameViewTwiceDoesNothing();

private:
    TestDir *m_home;
};

void tst_DirectoryNavigation::init()
{
    m_home = new TestDir("/home/ostan");
    QVERIFY(chown("/home/ostan", ostanUid, ostanGid) == 0);
}

void tst_DirectoryNavigation::cleanup()
{
    delete m_home;
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_DirectoryNavigation::setRootMakesAMissingFolderAsTheAccount()
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

void tst_DirectoryNavigation::theSameRootDoesNothing()
{
    Directory directory;
    removeTree(logs);
    SignalLog log(&directory);
    directory.setRoot(logs);
    QCOMPARE(log.names(), QStringList());
    QVERIFY(!QFile::exists(logs));
}

void tst_DirectoryNavigation::aRootThatCannotBeMadeIsNotReported()
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

void tst_DirectoryNavigation::aRootWithoutTheAccountThrowsBeforeAnySignal()
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

void tst_DirectoryNavigation::setCurrentPathIgnoresEmptyAndEqual()
{
    Directory directory;
    SignalLog log(&directory);
    directory.setCurrentPath(QString());
    directory.setCurrentPath(logs);
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(directory.currentPath(), QString(logs));
}

void tst_DirectoryNavigation::aPathOutsideTheRootIsListed()
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

void tst_DirectoryNavigation::selectPathWantsTheRootAnywhereInThePath()
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

void tst_DirectoryNavigation::theBreadcrumbStartsWithTheRoot()
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

void tst_DirectoryNavigation::theTopFolderHasNoBreadcrumb()
{
    Directory directory;
    directory.refresh();
    SignalLog log(&directory);
    directory.setRoot("/");
    QCOMPARE(directory.pathsCount(), 0);
    QCOMPARE(log.count("pathsChanged"), 0);
    QCOMPARE(log.count("filesChanged"), 1);
}

void tst_DirectoryNavigation::aRootBelowTheTopGivesPathsWithTwoSeparators()
{
    Directory directory;
    directory.setRoot("/home");
    QCOMPARE(breadcrumb(&directory), QStringList("home=//home"));
}

void tst_DirectoryNavigation::thePathAboveTheRootGivesWhatQtCallsIt()
{
    Directory directory;
    directory.setCurrentPath("/home/ostan");
    const QString relative = QDir("/home/ostan").relativeFilePath("/home/ostan");
    if (relative.isEmpty())
        QCOMPARE(breadcrumb(&directory), QStringList());
    else
        QCOMPARE(breadcrumb(&directory), QStringList(relative + "=/home/ostan/" + relative));
}

void tst_DirectoryNavigation::oldBreadcrumbItemsLiveOn()
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

void tst_DirectoryNavigation::theScriptFilterHidesOtherFilesButNoFolders()
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

void tst_DirectoryNavigation::theScriptFilterStaysForOtherFolders()
{
    m_home->folder("logs");
    m_home->file("logs/a.log");
    m_home->file("logs/about.py.log");
    Directory directory;
    directory.viewScriptDirectory();
    directory.viewLogDirectory();
    QCOMPARE(shownNames(&directory), QStringList("about.py.log"));
}

void tst_DirectoryNavigation::filtersCanBeCountedOnly()
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

void tst_DirectoryNavigation::dataFoldersAreWhereTheyBelong()
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

void tst_DirectoryNavigation::theSoilFolderIsMade()
{
    Directory directory;
    QCOMPARE(directory.getSoilFluxDirectory(), QString("/home/ostan/logs/soil"));
    QVERIFY(!QFile::exists("/home/ostan/logs/soil"));
    directory.viewSoilFluxDirectory();
    QCOMPARE(ownerOf("/home/ostan/logs/soil"), ostanUid);
    QCOMPARE(directory.filesCount(), 0);
    QCOMPARE(breadcrumb(&directory), QStringList("soil=/home/ostan/logs/soil"));
}

void tst_DirectoryNavigation::theSameViewTwiceDoesNothing()
{
    Directory directory;
    directory.viewConfigsDirectory();
    m_home->file("configs/new.cfg");
    SignalLog log(&directory);
    directory.viewConfigsDirectory();
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(directory.filesCount(), 0);
}

QTEST_MAIN(tst_DirectoryNavigation)
#include "tst_directorynavigation.moc"
