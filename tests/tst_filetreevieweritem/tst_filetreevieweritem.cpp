#include "tree/filetreevieweritem.h"

#include "support/debuglog.h"
#include "support/loading.h"
#include "support/surface.h"
#include "support/testdir.h"
#include "support/tree.h"

#include <QDir>
#include <QHeaderView>
#include <QMetaMethod>
#include <QTest>

namespace {
QByteArray signatureOf(const QMetaMethod &method)
{
#if QT_VERSION < 0x050000
    return method.signature();
#else
    return method.methodSignature();
#endif
}
} // namespace

class tst_FileTreeViewerItem : public QObject
{
    Q_OBJECT

private slots:
    void propertiesSignalsAndSlotsStandInTheirOrder();
    void parametersHaveTheirNames();
    void aNewItemHasItsInitialValues();
    void theViewIsSetUpForTouch();
    void theViewHasItsColumns();

    void sizesOfZeroLeaveTheViewAlone();
    void theViewIsPinnedToTheItemsSize();
    void columnsCanBeSizedAndHidden();
    void openDirsAndShowRootEmitOnAChangeOnly();
    void showRootDrawsAndOpensBranches();
    void dirsFirstIsRelayedOnce();
    void isSelectableEmitsNothing();

    void checkingIsRelayedOncePerChange();
    void selectAllAndClearAllReachTheModel();
    void copyUnchecksAndLoadsTheDestination();
    void theTaggedPathReachesTheModel();
    void aGrowingFileFindsItsPlaceInTheOrder();
};

void tst_FileTreeViewerItem::propertiesSignalsAndSlotsStandInTheirOrder()
{
    const QStringList expected = QStringList()
                                 << "QString root rw rootChanged"
                                 << "QString absoluteFilePath r absoluteFilePathChanged"
                                 << "QString currentFilename rw currentFilenameChanged"
                                 << "QString currentFilepath rw currentFilepathChanged"
                                 << "QString selectedFilename rw selectedFilenameChanged"
                                 << "bool dirsFirst rw dirsFirstChanged"
                                 << "bool openDirs rw openDirsChanged"
                                 << "bool showRoot rw showRootChanged"
                                 << "bool isSelectable rw isSelectableChanged"
                                 << "quint64 checkedFilesKB r checkedFilesKBChanged"
                                 << "QString nameFilters rw nameFiltersChanged"
                                 << "bool nameFilterOn rw nameFilterOnChanged"
                                 << "signal void absoluteFilePathChanged()"
                                 << "signal void checkedFilesKBChanged()"
                                 << "signal void currentFilenameChanged()"
                                 << "signal void currentFilepathChanged()"
                                 << "signal void dirsFirstChanged()"
                                 << "signal void isSelectableChanged()"
                                 << "signal void fileRenamed(QString,QString)"
                                 << "signal void openDirsChanged()"
                                 << "signal void nameFiltersChanged()"
                                 << "signal void nameFilterOnChanged()"
                                 << "signal void rootChanged()"
                                 << "signal void selectedFilenameChanged()"
                                 << "signal void showRootChanged()"
                                 << "slot void redrawView()"
                                 << "slot void updateSelection(QModelIndex)"
                                 << "slot void setColumnWidth(int,int)"
                                 << "slot void setColumnHidden(int,bool)"
                                 << "slot QString absoluteFilePath()"
                                 << "slot void collapseAll()"
                                 << "slot void expandAll()"
                                 << "slot QString getSoilFluxDirectory()"
                                 << "slot void setCurrentPath(QString)"
                                 << "slot void setDirsFirst(bool)"
                                 << "slot void setOpenDirs(bool)"
                                 << "slot void setRoot(QString)"
                                 << "slot void setShowRoot(bool)"
                                 << "slot void viewConfigsDirectory()"
                                 << "slot void viewLogDirectory()"
                                 << "slot void viewSoilFluxDirectory()"
                                 << "slot void clearNameFilters()"
                                 << "slot QStringList getNameFilters()"
                                 << "slot void setNameFilters(QString)"
                                 << "slot bool createNewFile(QString)"
                                 << "slot bool createNewFolder(QString)"
                                 << "slot bool deleteSelectedDir()"
                                 << "slot bool deleteSelectedFile()"
                                 << "slot bool exists(QString)"
                                 << "slot bool isDirSelected()"
                                 << "slot void listSelectedFiles()"
                                 << "slot bool renameFile(QString)"
                                 << "slot void setTaggedPath(QString)"
                                 << "slot void clearSelection()"
                                 << "slot void findAndSelectIndex(QString,QString)"
                                 << "slot void selectAll()"
                                 << "slot void clearAll()"
                                 << "slot QString copyCheckedFilesTo(QString)"
                                 << "slot void updateCheckedFileKB()"
                                 << "slot QString getCurrentItemName()"
                                 << "private slot void selectDir(QModelIndex)"
                                 << "private slot void selectFile(QModelIndex)"
                                 << "private slot void viewPressed(QModelIndex)"
                                 << "private slot bool getSelectedModelIndex(QModelIndex&)"
                                 << "private slot bool getSelectedProxyIndex(QModelIndex&)";
    QStringList lines = surface(FileTreeViewerItem::staticMetaObject);
    lines.replaceInStrings("qulonglong", "quint64"); // how Qt 5 reads the same type
    QCOMPARE(lines, expected);
}

void tst_FileTreeViewerItem::parametersHaveTheirNames()
{
    const QMetaObject &type = FileTreeViewerItem::staticMetaObject;
    QStringList named;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        QStringList names;
        for (const QByteArray &name : method.parameterNames())
            names.append(name.isEmpty() ? QString("unnamed") : QString(name));
        const QByteArray signature = signatureOf(method);
        if (!names.isEmpty())
            named.append(signature.left(signature.indexOf('(')) + ": " + names.join(" "));
    }
    QCOMPARE(named, QStringList() << "fileRenamed: path renamedFilePath"
                                  << "updateSelection: index"
                                  << "setColumnWidth: column width"
                                  << "setColumnHidden: column hide"
                                  << "setCurrentPath: str"
                                  << "setDirsFirst: dirsfirst"
                                  << "setOpenDirs: doOpen"
                                  << "setRoot: str"
                                  << "setShowRoot: doShow"
                                  << "setNameFilters: filters"
                                  << "createNewFile: unnamed"
                                  << "createNewFolder: unnamed"
                                  << "exists: unnamed"
                                  << "renameFile: unnamed"
                                  << "setTaggedPath: path"
                                  << "findAndSelectIndex: path name"
                                  << "copyCheckedFilesTo: dest"
                                  << "selectDir: index"
                                  << "selectFile: index"
                                  << "viewPressed: index"
                                  << "getSelectedModelIndex: modelIndex"
                                  << "getSelectedProxyIndex: proxyIndex");
}

void tst_FileTreeViewerItem::aNewItemHasItsInitialValues()
{
    const FileTreeViewerItem item;
    QCOMPARE(item.property("root").toString(), QString());
    QCOMPARE(item.property("absoluteFilePath").toString(), QString());
    QCOMPARE(item.property("currentFilename").toString(), QString());
    QCOMPARE(item.property("currentFilepath").toString(), QDir::currentPath());
    QCOMPARE(item.property("selectedFilename").toString(), QString());
    QCOMPARE(item.property("dirsFirst"), QVariant(true));
    QCOMPARE(item.property("openDirs"), QVariant(false));
    QCOMPARE(item.property("showRoot"), QVariant(true));
    QCOMPARE(item.property("isSelectable"), QVariant(false));
    QCOMPARE(item.property("checkedFilesKB").toULongLong(), quint64(0));
    QCOMPARE(item.property("nameFilters").toString(), QString());
    QCOMPARE(item.property("nameFilterOn"), QVariant(false));
    QVERIFY(!item.QGraphicsItem::flags().testFlag(QGraphicsItem::ItemHasNoContents));
}

void tst_FileTreeViewerItem::theViewIsSetUpForTouch()
{
    FileTreeViewerItem item;
    const TreeParts parts(&item);
    const QTreeView &view = *parts.view;
    QVERIFY(!static_cast<const QObject &>(view).parent());
    QVERIFY(view.uniformRowHeights());
    QVERIFY(view.rootIsDecorated());
    QVERIFY(view.itemsExpandable());
    QVERIFY(!view.testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(view.focusPolicy(), Qt::NoFocus);
    QCOMPARE(view.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(view.selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(view.textElideMode(), Qt::ElideMiddle);
    QCOMPARE(view.indentation(), 24);
    QCOMPARE(view.verticalScrollMode(), QAbstractItemView::ScrollPerItem);
    QCOMPARE(view.horizontalScrollMode(), QAbstractItemView::ScrollPerItem);
    QVERIFY(!view.rootIndex().isValid());
    QCOMPARE(parts.model->rootPath(), QFileSystemModel().rootPath());
    QVERIFY(parts.proxyModel->dynamicSortFilter());
}

void tst_FileTreeViewerItem::theViewHasItsColumns()
{
    FileTreeViewerItem item;
    const TreeParts parts(&item);
    QTreeView plain;
    plain.setModel(parts.model);
    QCOMPARE(parts.view->columnWidth(0), 260);
    QCOMPARE(parts.view->columnWidth(1), plain.columnWidth(1));
    QVERIFY(parts.view->isColumnHidden(2));
    QVERIFY(parts.view->isSortingEnabled());
    QCOMPARE(parts.view->header()->sortIndicatorSection(), 0);
    QCOMPARE(parts.view->header()->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(parts.proxyModel->sortColumn(), 0);
    QCOMPARE(parts.proxyModel->sortOrder(), Qt::AscendingOrder);
}

void tst_FileTreeViewerItem::sizesOfZeroLeaveTheViewAlone()
{
    FileTreeViewerItem item;
    const TreeParts parts(&item);
    const QSizeF minimum = parts.proxyWidget->minimumSize();
    const QSizeF maximum = parts.proxyWidget->maximumSize();
    item.setWidth(400);
    item.setHeight(-1);
    item.redrawView();
    item.setWidth(0);
    item.setHeight(300);
    QCOMPARE(parts.proxyWidget->minimumSize(), minimum);
    QCOMPARE(parts.proxyWidget->maximumSize(), maximum);
}

void tst_FileTreeViewerItem::theViewIsPinnedToTheItemsSize()
{
    FileTreeViewerItem item;
    const TreeParts parts(&item);
    const QSizeF sizes[] = {QSizeF(400, 300), QSizeF(800, 480), QSizeF(240, 320)};
    for (const QSizeF &size : sizes) {
        item.setWidth(size.width());
        item.setHeight(size.height());
        QCOMPARE(parts.proxyWidget->minimumSize(), size);
        QCOMPARE(parts.proxyWidget->maximumSize(), size);
        QCOMPARE(parts.proxyWidget->size(), size);
        QCOMPARE(parts.proxyWidget->pos(), QPointF(0, 0));
        QCOMPARE(parts.view->size(), size.toSize());
    }
    item.setHeight(0);
    QCOMPARE(parts.proxyWidget->maximumSize(), QSizeF(240, 320));
}

void tst_FileTreeViewerItem::columnsCanBeSizedAndHidden()
{
    const TestDir dir;
    Tree tree;
    tree.item.setColumnWidth(0, 333);
    tree.item.setColumnHidden(1, true);
    tree.item.setColumnHidden(2, false);
    QCOMPARE(tree.emitted(), QStringList());
    tree.item.setRoot(dir.path());
    tree.item.setCurrentPath("/");
    QCOMPARE(tree.parts.view->columnWidth(0), 333);
    QVERIFY(tree.parts.view->isColumnHidden(1));
    QVERIFY(!tree.parts.view->isColumnHidden(2));
}

void tst_FileTreeViewerItem::openDirsAndShowRootEmitOnAChangeOnly()
{
    Tree tree;
    tree.item.setOpenDirs(false);
    tree.item.setShowRoot(true);
    QCOMPARE(tree.emitted(), QStringList());
    tree.item.setOpenDirs(true);
    tree.item.setShowRoot(false);
    tree.item.setOpenDirs(true);
    tree.item.setShowRoot(false);
    QCOMPARE(tree.emitted(), list("openDirsChanged showRootChanged"));
    QVERIFY(tree.item.openDirs());
    QVERIFY(!tree.item.showRoot());
}

void tst_FileTreeViewerItem::showRootDrawsAndOpensBranches()
{
    Tree tree;
    tree.item.setShowRoot(false);
    QVERIFY(!tree.parts.view->rootIsDecorated());
    QVERIFY(!tree.parts.view->itemsExpandable());
    tree.item.setShowRoot(true);
    QVERIFY(tree.parts.view->rootIsDecorated());
    QVERIFY(tree.parts.view->itemsExpandable());
}

void tst_FileTreeViewerItem::dirsFirstIsRelayedOnce()
{
    const TestDir dir;
    dir.file("a");
    dir.folder("b");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "b a"));
    tree.item.setDirsFirst(true);
    QCOMPARE(tree.emitted(), QStringList());
    tree.item.setDirsFirst(false);
    QCOMPARE(tree.emitted(), list("dirsFirstChanged"));
    QVERIFY(!tree.item.dirsFirst());
    QCOMPARE(tree.parts.names(dir.path()), list("a b"));
}

void tst_FileTreeViewerItem::isSelectableEmitsNothing()
{
    Tree tree;
    QVERIFY(tree.item.setProperty("isSelectable", true));
    QVERIFY(tree.item.isSelectable());
    QCOMPARE(tree.emitted(), QStringList());
}

void tst_FileTreeViewerItem::checkingIsRelayedOncePerChange()
{
    const TestDir dir;
    dir.file("a.csv", 5000);
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.item.setIsSelectable(true);
    DebugLog debug;
    const QModelIndex row = tree.parts.row(dir.path("a.csv"));
    QVERIFY(tree.parts.proxyModel->setData(row, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(tree.emitted(), list("checkedFilesKBChanged"));
    QCOMPARE(debug.lines(), QStringList() << "Add Size  \"a.csv\" = 5000"
                                          << "DEBUG: FileTreeViewerItem::updateCheckedFileKB ()"
                                          << "DEBUG: Checked files size in Bytes =  5000");
    QCOMPARE(tree.item.checkedFilesKB(), quint64(5000));
    QCOMPARE(tree.item.property("checkedFilesKB").toULongLong(), quint64(5000));
}

void tst_FileTreeViewerItem::selectAllAndClearAllReachTheModel()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.file("b.csv", 20);
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv b.csv"));
    tree.item.setIsSelectable(true);
    tree.item.selectAll();
    QCOMPARE(tree.emitted(), list("checkedFilesKBChanged checkedFilesKBChanged"));
    QCOMPARE(tree.item.checkedFilesKB(), quint64(30));
    QCOMPARE(tree.parts.row(dir.path("b.csv")).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    tree.item.listSelectedFiles();
    tree.item.clearAll();
    QCOMPARE(tree.item.checkedFilesKB(), quint64(0));
    QCOMPARE(tree.parts.row(dir.path("b.csv")).data(Qt::CheckStateRole).toInt(),
             int(Qt::Unchecked));
}

void tst_FileTreeViewerItem::copyUnchecksAndLoadsTheDestination()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.folder("soil");
    const TestDir target;
    target.file("z.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "soil a.csv"));
    tree.item.setIsSelectable(true);
    tree.item.selectAll();
    QCOMPARE(tree.item.copyCheckedFilesTo(target.path()), QString("soil"));
    QCOMPARE(target.names(), list("a.csv z.csv"));
    QCOMPARE(tree.item.checkedFilesKB(), quint64(0));
    QCOMPARE(tree.parts.row(dir.path("a.csv")).data(Qt::CheckStateRole).toInt(),
             int(Qt::Unchecked));
    QVERIFY(tree.parts.waitFor(target.path(), "a.csv z.csv"));
    QCOMPARE(tree.item.copyCheckedFilesTo(target.path()), QString());
}

void tst_FileTreeViewerItem::theTaggedPathReachesTheModel()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.item.setTaggedPath(dir.path("a.csv"));
    QCOMPARE(tree.emitted(), QStringList());
    QCOMPARE(tree.parts.row(dir.path("a.csv")).data(Qt::ForegroundRole).value<QColor>(),
             QColor("#0076BC"));
}

void tst_FileTreeViewerItem::aGrowingFileFindsItsPlaceInTheOrder()
{
    if (!filesAreWatched())
        QSKIP("the model of this Qt hangs when files are watched", SkipAll);
    const int sizeColumn = 1;
    const TestDir dir("/home/ostan/logs");
    dir.file("a.log", 1000);
    dir.file("b.log", 3000);
    Tree tree;
    const LoadedPaths loaded(*tree.parts.model);
    tree.item.setIsSelectable(true);
    tree.parts.view->sortByColumn(sizeColumn, Qt::AscendingOrder);
    QVERIFY(tree.show(dir.path(), "a.log b.log"));
    QVERIFY(loaded.wait(dir.path("a.log")));
    QVERIFY(loaded.wait(dir.path("b.log")));

    dir.grow("a.log", 5000);
    QVERIFY(tree.parts.waitFor(dir.path(), "b.log a.log"));
    dir.grow("b.log", 5000);
    QVERIFY(tree.parts.waitFor(dir.path(), "a.log b.log"));
}

QTEST_MAIN(tst_FileTreeViewerItem)
#include "tst_filetreevieweritem.moc"
