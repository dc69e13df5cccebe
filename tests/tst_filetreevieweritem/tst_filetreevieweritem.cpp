#include "tree/filetreevieweritem.h"

#include "support/debuglog.h"
#include "support/signallog.h"
#include "support/surface.h"
#include "support/testdir.h"
#include "support/treeparts.h"

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QMetaMethod>
#include <QScrollBar>
#include <QTest>

namespace {
const QString logs = "/home/ostan/logs";
const QString soil = "/home/ostan/logs/soil";
const QString configurations = "/home/ostan/configs";

QByteArray signatureOf(const QMetaMethod &method)
{
#if QT_VERSION < 0x050000
    return method.signature();
#else
    return method.methodSignature();
#endif
}

/** The item, its parts and a record of the signals it has emitted itself. */
class Tree
{
public:
    Tree()
        : parts(&item)
        , m_log(&item)
    {
    }

    /** Shows the folder @p path and waits for its rows. */
    bool show(const QString &path, const QString &expectedRows)
    {
        item.setRoot(path);
        const bool loaded = parts.waitFor(path, expectedRows);
        m_log.take();
        return loaded;
    }

    /** Opens the folder @p path in the tree and waits for its rows. */
    bool open(const QString &path, const QString &expectedRows) const
    {
        parts.view->expand(parts.row(path));
        return parts.waitFor(path, expectedRows);
    }

    /** What a touch of the row @p path does, selecting it as the view does. */
    QStringList touch(const QString &path)
    {
        m_log.take();
        parts.view->setCurrentIndex(parts.row(path));
        item.updateSelection(parts.row(path));
        return m_log.take();
    }

    QStringList emitted()
    {
        return m_log.take();
    }

    FileTreeViewerItem item;
    const TreeParts parts;

private:
    SignalLog m_log;
};

QStringList list(const char *names)
{
    return QString(names).split(' ');
}
} // namespace

class tst_FileTreeViewerItem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

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

    void nothingSelectedReadsEmpty();
    void theSelectionIsReadBack();
    void clearSelectionKeepsThePaths();
    void findSelectsByAbsolutePath();
    void findByBareNameFindsNothing();
    void findGoesToTheOtherFolder();
    void findAddsToTheSelection();

    void filterWordsAreSplitAtCommas_data();
    void filterWordsAreSplitAtCommas();
    void filtersReachTheModelOnlyWhileOn();
    void clearedWordsStayInForce();
    void onlySettingWordsOpensTheTreeWithoutWords();
    void filteredFilesAreHidden();

    void checkingIsRelayedOncePerChange();
    void selectAllAndClearAllReachTheModel();
    void copyUnchecksAndLoadsTheDestination();
    void theTaggedPathReachesTheModel();
};

void tst_FileTreeViewerItem::initTestCase()
{
    qRegisterMetaType<QModelIndex>("QModelIndex");
}

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

void tst_FileTreeViewerItem::aRootThatIsNoFolderIsIgnored_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << "/home/ostan/missing";
    QTest::newRow("a file") << "/home/ostan/logs/a.csv";
    QTest::newRow("a newline") << "/home/ostan/logs\n";
    QTest::newRow("far too long") << "/" + QString(5000, 'x');
}

void tst_FileTreeViewerItem::aRootThatIsNoFolderIsIgnored()
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

void tst_FileTreeViewerItem::aRootIsShownAndNotAnnounced()
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

void tst_FileTreeViewerItem::theSameRootAgainAnnouncesTheNameOnly()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.item.setRoot(dir.path());
    QCOMPARE(tree.emitted(), list("currentFilenameChanged"));
}

void tst_FileTreeViewerItem::anEmptyRootShowsTheWholeFileSystem()
{
    const TestDir dir;
    Tree tree;
    tree.item.setRoot(dir.path());
    tree.item.setRoot("");
    QCOMPARE(tree.item.root(), QString());
    QCOMPARE(tree.item.currentFilepath(), QString());
    QVERIFY(!tree.parts.view->rootIndex().isValid());
}

void tst_FileTreeViewerItem::currentPathLeavesRootAsItIs()
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

void tst_FileTreeViewerItem::dataFoldersAreShown()
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

void tst_FileTreeViewerItem::soilFluxFallsBackToTheLogs()
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

void tst_FileTreeViewerItem::settersTellWhatChanged()
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

void tst_FileTreeViewerItem::aTouchOnAFileSetsFolderAndName()
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

void tst_FileTreeViewerItem::aTouchOnTheSameFileAnnouncesNameAndPathOnly()
{
    const TestDir dir;
    dir.file("a.csv");
    Tree tree;
    QVERIFY(tree.show(dir.path(), "a.csv"));
    tree.touch(dir.path("a.csv"));
    QCOMPARE(tree.touch(dir.path("a.csv")), list("currentFilenameChanged absoluteFilePathChanged"));
}

void tst_FileTreeViewerItem::aTouchOnAFileInAnotherFolderEmptiesTheSelectedNameFirst()
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

void tst_FileTreeViewerItem::theSameNameInAnotherFolderLeavesTheSelectedNameEmpty()
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

void tst_FileTreeViewerItem::aTouchOnAFolderOpensAndClosesIt()
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

void tst_FileTreeViewerItem::aTouchOnAnotherColumnOpensAndClosesToo()
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

void tst_FileTreeViewerItem::withOpenDirsATouchGoesIntoTheFolder()
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

void tst_FileTreeViewerItem::aTouchOfNothingIsAFolderWithoutAPath()
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

void tst_FileTreeViewerItem::nothingSelectedReadsEmpty()
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

void tst_FileTreeViewerItem::theSelectionIsReadBack()
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

void tst_FileTreeViewerItem::clearSelectionKeepsThePaths()
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

void tst_FileTreeViewerItem::findSelectsByAbsolutePath()
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

void tst_FileTreeViewerItem::findByBareNameFindsNothing()
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

void tst_FileTreeViewerItem::findGoesToTheOtherFolder()
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

void tst_FileTreeViewerItem::findAddsToTheSelection()
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

void tst_FileTreeViewerItem::filterWordsAreSplitAtCommas_data()
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

void tst_FileTreeViewerItem::filterWordsAreSplitAtCommas()
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

void tst_FileTreeViewerItem::filtersReachTheModelOnlyWhileOn()
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

void tst_FileTreeViewerItem::clearedWordsStayInForce()
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

void tst_FileTreeViewerItem::onlySettingWordsOpensTheTreeWithoutWords()
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
    tree.item.setNameFilterOn(false);
    tree.item.setNameFilters("b");
    QVERIFY(!tree.parts.view->isExpanded(folder));
    tree.item.setNameFilterOn(true);
    QVERIFY(tree.parts.view->isExpanded(folder));
    tree.item.setNameFilterOn(false);
    QVERIFY(tree.parts.view->isExpanded(folder));
}

void tst_FileTreeViewerItem::filteredFilesAreHidden()
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

QTEST_MAIN(tst_FileTreeViewerItem)
#include "tst_filetreevieweritem.moc"
