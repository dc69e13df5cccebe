// The words that names in the tree must have.

#include "tree/filetreevieweritem.h"

#include "support/testdir.h"
#include "support/tree.h"

#include <QTest>

class tst_TreeFilter : public QObject
{
    Q_OBJECT

private slots:
    void filterWordsAreSplitAtCommas_data();
    void filterWordsAreSplitAtCommas();
    void filtersReachTheModelOnlyWhileOn();
    void clearedWordsStayInForce();
    void onlySettingWordsOpensTheTreeWithoutWords();
    void filteredFilesAreHidden();
};

void tst_TreeFilter::filterWordsAreSplitAtCommas_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("patterns");
    QTest::newRow("two words") << "abc,,de f"
                               << "abc,de f"
                               << (QStringList() << "*abc*"
                                                 << "*de f*");
    QTest::newRow("blanks belong to the word") << "a, b"
                                               << "a, b"
                                               << (QStringList() << "*a*"
                                                                 << "* b*");
    QTest::newRow("only commas") << ",,"
                                 << "" << QStringList();
    QTest::newRow("nothing") << ""
                             << "" << QStringList();
}

void tst_TreeFilter::filterWordsAreSplitAtCommas()
{
    QFETCH(QString, text);
    QFETCH(QString, words);
    QFETCH(QStringList, patterns);
    Tree tree;
    tree.item.setNameFilters(text);
    tree.item.setNameFilters(text);
    QCOMPARE(tree.emitted(), list("nameFiltersChanged nameFiltersChanged"));
    QCOMPARE(tree.item.nameFilters(), words);
    QCOMPARE(tree.item.getNameFilters(), QStringList());
    tree.item.setNameFilterOn(true);
    tree.item.setNameFilterOn(true);
    QCOMPARE(tree.emitted(), list("nameFilterOnChanged"));
    QCOMPARE(tree.item.getNameFilters(), patterns);
    QCOMPARE(tree.parts.model->nameFilters(), patterns);
}

void tst_TreeFilter::filtersReachTheModelOnlyWhileOn()
{
    Tree tree;
    tree.item.setNameFilterOn(true);
    tree.item.setNameFilters("a");
    QCOMPARE(tree.item.getNameFilters(), QStringList("*a*"));
    tree.item.setNameFilterOn(false);
    QCOMPARE(tree.item.getNameFilters(), QStringList());
    QCOMPARE(tree.item.nameFilters(), QString("a"));
    tree.item.setNameFilters("b");
    QCOMPARE(tree.item.getNameFilters(), QStringList());
}

void tst_TreeFilter::clearedWordsStayInForce()
{
    Tree tree;
    tree.item.setNameFilterOn(true);
    tree.item.setNameFilters("a");
    tree.emitted();
    tree.item.clearNameFilters();
    QCOMPARE(tree.emitted(), list("nameFiltersChanged"));
    QCOMPARE(tree.item.nameFilters(), QString());
    QCOMPARE(tree.item.getNameFilters(), QStringList("*a*"));
    tree.item.setNameFilterOn(false);
    QCOMPARE(tree.item.getNameFilters(), QStringList());
}

void tst_TreeFilter::onlySettingWordsOpensTheTreeWithoutWords()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil"));
    const QModelIndex folder = tree.parts.row(dir.path("soil"));
    tree.item.setNameFilterOn(true);
    QVERIFY(!tree.parts.view->isExpanded(folder));
    tree.item.setNameFilters("");
    QVERIFY(tree.parts.view->isExpanded(folder));

    tree.item.collapseAll();
    QVERIFY(!tree.parts.view->isExpanded(folder));
    tree.item.expandAll();
    QVERIFY(tree.parts.view->isExpanded(folder));

    tree.item.collapseAll();
    tree.item.setNameFilterOn(false);
    tree.item.setNameFilters("b");
    QVERIFY(!tree.parts.view->isExpanded(folder));
    tree.item.setNameFilterOn(true);
    QVERIFY(tree.parts.view->isExpanded(folder));
    tree.item.setNameFilterOn(false);
    QVERIFY(tree.parts.view->isExpanded(folder));
}

void tst_TreeFilter::filteredFilesAreHidden()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("June.csv");
    dir.file("july.csv");
    dir.file("august.txt");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil June.csv august.txt july.csv"));
    tree.item.setNameFilters("ju,xyz");
    tree.item.setNameFilterOn(true);
    QVERIFY(tree.parts.waitFor(dir.path(), "soil June.csv july.csv"));
    tree.item.clearNameFilters();
    letTimePass(100);
    QCOMPARE(tree.parts.names(dir.path()), list("soil June.csv july.csv"));
    tree.item.setNameFilterOn(false);
    QVERIFY(tree.parts.waitFor(dir.path(), "soil June.csv august.txt july.csv"));
}

QTEST_MAIN(tst_TreeFilter)
#include "tst_treefilter.moc"
