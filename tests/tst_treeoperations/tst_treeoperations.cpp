// What the tree creates, renames and deletes as the account.

#include "tree/filetreevieweritem.h"

#include "common/privilegedropguard.h"

#include "support/account.h"
#include "support/signallog.h"
#include "support/testdir.h"
#include "support/treeparts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

#include <sys/stat.h>
#include <unistd.h>

namespace {
const QByteArray unknownAccount = "Unable to drop priviledges: Username 'ostan' not found";
const QString absent = "nothing of this name";

/** The item on the folder of the logs. */
class LogTree
{
public:
    explicit LogTree(const QString &expectedRows)
        : parts(&item)
    {
        item.setRoot("/home/ostan/logs");
        if (!parts.waitFor("/home/ostan/logs", expectedRows))
            qFatal("the logs were not loaded");
    }

    void touch(const QString &path)
    {
        parts.view->setCurrentIndex(parts.row(path));
        item.updateSelection(parts.row(path));
    }

    FileTreeViewerItem item;
    const TreeParts parts;
};

bool wasLoaded(const QSignalSpy &loaded, const QString &path)
{
    for (const QVariantList &arguments : loaded) {
        if (arguments.first() == path)
            return true;
    }
    return false;
}

enum Operation { CreateFile, CreateFolder, DeleteFile, DeleteFolder, Rename };

bool run(FileTreeViewerItem &item, int operation)
{
    switch (operation) {
    case CreateFile:
        return item.createNewFile("new");
    case CreateFolder:
        return item.createNewFolder("new");
    case DeleteFile:
        return item.deleteSelectedFile();
    case DeleteFolder:
        return item.deleteSelectedDir();
    default:
        return item.renameFile("new");
    }
}
} // namespace

class tst_TreeOperations : public QObject
{
    Q_OBJECT

private slots:
    void whatIsCreatedBelongsToTheAccount();
    void anExistingFileIsEmptied();
    void namesReachIntoSubfolders();
    void oddNames_data();
    void oddNames();
    void aFolderThatCantBeMadeIsReportedAsMade();
    void filesGoIntoTheTouchedFolder();

    void withNothingSelectedNothingHappens();
    void theSelectedFileIsDeleted();
    void aLinkIsDeletedAndItsFileStays();
    void theSelectedFolderIsDeletedWithItsContents();
    void onlyEmptyFoldersAreDeletedAsFolders();
    void whatTheAccountMayNotDeleteStays();

    void aRenamedFileIsAnnounced();
    void aRenamedFolderIsAnnouncedWithItsOldPath();
    void renamingNeverOverwrites();
    void existsKnowsFoldersOnly();

    void whatIsOpenedDuringAnOperationShowsWhatTheAccountMayRead();

    void operationsFailWithoutTheAccount_data();
    void operationsFailWithoutTheAccount();
};

void tst_TreeOperations::whatIsCreatedBelongsToTheAccount()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("z.csv");
    LogTree tree("z.csv");
    SignalLog log(&tree.item);
    QVERIFY(tree.item.createNewFile("a.csv"));
    QVERIFY(tree.item.createNewFolder("soil"));
    QCOMPARE(geteuid(), uid_t(0));
    QCOMPARE(log.names(), QStringList());
    QVERIFY(QFileInfo(dir.path("a.csv")).isFile());
    QVERIFY(QFileInfo(dir.path("soil")).isDir());
    QCOMPARE(ownerOf("/home/ostan/logs/a.csv"), ostanUid);
    QCOMPARE(ownerOf("/home/ostan/logs/soil"), ostanUid);
    QVERIFY(tree.parts.waitFor(dir.path(), "soil a.csv z.csv"));
}

void tst_TreeOperations::anExistingFileIsEmptied()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv", QByteArray("data"));
    chmod("/home/ostan/logs/a.csv", 0666);
    LogTree tree("a.csv");
    QVERIFY(tree.item.createNewFile("a.csv"));
    QCOMPARE(dir.contents("a.csv"), QByteArray(""));

    dir.file("b.csv", QByteArray("data"));
    chmod("/home/ostan/logs/b.csv", 0600); // root's own
    QVERIFY(!tree.item.createNewFile("b.csv"));
    QCOMPARE(dir.contents("b.csv"), QByteArray("data"));
}

void tst_TreeOperations::namesReachIntoSubfolders()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil");
    chmod("/home/ostan/logs/soil", 0777);
    LogTree tree("soil");
    QVERIFY(tree.item.createNewFile("soil/a.csv"));
    QVERIFY(QFile::exists(dir.path("soil/a.csv")));
    QVERIFY(!tree.item.createNewFile("missing/a.csv"));
    QVERIFY(!tree.item.createNewFile("")); // the folder itself
}

void tst_TreeOperations::oddNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << " a  b ";
    QTest::newRow("newline") << "a\nb";
    QTest::newRow("quotes") << "\"a'b\"";
    QTest::newRow("umlaut") << QString::fromUtf8("m\xC3\xBCll");
    QTest::newRow("255 bytes") << QString(255, 'x');
}

void tst_TreeOperations::oddNames()
{
    QFETCH(QString, name);
    const TestDir dir("/home/ostan/logs");
    dir.file("z.csv");
    LogTree tree("z.csv");
    QVERIFY(tree.item.createNewFile(name));
    QVERIFY(waitUntil([&] { return tree.parts.names(dir.path()).contains(name); }));
    tree.touch(dir.path(name));
    QCOMPARE(tree.item.currentFilename(), name);
    QCOMPARE(tree.item.absoluteFilePath(), dir.path(name));
    QVERIFY(tree.item.deleteSelectedFile());
    QVERIFY(tree.item.createNewFolder(name));
    QCOMPARE(ownerOf(QFile::encodeName(dir.path(name))), ostanUid);
    QVERIFY(!tree.item.createNewFile(QString(256, 'x')));
}

void tst_TreeOperations::aFolderThatCantBeMadeIsReportedAsMade()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv");
    LogTree tree("a.csv");
    QVERIFY(tree.item.createNewFolder("a.csv"));
    QVERIFY(tree.item.createNewFolder(QString(256, 'x')));
    tree.item.setCurrentFilepath("/nowhere");
    QVERIFY(tree.item.createNewFolder("soil"));
    QCOMPARE(dir.names(), QStringList("a.csv"));
}

void tst_TreeOperations::filesGoIntoTheTouchedFolder()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil");
    chmod("/home/ostan/logs/soil", 0777);
    LogTree tree("soil");
    tree.touch(dir.path("soil"));
    QVERIFY(tree.item.createNewFile("a.csv"));
    QVERIFY(tree.item.createNewFolder("deep"));
    QVERIFY(QFile::exists(dir.path("soil/a.csv")));
    QVERIFY(QFile::exists(dir.path("soil/deep")));
}

void tst_TreeOperations::withNothingSelectedNothingHappens()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv");
    LogTree tree("a.csv");
    SignalLog log(&tree.item);
    QVERIFY(!tree.item.deleteSelectedFile());
    QVERIFY(!tree.item.deleteSelectedDir());
    QVERIFY(!tree.item.renameFile("b.csv"));
    QCOMPARE(dir.names(), QStringList("a.csv"));
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_TreeOperations::theSelectedFileIsDeleted()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv");
    dir.file("b.csv");
    LogTree tree("a.csv b.csv");
    tree.touch(dir.path("a.csv"));
    QVERIFY(!tree.item.deleteSelectedDir()); // it is no folder
    QVERIFY(tree.item.deleteSelectedFile());
    QCOMPARE(dir.names(), QStringList("b.csv"));
    QVERIFY(tree.parts.waitFor(dir.path(), "b.csv"));
    QCOMPARE(tree.item.currentFilename(), QString("a.csv"));
}

void tst_TreeOperations::aLinkIsDeletedAndItsFileStays()
{
    const TestDir dir("/home/ostan/logs");
    const TestDir elsewhere;
    elsewhere.file("a.csv");
    QVERIFY(QFile::link(elsewhere.path("a.csv"), dir.path("link")));
    LogTree tree("link");
    tree.touch(dir.path("link"));
    QVERIFY(tree.item.deleteSelectedFile());
    QCOMPARE(dir.names(), QStringList());
    QCOMPARE(elsewhere.names(), QStringList("a.csv"));
}

void tst_TreeOperations::theSelectedFolderIsDeletedWithItsContents()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil");
    chmod("/home/ostan/logs/soil", 0777);
    dir.file("soil/a.csv");
    dir.file("z.csv");
    LogTree tree("soil z.csv");
    tree.touch(dir.path("soil"));
    QVERIFY(tree.item.deleteSelectedFile());
    QCOMPARE(dir.names(), QStringList("z.csv"));
}

void tst_TreeOperations::onlyEmptyFoldersAreDeletedAsFolders()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil");
    chmod("/home/ostan/logs/soil", 0777);
    dir.file("soil/a.csv");
    dir.file("z.csv");
    LogTree tree("soil z.csv");
    tree.touch(dir.path("soil"));
    QVERIFY(!tree.item.deleteSelectedDir());
    QVERIFY(QFile::exists(dir.path("soil/a.csv")));
    QVERIFY(QFile::remove(dir.path("soil/a.csv")));
    QVERIFY(tree.item.deleteSelectedDir());
    QCOMPARE(dir.names(), QStringList("z.csv"));
}

void tst_TreeOperations::whatTheAccountMayNotDeleteStays()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv");
    LogTree tree("a.csv");
    tree.touch(dir.path("a.csv"));
    chmod("/home/ostan/logs", 0755); // root's own
    QVERIFY(!tree.item.deleteSelectedFile());
    QVERIFY(!tree.item.renameFile("b.csv"));
    QVERIFY(!tree.item.createNewFile("c.csv"));
    QCOMPARE(dir.names(), QStringList("a.csv"));
}

void tst_TreeOperations::aRenamedFileIsAnnounced()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv", QByteArray("data"));
    LogTree tree("a.csv");
    tree.touch(dir.path("a.csv"));
    SignalLog log(&tree.item);
    const QSignalSpy renamed(&tree.item, SIGNAL(fileRenamed(QString, QString)));
    QVERIFY(tree.item.renameFile("b.csv"));
    QCOMPARE(log.names(), QStringList("fileRenamed"));
    QCOMPARE(renamed.first().at(0).toString(), dir.path());
    QCOMPARE(renamed.first().at(1).toString(), dir.path("b.csv"));
    QCOMPARE(dir.names(), QStringList("b.csv"));
    QCOMPARE(dir.contents("b.csv"), QByteArray("data"));
    QCOMPARE(tree.item.currentFilename(), QString("a.csv"));
    QCOMPARE(tree.item.selectedFilename(), QString("a.csv"));
}

void tst_TreeOperations::aRenamedFolderIsAnnouncedWithItsOldPath()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil");
    LogTree tree("soil");
    tree.touch(dir.path("soil"));
    const QSignalSpy renamed(&tree.item, SIGNAL(fileRenamed(QString, QString)));
    QVERIFY(tree.item.renameFile("flux"));
    QCOMPARE(renamed.count(), 1);
    QCOMPARE(renamed.first().at(0).toString(), dir.path("soil"));
    QCOMPARE(renamed.first().at(1).toString(), dir.path("flux"));
}

void tst_TreeOperations::renamingNeverOverwrites()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv", QByteArray("a"));
    dir.file("b.csv", QByteArray("b"));
    LogTree tree("a.csv b.csv");
    tree.touch(dir.path("a.csv"));
    SignalLog log(&tree.item);
    QVERIFY(!tree.item.renameFile("b.csv"));
    QVERIFY(!tree.item.renameFile("missing/a.csv"));
    QVERIFY(!tree.item.renameFile(QString(256, 'x')));
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(dir.contents("b.csv"), QByteArray("b"));
    QCOMPARE(dir.names().count(), 2);
}

void tst_TreeOperations::existsKnowsFoldersOnly()
{
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv");
    LogTree tree("a.csv");
    SignalLog log(&tree.item);
    QVERIFY(tree.item.exists(dir.path()));
    QVERIFY(!tree.item.exists(dir.path("a.csv")));
    QVERIFY(!tree.item.exists(dir.path(absent)));
    QVERIFY(!tree.item.exists(absent)); // relative to the working folder
    QVERIFY(tree.item.exists(""));
    QVERIFY(tree.item.exists("."));
    QCOMPARE(log.names(), QStringList());
}

// The thread that reads the folders has its user id switched with all others.
void tst_TreeOperations::whatIsOpenedDuringAnOperationShowsWhatTheAccountMayRead()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("open");
    dir.folder("roots");
    dir.file("open/a.csv");
    dir.file("roots/a.csv");
    chmod("/home/ostan/logs/roots", 0700);
    LogTree tree("open roots");
    QSignalSpy loaded(tree.parts.model, SIGNAL(directoryLoaded(QString)));
    {
        const PrivilegeDropGuard operation;
        tree.parts.view->expand(tree.parts.row(dir.path("open")));
        tree.parts.view->expand(tree.parts.row(dir.path("roots")));
        QVERIFY(tree.parts.waitFor(dir.path("open"), "a.csv"));
        QVERIFY(waitUntil([&] { return wasLoaded(loaded, dir.path("roots")); }));
        QCOMPARE(tree.parts.names(dir.path("roots")), QStringList());
    }
    LogTree another("open roots");
    another.parts.view->expand(another.parts.row(dir.path("roots")));
    QVERIFY(another.parts.waitFor(dir.path("roots"), "a.csv"));
    QCOMPARE(tree.parts.names(dir.path("roots")), QStringList());
}

void tst_TreeOperations::operationsFailWithoutTheAccount_data()
{
    QTest::addColumn<int>("operation");
    QTest::newRow("create a file") << int(CreateFile);
    QTest::newRow("create a folder") << int(CreateFolder);
    QTest::newRow("delete a file") << int(DeleteFile);
    QTest::newRow("delete a folder") << int(DeleteFolder);
    QTest::newRow("rename") << int(Rename);
}

void tst_TreeOperations::operationsFailWithoutTheAccount()
{
    QFETCH(int, operation);
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv");
    dir.folder("soil");
    LogTree tree("soil a.csv");
    tree.touch(dir.path(operation == DeleteFolder ? "soil" : "a.csv"));
    const AccountDatabase withoutTheAccount("root:x:0:0:root:/root:/bin/sh\n");
    SignalLog log(&tree.item);
    QByteArray failure = "none";
    try {
        run(tree.item, operation);
    } catch (const std::runtime_error &error) {
        failure = error.what();
    }
    QCOMPARE(failure, unknownAccount);
    QCOMPARE(geteuid(), uid_t(0));
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(dir.names().join(" "), QString("a.csv soil"));
}

QTEST_MAIN(tst_TreeOperations)
#include "tst_treeoperations.moc"
