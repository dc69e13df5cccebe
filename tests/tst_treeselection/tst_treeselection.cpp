// Which entry of the tree is selected, and how one is found.

#include "tree/filetreevieweritem.h"

#include "support/testdir.h"
#include "support/tree.h"

#include <QItemSelectionModel>
#include <QTest>

class tst_TreeSelection : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void nothingSelectedReadsEmpty();
    void theSelectionIsReadBack();
    void clearSelectionKeepsThePaths();
    void findSelectsByAbsolutePath();
    void findByBareNameFindsNothing();
    void findGoesToTheOtherFolder();
    void findAddsToTheSelection();
};

void tst_TreeSelection::initTestCase()
{
    qRegisterMetaType<QModelIndex>("QModelIndex");
}

void tst_TreeSelection::nothingSelectedReadsEmpty()
{
    const TestDir dir;
    dir.folder("soil");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil"));
    QCOMPARE(tree.item.absoluteFilePath(), QString());
    QCOMPARE(tree.item.getCurrentItemName(), QString());
    QVERIFY(!tree.item.isDirSelected());
    QModelIndex index = tree.parts.row(dir.path());
    const QModelIndex untouched = index;
    bool found = true;
    QVERIFY(QMetaObject::invokeMethod(&tree.item, "getSelectedModelIndex",
                                      Q_RETURN_ARG(bool, found), Q_ARG(QModelIndex &, index)));
    QVERIFY(!found);
    QCOMPARE(index, untouched);
}

void tst_TreeSelection::theSelectionIsReadBack()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.touch(dir.path("a.csv"));
    QModelIndex index;
    bool found = false;
    QVERIFY(QMetaObject::invokeMethod(&tree.item, "getSelectedProxyIndex",
                                      Q_RETURN_ARG(bool, found), Q_ARG(QModelIndex &, index)));
    QVERIFY(found);
    QCOMPARE(index, tree.parts.row(dir.path("a.csv")));
    QVERIFY(QMetaObject::invokeMethod(&tree.item, "getSelectedModelIndex",
                                      Q_RETURN_ARG(bool, found), Q_ARG(QModelIndex &, index)));
    QVERIFY(found);
    QCOMPARE(index, tree.parts.model->index(dir.path("a.csv")));
}

void tst_TreeSelection::clearSelectionKeepsThePaths()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.touch(dir.path("a.csv"));
    tree.item.clearSelection();
    QCOMPARE(tree.emitted(), QStringList());
    QCOMPARE(tree.item.absoluteFilePath(), QString());
    QVERIFY(!tree.parts.view->currentIndex().isValid());
    QCOMPARE(tree.item.currentFilename(), QString("a.csv"));
    QCOMPARE(tree.item.selectedFilename(), QString("a.csv"));
    QCOMPARE(tree.item.currentFilepath(), dir.path());
}

void tst_TreeSelection::findSelectsByAbsolutePath()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.file("b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv b.csv"));
    tree.item.findAndSelectIndex(dir.path(), dir.path("b.csv"));
    QCOMPARE(tree.emitted(),
             list("selectedFilenameChanged currentFilenameChanged absoluteFilePathChanged"));
    QCOMPARE(tree.item.absoluteFilePath(), dir.path("b.csv"));
    QCOMPARE(tree.parts.view->selectionModel()->selectedRows().count(), 1);
}

void tst_TreeSelection::findByBareNameFindsNothing()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.item.findAndSelectIndex(dir.path(), "a.csv");
    tree.item.findAndSelectIndex(dir.path(), dir.path("A.csv"));
    tree.item.findAndSelectIndex(dir.path(), dir.path());
    tree.item.findAndSelectIndex(dir.path(), QString());
    QCOMPARE(tree.emitted(), QStringList());
    QCOMPARE(tree.item.absoluteFilePath(), QString());
}

void tst_TreeSelection::findGoesToTheOtherFolder()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil"));
    tree.item.findAndSelectIndex(dir.path("soil"), dir.path("soil/b.csv"));
    QCOMPARE(tree.emitted(),
             list("currentFilepathChanged selectedFilenameChanged currentFilenameChanged"));
    QCOMPARE(tree.item.absoluteFilePath(), QString()); // not loaded yet
    QVERIFY(tree.parts.waitFor(dir.path("soil"), "b.csv"));
    tree.item.findAndSelectIndex(dir.path("soil"), dir.path("soil/b.csv"));
    QCOMPARE(tree.item.absoluteFilePath(), dir.path("soil/b.csv"));
}

void tst_TreeSelection::findAddsToTheSelection()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.file("b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv b.csv"));
    tree.item.findAndSelectIndex(dir.path(), dir.path("a.csv"));
    tree.item.findAndSelectIndex(dir.path(), dir.path("b.csv"));
    QCOMPARE(tree.parts.view->selectionModel()->selectedRows().count(), 2);
    QCOMPARE(tree.item.currentFilename(), QString("b.csv"));
}

QTEST_MAIN(tst_TreeSelection)
#include "tst_treeselection.moc"
