// The tree in a QML scene: touches that come through the scene, and how Qt applies the style
// sheets.

#include "tree/filetreevieweritem.h"

#include "support/signallog.h"
#include "support/treescene.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QTest>

namespace {
const int dateColumn = 3;
const QRgb headerColor = qRgb(0x00, 0x76, 0xBC);
const QRgb selectedColor = qRgb(0x00, 0xA7, 0xE0);

QStringList list(const char *names)
{
    return QString(names).split(' ');
}

QImage picture(QWidget *widget)
{
    QImage image(widget->size(), QImage::Format_RGB32);
    widget->render(&image);
    return image;
}

/** How often @p part is found in @p whole, pixel by pixel. */
int occurrences(const QImage &part, const QImage &whole)
{
    int count = 0;
    for (int y = 0; y + part.height() <= whole.height(); ++y) {
        for (int x = 0; x + part.width() <= whole.width(); ++x) {
            if (whole.copy(x, y, part.width(), part.height()) == part)
                ++count;
        }
    }
    return count;
}

/** An image of the bundle as it looks on a row. */
QImage onWhite(const QString &path)
{
    const QImage image(path);
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(qRgb(255, 255, 255));
    QPainter painter(&result);
    painter.drawPixmap(0, 0, QPixmap(path));
    return result;
}

/** The cell of @p row as the tree shows it. */
QImage cellPicture(const TreeParts &parts, const QString &path)
{
    return picture(parts.view->viewport()).copy(parts.view->visualRect(parts.row(path)));
}

/** What is drawn in @p cell, from the first column of pixels to the last that differs from its
 * ground, in the cell's full height. */
QImage drawn(const QImage &cell)
{
    const QRgb ground = cell.pixel(0, 0);
    int left = cell.width();
    int right = -1;
    for (int x = 0; x < cell.width(); ++x) {
        for (int y = 0; y < cell.height(); ++y) {
            if (cell.pixel(x, y) != ground) {
                left = qMin(left, x);
                right = x;
            }
        }
    }
    return cell.copy(left, 0, right - left + 1, cell.height());
}

int threads()
{
    return QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot).count();
}
} // namespace

class tst_TreeScene : public QObject
{
    Q_OBJECT

private slots:
    void theTreeFillsTheItem();
    void aRootSetLongAfterTheItemIsShown();
    void aPressActsBeforeTheRelease();
    void aTouchOnAFolderOpensAndClosesIt();
    void aTouchOnTheDateOfAFolderOpensAndClosesItToo();
    void aTouchOnABranchOpensItAndIsNoTouchOfTheRow();
    void withoutRootBranchesATouchStillOpensAFolder();
    void aTouchOnACheckBoxChecksAndIsNoTouchOfTheRow();
    void tenTouchesInARowAllCount();
    void aTouchBesideTheRowsDoesNothing();
    void theHeaderSortsByTouch();
    void openDirsGoesIntoTheFolder();
    void aTouchedFolderIsRenamedAsItsOwnPath();
    void propertiesBindInQml();

    void rowsAre45PixelsHigh();
    void theHeaderHasItsColor();
    void theSelectedRowHasItsColor();
    void checkBoxesAre32PixelsWide();
    void aBoxLeavesImageAndTextAsTheyAre_data();
    void aBoxLeavesImageAndTextAsTheyAre();
    void scrollBarsAre40PixelsWide();

    void theItemLivesManyTimes();
    void theItemGoesWhileItLoads();
    void theItemGoesWhileItIsPressed();
    void theItemGoesWithAReloadPending();
    void theFolderGoesUnderTheTree();
};

void tst_TreeScene::theTreeFillsTheItem()
{
    const TreeScene scene;
    const TreeParts parts(scene.item);
    QCOMPARE(parts.view->size(), QSize(600, 400));
    QCOMPARE(parts.proxyWidget->pos(), QPointF(0, 0));
    QVERIFY(parts.view->isVisible());
}

// A screen that sets the root at the touch of a button: Qt 4.8 used to crash, nearly each time.
void tst_TreeScene::aRootSetLongAfterTheItemIsShown()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.folder("soil");
    for (int i = 0; i < 5; ++i) {
        TreeScene scene;
        letTimePass(300);
        QVERIFY(scene.show(dir.path(), "soil a.csv"));
        QCOMPARE(scene.item->currentFilepath(), dir.path());
    }
}

void tst_TreeScene::aPressActsBeforeTheRelease()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.file("b.csv", 10);
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "a.csv b.csv"));
    SignalLog log(scene.item);
    scene.press(scene.cell(dir.path("b.csv")));
    QCOMPARE(log.take(),
             list("selectedFilenameChanged currentFilenameChanged absoluteFilePathChanged"));
    QCOMPARE(scene.item->currentFilename(), QString("b.csv"));
    QCOMPARE(scene.item->absoluteFilePath(), dir.path("b.csv")); // selected by the same press
    scene.release(scene.cell(dir.path("b.csv")));
    QCOMPARE(log.take(), QStringList());

    scene.touch(scene.cell(dir.path("b.csv"), dateColumn));
    QCOMPARE(log.take(), list("currentFilenameChanged absoluteFilePathChanged"));
}

void tst_TreeScene::aTouchOnAFolderOpensAndClosesIt()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "soil"));
    const TreeParts parts(scene.item);
    scene.touch(scene.cell(dir.path("soil")));
    QVERIFY(parts.view->isExpanded(parts.row(dir.path("soil"))));
    QVERIFY(parts.waitFor(dir.path("soil"), "b.csv"));
    const QModelIndex inside = parts.row(dir.path("soil/b.csv"));
    QVERIFY(waitUntil([&] { return !parts.view->visualRect(inside).isEmpty(); }));
    QCOMPARE(parts.view->visualRect(inside).left(), 2 * parts.view->indentation());

    scene.touch(scene.cell(dir.path("soil/b.csv")));
    QCOMPARE(scene.item->currentFilepath(), dir.path("soil"));
    QCOMPARE(scene.item->currentFilename(), QString("b.csv"));

    scene.touch(scene.cell(dir.path("soil")));
    QVERIFY(!parts.view->isExpanded(parts.row(dir.path("soil"))));
    QCOMPARE(scene.item->currentFilename(), QString());
}

void tst_TreeScene::aTouchOnTheDateOfAFolderOpensAndClosesItToo()
{
    const TestDir dir;
    dir.folder("soil");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "soil"));
    const TreeParts parts(scene.item);
    scene.touch(scene.cell(dir.path("soil"), dateColumn));
    QVERIFY(parts.view->isExpanded(parts.row(dir.path("soil"))));
    scene.touch(scene.cell(dir.path("soil"), dateColumn));
    QVERIFY(!parts.view->isExpanded(parts.row(dir.path("soil"))));
}

void tst_TreeScene::aTouchOnABranchOpensItAndIsNoTouchOfTheRow()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "soil"));
    const TreeParts parts(scene.item);
    const QRect row = parts.view->visualRect(parts.row(dir.path("soil")));
    const QPoint branch =
        scene.inScene(QPoint(row.left() - parts.view->indentation() / 2, row.center().y()));
    SignalLog log(scene.item);
    scene.touch(branch);
    QVERIFY(parts.view->isExpanded(parts.row(dir.path("soil"))));
    QVERIFY(parts.waitFor(dir.path("soil"), "b.csv")); // without rows there is no branch
    scene.touch(branch);
    QVERIFY(!parts.view->isExpanded(parts.row(dir.path("soil"))));
    QCOMPARE(log.names(), QStringList());
}

void tst_TreeScene::withoutRootBranchesATouchStillOpensAFolder()
{
    const TestDir dir;
    dir.folder("soil");
    TreeScene scene("showRoot: false");
    QVERIFY(scene.show(dir.path(), "soil"));
    const TreeParts parts(scene.item);
    QCOMPARE(parts.view->visualRect(parts.row(dir.path("soil"))).left(), 0);
    scene.touch(scene.cell(dir.path("soil")));
    QVERIFY(parts.view->isExpanded(parts.row(dir.path("soil"))));
}

void tst_TreeScene::aTouchOnACheckBoxChecksAndIsNoTouchOfTheRow()
{
    const TestDir dir;
    dir.file("a.csv", 5000);
    TreeScene scene("isSelectable: true");
    QVERIFY(scene.show(dir.path(), "a.csv"));
    const TreeParts parts(scene.item);
    const QRect row = parts.view->visualRect(parts.row(dir.path("a.csv")));
    const QPoint box = scene.inScene(QPoint(row.left() + 20, row.center().y()));
    SignalLog log(scene.item);
    scene.touch(box);
    QCOMPARE(log.take(), list("checkedFilesKBChanged"));
    QCOMPARE(scene.item->checkedFilesKB(), quint64(5000));
    QCOMPARE(scene.item->absoluteFilePath(), QString());
    scene.touch(box);
    QCOMPARE(log.take(), list("checkedFilesKBChanged"));
    QCOMPARE(scene.item->checkedFilesKB(), quint64(0));
    scene.touch(scene.cell(dir.path("a.csv")));
    QCOMPARE(scene.item->currentFilename(), QString("a.csv"));
    QCOMPARE(scene.item->checkedFilesKB(), quint64(0));
}

void tst_TreeScene::tenTouchesInARowAllCount()
{
    const TestDir dir;
    dir.file("a.csv", 5000);
    TreeScene scene("isSelectable: true");
    QVERIFY(scene.show(dir.path(), "a.csv"));
    const TreeParts parts(scene.item);
    const QRect row = parts.view->visualRect(parts.row(dir.path("a.csv")));
    const QPoint box = scene.inScene(QPoint(row.left() + 20, row.center().y()));
    for (int touches = 1; touches <= 10; ++touches) {
        scene.touch(box);
        QCOMPARE(scene.item->checkedFilesKB(), quint64(touches % 2 ? 5000 : 0));
    }
    SignalLog log(scene.item);
    for (int touches = 1; touches <= 10; ++touches) {
        scene.touch(scene.cell(dir.path("a.csv")));
        QCOMPARE(log.take().count("currentFilenameChanged"), 1);
    }
}

void tst_TreeScene::aTouchBesideTheRowsDoesNothing()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "a.csv"));
    SignalLog log(scene.item);
    scene.touch(QPoint(300, 300));
    QCOMPARE(log.names(), QStringList());
    scene.touch(scene.cell(dir.path("a.csv")));
    log.take();
    scene.touch(QPoint(300, 300)); // takes the selection away, announced by nothing
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(scene.item->currentFilename(), QString("a.csv"));
}

void tst_TreeScene::theHeaderSortsByTouch()
{
    const TestDir dir;
    dir.file("a.csv", 30);
    dir.file("b.csv", 100);
    dir.folder("soil");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "soil a.csv b.csv"));
    const TreeParts parts(scene.item);
    const QHeaderView *header = parts.view->header();
    const QPoint size = header->mapTo(
        parts.view, QPoint(header->sectionViewportPosition(1) + header->sectionSize(1) / 2,
                           header->height() / 2));
    scene.touch(size);
    QCOMPARE(parts.proxyModel->sortColumn(), 1);
    const QString first = parts.names(dir.path()).join(" ");
    QVERIFY(first == "soil a.csv b.csv" || first == "soil b.csv a.csv");
    letTimePass(QApplication::doubleClickInterval() + 50); // not a double click
    scene.touch(size);
    const QString second = parts.names(dir.path()).join(" ");
    QVERIFY(second != first && second.startsWith("soil "));
}

void tst_TreeScene::openDirsGoesIntoTheFolder()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/b.csv");
    TreeScene scene("openDirs: true");
    QVERIFY(scene.show(dir.path(), "soil"));
    scene.touch(scene.cell(dir.path("soil")));
    const TreeParts parts(scene.item);
    QCOMPARE(parts.view->rootIndex(), parts.row(dir.path("soil")));
    QVERIFY(parts.waitFor(dir.path("soil"), "b.csv"));
    QCOMPARE(scene.item->root(), dir.path());
    QCOMPARE(scene.item->currentFilepath(), dir.path("soil"));
}

void tst_TreeScene::aTouchedFolderIsRenamedAsItsOwnPath()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "soil"));
    scene.touch(scene.cell(dir.path("soil")));
    QVERIFY(scene.item->renameFile("flux"));
    QCOMPARE(dir.names(), QStringList("flux"));
    QVERIFY(TreeParts(scene.item).waitFor(dir.path(), "flux"));
}

void tst_TreeScene::propertiesBindInQml()
{
    const TestDir dir;
    dir.file("a.csv", 5000);
    TreeScene scene("property string shown: currentFilename + ' in ' + currentFilepath + ' of ' + "
                    "checkedFilesKB; nameFilters: 'csv,txt'; nameFilterOn: true; root: '" +
                    dir.path().toLocal8Bit() + "'");
    const TreeParts parts(scene.item);
    QVERIFY(parts.waitFor(dir.path(), "a.csv"));
    QCOMPARE(scene.item->getNameFilters(), list("*csv* *txt*"));
    QVERIFY(
        waitUntil([&] { return !parts.view->visualRect(parts.row(dir.path("a.csv"))).isEmpty(); }));
    scene.touch(scene.cell(dir.path("a.csv")));
    scene.item->selectAll();
    QCOMPARE(scene.item->property("shown").toString(), "a.csv in " + dir.path() + " of 5000");
}

void tst_TreeScene::rowsAre45PixelsHigh()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("a.csv");
    const TreeScene scene("isSelectable: true");
    QVERIFY(scene.show(dir.path(), "soil a.csv"));
    const TreeParts parts(scene.item);
    const QRect folder = parts.view->visualRect(parts.row(dir.path("soil")));
    const QRect file = parts.view->visualRect(parts.row(dir.path("a.csv")));
    QCOMPARE(folder.height(), 45);
    QCOMPARE(file.height(), 45);
    QCOMPARE(file.top() - folder.top(), 45);
    QCOMPARE(folder.left(), 24);
}

void tst_TreeScene::theHeaderHasItsColor()
{
    const TestDir dir;
    dir.file("a.csv");
    const TreeScene scene;
    QVERIFY(scene.show(dir.path(), "a.csv"));
    const TreeParts parts(scene.item);
    QHeaderView *header = parts.view->header();
    QVERIFY(header->height() >= 38);
    const QImage image = picture(header);
    int colored = 0;
    for (int x = 0; x < image.width(); ++x)
        colored += image.pixel(x, 4) == headerColor ? 1 : 0;
    QVERIFY(colored > image.width() * 9 / 10); // all but the borders of the sections
}

void tst_TreeScene::theSelectedRowHasItsColor()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.file("b.csv");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "a.csv b.csv"));
    scene.touch(scene.cell(dir.path("a.csv")));
    const TreeParts parts(scene.item);
    const QImage image = picture(parts.view->viewport());
    const QPoint selected = parts.view->visualRect(parts.row(dir.path("a.csv"), 1)).topLeft();
    const QPoint other = parts.view->visualRect(parts.row(dir.path("b.csv"), 1)).topLeft();
    QCOMPARE(image.pixel(selected + QPoint(5, 5)), selectedColor);
    QCOMPARE(image.pixel(other + QPoint(5, 5)), qRgb(255, 255, 255));
}

void tst_TreeScene::checkBoxesAre32PixelsWide()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.file("b.csv", 10);
    const TreeScene scene;
    QVERIFY(scene.show(dir.path(), "a.csv b.csv"));
    const TreeParts parts(scene.item);
    const QImage empty = onWhite(":/images/checkbox_empty.png");
    const QImage full = onWhite(":/images/checkbox_full.png");
    QCOMPARE(empty.size(), QSize(32, 32));
    QCOMPARE(occurrences(empty, picture(parts.view->viewport())), 0);

    scene.item->setIsSelectable(true);
    parts.view->doItemsLayout();
    QCOMPARE(occurrences(empty, picture(parts.view->viewport())), 2);
    QVERIFY(
        parts.proxyModel->setData(parts.row(dir.path("b.csv")), Qt::Checked, Qt::CheckStateRole));
    const QImage image = picture(parts.view->viewport());
    QCOMPARE(occurrences(empty, image), 1);
    QCOMPARE(occurrences(full, image), 1);
}

void tst_TreeScene::aBoxLeavesImageAndTextAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isChecked");
    QTest::addColumn<bool>("isSelected");
    QTest::newRow("a file") << "a.csv" << false << false;
    QTest::newRow("a folder") << "soil" << false << false;
    QTest::newRow("a checked file") << "a.csv" << true << false;
    QTest::newRow("a selected folder") << "soil" << false << true;
    QTest::newRow("a selected, checked file") << "a.csv" << true << true;
}

void tst_TreeScene::aBoxLeavesImageAndTextAsTheyAre()
{
    QFETCH(QString, name);
    QFETCH(bool, isChecked);
    QFETCH(bool, isSelected);
    const TestDir dir;
    dir.folder("soil");
    dir.file("a.csv", 10);
    const TreeScene scene;
    QVERIFY(scene.show(dir.path(), "soil a.csv"));
    const TreeParts parts(scene.item);
    const QString path = dir.path(name);
    if (isSelected)
        parts.view->selectionModel()->select(parts.row(path), QItemSelectionModel::Select);
    const QImage imageAndText = drawn(cellPicture(parts, path));

    scene.item->setIsSelectable(true);
    parts.view->doItemsLayout();
    if (isChecked)
        parts.proxyModel->setData(parts.row(path), Qt::Checked, Qt::CheckStateRole);
    const QImage cell = cellPicture(parts, path);
    const QImage all = drawn(cell);

    // The box first, then the rest: each in one piece, as it was, and nothing else.
    const int restAt = all.width() - imageAndText.width();
    QVERIFY2(restAt >= 32, qPrintable(QString::number(restAt)));
    QCOMPARE(all.copy(restAt, 0, imageAndText.width(), all.height()), imageAndText);
    const QImage box = drawn(all.copy(0, 0, restAt, all.height()));
    QVERIFY2(box.width() <= 32, qPrintable(QString::number(box.width())));
    if (!isSelected) {
        const QString image = isChecked ? "full" : "empty";
        QCOMPARE(occurrences(onWhite(":/images/checkbox_" + image + ".png"), cell), 1);
    }
}

void tst_TreeScene::scrollBarsAre40PixelsWide()
{
    const TestDir dir;
    QStringList names;
    for (int i = 10; i < 40; ++i) {
        names.append(QString("%1.csv").arg(i));
        dir.file(names.last());
    }
    const TreeScene scene;
    QVERIFY(scene.item);
    scene.item->setRoot(dir.path());
    const TreeParts parts(scene.item);
    QVERIFY(parts.waitFor(dir.path(), names.join(" ")));
    scene.item->setColumnWidth(0, 700);
    QVERIFY(waitUntil([&] { return parts.view->horizontalScrollBar()->isVisible(); }));
    QVERIFY(waitUntil([&] { return parts.view->verticalScrollBar()->isVisible(); }));
    QCOMPARE(parts.view->verticalScrollBar()->width(), 40);
    QCOMPARE(parts.view->horizontalScrollBar()->height(), 40);
}

void tst_TreeScene::theItemLivesManyTimes()
{
    const TestDir dir;
    dir.file("a.csv");
    const TreeScene scene;
    const int widgets = QApplication::allWidgets().count();
    const int running = threads();
    for (int i = 0; i < LIVES; ++i) {
        FileTreeViewerItem *item = new FileTreeViewerItem;
        item->setParentItem(scene.item);
        item->setWidth(200);
        item->setHeight(100);
        item->setRoot(dir.path());
        if (i % 10 == 0)
            QCoreApplication::processEvents();
        delete item;
    }
    QCOMPARE(QApplication::allWidgets().count(), widgets);
    QCOMPARE(threads(), running);
}

void tst_TreeScene::theItemGoesWhileItLoads()
{
    const TestDir dir;
    for (int i = 0; i < 2000; ++i)
        dir.file(QString::number(i));
    for (int ms = 0; ms < 40; ms += 4) {
        TreeScene scene("isSelectable: true");
        scene.item->setRoot(dir.path());
        scene.item->selectAll();
        letTimePass(ms);
    }
    QCOMPARE(dir.names().count(), 2000);
}

void tst_TreeScene::theItemGoesWhileItIsPressed()
{
    const TestDir dir;
    dir.file("a.csv");
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), "a.csv"));
    const QPoint point = scene.cell(dir.path("a.csv"));
    scene.press(point);
    delete scene.item;
    scene.release(point);
    letTimePass(20);
}

void tst_TreeScene::theItemGoesWithAReloadPending()
{
    const TestDir dir;
    dir.file("a.csv");
    TreeScene scene("nameFilterOn: true");
    QVERIFY(scene.show(dir.path(), "a.csv"));
    scene.item->setNameFilters("b");
    dir.file("b.csv");
    scene.item->setDirsFirst(false);
    delete scene.item;
    letTimePass(100);
}

void tst_TreeScene::theFolderGoesUnderTheTree()
{
    TestDir dir("/home/ostan/logs/gone");
    dir.folder("soil");
    dir.file("soil/b.csv");
    dir.file("a.csv");
    TreeScene scene("isSelectable: true");
    QVERIFY(scene.show(dir.path(), "soil a.csv"));
    const TreeParts parts(scene.item);
    scene.touch(scene.cell(dir.path("soil")));
    QVERIFY(parts.waitFor(dir.path("soil"), "b.csv"));
    scene.item->selectAll();
    const quint64 total = scene.item->checkedFilesKB();
    removeTree("/home/ostan/logs");
    letTimePass(300); // Qt's model keeps the rows of a root folder that is gone
    QCOMPARE(scene.item->checkedFilesKB(), total);
    QCOMPARE(scene.item->currentFilepath(), dir.path("soil"));
    scene.touch(scene.cell(dir.path()));
    scene.touch(QPoint(100, 80));
    QVERIFY(!scene.item->createNewFile("x"));
    QVERIFY(!scene.item->renameFile("y"));
    scene.item->setCurrentPath(dir.path());
    scene.item->selectAll();
    scene.item->clearAll();
    scene.item->setRoot("/home/ostan");
    QCOMPARE(scene.item->currentFilepath(), QString("/home/ostan"));
}

QTEST_MAIN(tst_TreeScene)
#include "tst_treescene.moc"
