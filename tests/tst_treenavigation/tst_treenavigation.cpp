// Which folder the tree shows, and what a touch changes.

#include "tree/filetreevieweritem.h"

#include "support/testdir.h"
#include "support/tree.h"

#include <QDir>
#include <QTest>

namespace {
const QString logs = "/home/ostan/logs";
const QString soil = "/home/ostan/logs/soil";
const QString configurations = "/home/ostan/configs";
} // namespace

class tst_TreeNavigation : public QObject
{
    Q_OBJECT

private slots:
    void aRootThatIsNoFolderIsIgnored_data();
    void aRootThatIsNoFolderIsIgnored();
    void aRootIsShownAndNotAnnounced();
    void theSameRootAgainAnnouncesTheNameOnly();
    void anEmptyRootShowsTheWholeFileSystem();
    void currentPathLeavesRootAsItIs();
    void dataFoldersAreShown();
    void soilFluxFallsBackToTheLogs();

    void settersTellWhatChanged();
    void aTouchOnAFileSetsFolderAndName();
    void aTouchOnTheSameFileAnnouncesNameAndPathOnly();
    void aTouchOnAFileInAnotherFolderEmptiesTheSelectedNameFirst();
    void theSameNameInAnotherFolderLeavesTheSelectedNameEmpty();
    void aTouchOnAFolderOpensAndClosesIt();
    void aTouchOnAnotherColumnOpensAndClosesToo();
    void withOpenDirsATouchGoesIntoTheFolder();
    void aTouchOfNothingIsAFolderWithoutAPath();
};

void tst_TreeNavigation::aRootThatIsNoFolderIsIgnored_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << "/home/ostan/missing";
    QTest::newRow("a file") << "/home/ostan/logs/a.csv";
    QTest::newRow("a newline") << "/home/ostan/logs\n";
    QTest::newRow("far too long") << "/" + QString(5000, 'x');
}

void tst_TreeNavigation::aRootThatIsNoFolderIsIgnored()
{
    QFETCH(QString, path);
    const TestDir dir(logs);
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(logs, "a.csv"));
    tree.touch(dir.path("a.csv"));
    tree.item.setRoot(path);
    tree.item.setCurrentPath(path);
    QCOMPARE(tree.emitted(), QStringList());
    QCOMPARE(tree.item.root(), logs);
    QCOMPARE(tree.item.currentFilepath(), logs);
    QCOMPARE(tree.item.currentFilename(), QString("a.csv"));
    QCOMPARE(tree.item.absoluteFilePath(), dir.path("a.csv"));
    QCOMPARE(tree.parts.view->rootIndex(), tree.parts.row(logs));
}

void tst_TreeNavigation::aRootIsShownAndNotAnnounced()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    tree.item.setRoot(dir.path());
    QCOMPARE(tree.emitted(),
             list("currentFilepathChanged selectedFilenameChanged currentFilenameChanged"));
    QCOMPARE(tree.item.root(), dir.path());
    QCOMPARE(tree.item.currentFilepath(), dir.path());
    QCOMPARE(tree.parts.model->rootPath(), dir.path());
    QCOMPARE(tree.parts.view->rootIndex(), tree.parts.row(dir.path()));
    QVERIFY(tree.parts.waitFor(dir.path(), "a.csv"));
}

void tst_TreeNavigation::theSameRootAgainAnnouncesTheNameOnly()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.item.setRoot(dir.path());
    QCOMPARE(tree.emitted(), list("currentFilenameChanged"));
}

void tst_TreeNavigation::anEmptyRootShowsTheWholeFileSystem()
{
    const TestDir dir;
    Tree tree;
    tree.item.setRoot(dir.path());
    tree.item.setRoot("");
    QCOMPARE(tree.item.root(), QString());
    QCOMPARE(tree.item.currentFilepath(), QString());
    QVERIFY(!tree.parts.view->rootIndex().isValid());
}

void tst_TreeNavigation::currentPathLeavesRootAsItIs()
{
    const TestDir dir;
    dir.folder("soil");
    Tree tree;
    tree.item.setRoot(dir.path());
    tree.item.setCurrentPath(dir.path("soil"));
    QCOMPARE(tree.item.root(), dir.path());
    QCOMPARE(tree.item.currentFilepath(), dir.path("soil"));
    QCOMPARE(tree.parts.view->rootIndex(), tree.parts.row(dir.path("soil")));
}

void tst_TreeNavigation::dataFoldersAreShown()
{
    const TestDir logFolder(logs);
    const TestDir soilFolder(soil);
    const TestDir configFolder(configurations);
    FileTreeViewerItem item;
    item.viewConfigsDirectory();
    QCOMPARE(item.root(), configurations);
    item.viewLogDirectory();
    QCOMPARE(item.root(), logs);
    item.viewSoilFluxDirectory();
    QCOMPARE(item.root(), soil);
    QCOMPARE(item.currentFilepath(), soil);
    QCOMPARE(item.getSoilFluxDirectory(), soil);
}

void tst_TreeNavigation::soilFluxFallsBackToTheLogs()
{
    const TestDir logFolder(logs);
    FileTreeViewerItem item;
    item.viewSoilFluxDirectory();
    QCOMPARE(item.root(), logs);
    QVERIFY(!QDir(soil).exists());
    QCOMPARE(item.getSoilFluxDirectory(), soil);
    item.viewConfigsDirectory(); // there are none
    QCOMPARE(item.root(), logs);
}

void tst_TreeNavigation::settersTellWhatChanged()
{
    Tree tree;
    tree.item.setCurrentFilename("a");
    QCOMPARE(tree.emitted(), list("selectedFilenameChanged currentFilenameChanged"));
    QCOMPARE(tree.item.selectedFilename(), QString("a"));
    tree.item.setCurrentFilename("a");
    QCOMPARE(tree.emitted(), list("currentFilenameChanged"));

    tree.item.setSelectedFilename("b");
    tree.item.setSelectedFilename("b");
    QCOMPARE(tree.emitted(), list("selectedFilenameChanged"));
    QCOMPARE(tree.item.currentFilename(), QString("a"));

    tree.item.setCurrentFilepath("/tmp");
    tree.item.setCurrentFilepath("/tmp");
    QCOMPARE(tree.emitted(), list("currentFilepathChanged selectedFilenameChanged"));
    QVERIFY(tree.item.selectedFilename().isNull());
    QCOMPARE(tree.item.currentFilename(), QString("a"));
    QVERIFY(!tree.parts.view->rootIndex().isValid()); // the view stays where it is
}

void tst_TreeNavigation::aTouchOnAFileSetsFolderAndName()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil a.csv"));
    QCOMPARE(tree.touch(dir.path("a.csv")),
             list("selectedFilenameChanged currentFilenameChanged absoluteFilePathChanged"));
    QCOMPARE(tree.item.currentFilepath(), dir.path());
    QCOMPARE(tree.item.currentFilename(), QString("a.csv"));
    QCOMPARE(tree.item.selectedFilename(), QString("a.csv"));
    QCOMPARE(tree.item.absoluteFilePath(), dir.path("a.csv"));
    QCOMPARE(tree.item.getCurrentItemName(), QString("a.csv"));
    QVERIFY(!tree.item.isDirSelected());
}

void tst_TreeNavigation::aTouchOnTheSameFileAnnouncesNameAndPathOnly()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.touch(dir.path("a.csv"));
    QCOMPARE(tree.touch(dir.path("a.csv")), list("currentFilenameChanged absoluteFilePathChanged"));
}

void tst_TreeNavigation::aTouchOnAFileInAnotherFolderEmptiesTheSelectedNameFirst()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil a.csv"));
    QVERIFY(tree.open(dir.path("soil"), "b.csv"));
    tree.touch(dir.path("a.csv"));
    QCOMPARE(tree.touch(dir.path("soil/b.csv")),
             list("currentFilepathChanged selectedFilenameChanged selectedFilenameChanged "
                  "currentFilenameChanged absoluteFilePathChanged"));
    QCOMPARE(tree.item.currentFilepath(), dir.path("soil"));
    QCOMPARE(tree.item.selectedFilename(), QString("b.csv"));
}

void tst_TreeNavigation::theSameNameInAnotherFolderLeavesTheSelectedNameEmpty()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.folder("soil");
    dir.file("soil/a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil a.csv"));
    QVERIFY(tree.open(dir.path("soil"), "a.csv"));
    tree.touch(dir.path("a.csv"));
    QCOMPARE(tree.touch(dir.path("soil/a.csv")),
             list("currentFilepathChanged selectedFilenameChanged currentFilenameChanged "
                  "absoluteFilePathChanged"));
    QCOMPARE(tree.item.currentFilename(), QString("a.csv"));
    QCOMPARE(tree.item.selectedFilename(), QString());
}

void tst_TreeNavigation::aTouchOnAFolderOpensAndClosesIt()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil"));
    const QStringList first = list("currentFilepathChanged selectedFilenameChanged "
                                   "currentFilenameChanged absoluteFilePathChanged");
    QCOMPARE(tree.touch(dir.path("soil")), first);
    QVERIFY(tree.parts.view->isExpanded(tree.parts.row(dir.path("soil"))));
    QCOMPARE(tree.item.currentFilepath(), dir.path("soil"));
    QCOMPARE(tree.item.currentFilename(), QString());
    QCOMPARE(tree.item.absoluteFilePath(), dir.path("soil"));
    QVERIFY(tree.item.isDirSelected());
    QCOMPARE(tree.item.root(), dir.path());
    QCOMPARE(tree.parts.view->rootIndex(), tree.parts.row(dir.path()));

    QCOMPARE(tree.touch(dir.path("soil")), list("currentFilenameChanged absoluteFilePathChanged"));
    QVERIFY(!tree.parts.view->isExpanded(tree.parts.row(dir.path("soil"))));

    tree.item.setShowRoot(false); // still opens: only branches do not
    tree.touch(dir.path("soil"));
    QVERIFY(tree.parts.view->isExpanded(tree.parts.row(dir.path("soil"))));
}

void tst_TreeNavigation::aTouchOnAnotherColumnOpensAndClosesToo()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil"));
    const int dateColumn = 3;
    tree.item.updateSelection(tree.parts.row(dir.path("soil"), dateColumn));
    QVERIFY(tree.parts.view->isExpanded(tree.parts.row(dir.path("soil"))));
    tree.item.updateSelection(tree.parts.row(dir.path("soil"), dateColumn));
    QVERIFY(!tree.parts.view->isExpanded(tree.parts.row(dir.path("soil"))));
    QCOMPARE(tree.item.currentFilepath(), dir.path("soil"));
}

void tst_TreeNavigation::withOpenDirsATouchGoesIntoTheFolder()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil"));
    tree.item.setOpenDirs(true);
    QCOMPARE(tree.touch(dir.path("soil")),
             list("currentFilepathChanged selectedFilenameChanged currentFilenameChanged "
                  "absoluteFilePathChanged"));
    QCOMPARE(tree.parts.view->rootIndex(), tree.parts.row(dir.path("soil")));
    QCOMPARE(tree.item.currentFilepath(), dir.path("soil"));
    QCOMPARE(tree.item.root(), dir.path());
    QCOMPARE(tree.item.absoluteFilePath(), QString()); // a new path selects nothing
}

void tst_TreeNavigation::aTouchOfNothingIsAFolderWithoutAPath()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.touch(dir.path("a.csv"));
    tree.item.updateSelection(QModelIndex());
    QCOMPARE(tree.emitted(),
             list("selectedFilenameChanged currentFilenameChanged absoluteFilePathChanged"));
    QCOMPARE(tree.item.currentFilepath(), dir.path());
    QCOMPARE(tree.item.currentFilename(), QString());
}

QTEST_MAIN(tst_TreeNavigation)
#include "tst_treenavigation.moc"
