// How the tree draws names that hold more than letters.

#include "tree/filetreevieweritem.h"

#include "support/treescene.h"

#include <QFileInfo>
#include <QImage>
#include <QTest>

namespace {
/** The cell of the name of entry @p path as the tree shows it. */
QImage cellPicture(const TreeParts &parts, const QString &path)
{
    QWidget *viewport = parts.view->viewport();
    QImage image(viewport->size(), QImage::Format_RGB32);
    viewport->render(&image);
    return image.copy(parts.view->visualRect(parts.row(path)));
}
} // namespace

class tst_TreeNames : public QObject
{
    Q_OBJECT

private slots:
    void aNameIsDrawnOnOneLine_data();
    void aNameIsDrawnOnOneLine();
    void aNameStaysAsItIsButForItsDrawing();
};

void tst_TreeNames::aNameIsDrawnOnOneLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asDrawn");
    const QString lineBreak(QChar(0x00b6));
    const QString dot(QChar(0x00b7));
    QTest::newRow("line break") << "two\nlines"
                                << "two" + lineBreak + "lines";
    QTest::newRow("carriage return") << "two\rlines"
                                     << "two" + lineBreak + "lines";
    QTest::newRow("next line") << QString("two%1lines").arg(QChar(0x85))
                               << "two" + lineBreak + "lines";
    QTest::newRow("line separator")
        << QString("two%1lines").arg(QChar(0x2028)) << "two" + lineBreak + "lines";
    QTest::newRow("paragraph separator")
        << QString("two%1lines").arg(QChar(0x2029)) << "two" + lineBreak + "lines";
    QTest::newRow("nothing but a line break") << "\n" << lineBreak;
    QTest::newRow("tabulator") << "a\tb"
                               << "a" + dot + "b";
    QTest::newRow("escape") << "\033[31mred" << dot + "[31mred";
    QTest::newRow("delete") << "a\177b"
                            << "a" + dot + "b";
    QTest::newRow("from right to left")
        << QString("exe.%1vsc").arg(QChar(0x202e)) << "exe." + dot + "vsc";
    QTest::newRow("mark of direction") << QString("a%1b").arg(QChar(0x200f)) << "a" + dot + "b";
    QTest::newRow("isolate") << QString("a%1b").arg(QChar(0x2066)) << "a" + dot + "b";
}

void tst_TreeNames::aNameIsDrawnOnOneLine()
{
    QFETCH(QString, name);
    QFETCH(QString, asDrawn);
    const TestDir dir;
    dir.folder(name);
    dir.folder(asDrawn);
    const TreeScene scene("isSelectable: true");
    QStringList names = QStringList() << name << asDrawn;
    names.sort();
    QVERIFY(scene.show(dir.path(), names.join(" ")));
    const TreeParts parts(scene.item);
    const QImage picture = cellPicture(parts, dir.path(name));
    QVERIFY(!picture.isNull());
    QCOMPARE(picture, cellPicture(parts, dir.path(asDrawn)));
}

void tst_TreeNames::aNameStaysAsItIsButForItsDrawing()
{
    const TestDir dir;
    const QString name = "two\nlines";
    dir.file(name, 10);
    TreeScene scene;
    QVERIFY(scene.show(dir.path(), name));
    const QModelIndex row = TreeParts(scene.item).row(dir.path(name));
    QCOMPARE(row.data(Qt::DisplayRole).toString(), name);
    QCOMPARE(row.data(Qt::EditRole).toString(), name);
    QCOMPARE(row.data(QFileSystemModel::FileNameRole).toString(), name);
    scene.touch(scene.cell(dir.path(name)));
    QCOMPARE(scene.item->currentFilename(), name);
    QCOMPARE(scene.item->absoluteFilePath(), QFileInfo(dir.path(name)).absoluteFilePath());
}

QTEST_MAIN(tst_TreeNames)
#include "tst_treenames.moc"
