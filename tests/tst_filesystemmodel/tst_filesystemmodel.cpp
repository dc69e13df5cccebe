#include "tree/filesystemmodel.h"

#include "common/privilegedropguard.h"

#include "support/loading.h"
#include "support/signallog.h"
#include "support/surface.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QBrush>
#include <QDateTime>
#include <QFont>
#include <QPixmap>
#include <QTest>

#include <sys/stat.h>

namespace {
const time_t aDay = 1370044800; // 1 June 2013, 00:00 UTC

QFont fontOf(const FileSystemModel &model, const QString &path)
{
    return model.data(model.index(path), Qt::FontRole).value<QFont>();
}

QColor colorOf(const FileSystemModel &model, const QString &path)
{
    return model.data(model.index(path), Qt::ForegroundRole).value<QColor>();
}

/** Counts how the model is asked to fetch. */
class CountingModel : public FileSystemModel
{
public:
    QStringList fetched;

protected:
    void fetchMore(const QModelIndex &parent) override
    {
        fetched.append(parent.data().toString());
        FileSystemModel::fetchMore(parent);
    }
};
} // namespace

class tst_FileSystemModel : public QObject
{
    Q_OBJECT

private slots:
    void aNewModelHasNothingChecked();
    void signalsAndSlotsStandInTheirOrder();
    void rolesKeepTheirNumbersAndValues();
    void everyColumnButTheFirstIsRightAligned();
    void onlyTheTaggedPathIsHighlighted();
    void taggingIsAnnouncedByNoSignal();
    void foldersHaveTheFolderImageAndFilesNone();
    void everyIndexIsUserCheckable();
    void settersEmitNothing();
    void rowsOfTheAccountsHomeArePreloaded_data();
    void rowsOfTheAccountsHomeArePreloaded();
    void preloadingGoesOneLevelPerLoadedFolder();
    void filesAreAnnouncedAsLoadedToo();
    void aGrowingFileShowsItsNewSizeAndDate();
    void otherRolesAreSetByQtsModel();
    void whatIsReadUnderAGuardIsWhatTheAccountMayRead();
};

void tst_FileSystemModel::aNewModelHasNothingChecked()
{
    QObject parent;
    FileSystemModel *model = new FileSystemModel(&parent);
    QCOMPARE(static_cast<QObject *>(model)->parent(), &parent);
    QVERIFY(!model->isSelectable());
    QCOMPARE(model->checkedFilesKB(), quint64(0));
    QVERIFY(!model->nameFilterDisables());
    QCOMPARE(model->rootPath(), QFileSystemModel().rootPath());
}

void tst_FileSystemModel::signalsAndSlotsStandInTheirOrder()
{
    QStringList lines = surface(FileSystemModel::staticMetaObject);
    lines.replaceInStrings("qulonglong", "quint64"); // how Qt 5 reads the same type
    QCOMPARE(lines, QStringList() << "signal void isSelectableChanged()"
                                  << "signal void checkedFilesKBChanged()"
                                  << "slot void clearAll()"
                                  << "slot bool isSelectable()"
                                  << "slot void listSelectedFiles()"
                                  << "slot void readDirectory(QString)"
                                  << "slot void selectAll()"
                                  << "slot void setDateTimeFormat(QString)"
                                  << "slot void setIsSelectable(bool)"
                                  << "slot void setTaggedPath(QString)"
                                  << "slot void clearTaggedPath()"
                                  << "slot quint64 checkedFilesKB()"
                                  << "slot QString copyCheckedFilesTo(QString)"
                                  << "private slot void recursiveCheck(QModelIndex,QVariant)");
}

void tst_FileSystemModel::rolesKeepTheirNumbersAndValues()
{
    const TestDir dir;
    dir.file("a.csv", 5000, aDay);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QModelIndex file = model.index(dir.path("a.csv"));
    const QModelIndex folder = model.index(dir.path());

    QCOMPARE(model.data(file, 36), QVariant(model.type(file)));
    QCOMPARE(model.data(file, 37),
             QVariant(QDateTime::fromMSecsSinceEpoch(aDay * Q_INT64_C(1000))));
    QCOMPARE(model.data(file, 38), QVariant(qint64(5000)));
    QCOMPARE(model.data(file, 39), QVariant(QString("a.csv")));
    QCOMPARE(model.data(file.sibling(file.row(), 2), 39), QVariant(model.type(file)));
    QCOMPARE(model.data(file, 40), QVariant(false));
    QCOMPARE(model.data(folder, 40), QVariant(true));
    QCOMPARE(model.data(file, QFileSystemModel::FilePathRole), QVariant(dir.path("a.csv")));
    QCOMPARE(model.data(file, QFileSystemModel::FileNameRole), QVariant(QString("a.csv")));

    // Qt's model takes what it doesn't know for a folder.
    QCOMPARE(model.data(QModelIndex(), 40), QVariant(true));
}

void tst_FileSystemModel::everyColumnButTheFirstIsRightAligned()
{
    const TestDir dir;
    dir.file("a.csv", 5000);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QModelIndex file = model.index(dir.path("a.csv"));
    QCOMPARE(model.data(file, Qt::TextAlignmentRole), QVariant());
    for (int column = 1; column < model.columnCount(); ++column) {
        const QModelIndex cell = file.sibling(file.row(), column);
        QCOMPARE(model.data(cell, Qt::TextAlignmentRole).toInt(),
                 int(Qt::AlignRight | Qt::AlignVCenter));
    }
}

void tst_FileSystemModel::onlyTheTaggedPathIsHighlighted()
{
    const TestDir dir;
    dir.file("a.csv", 1);
    dir.file("b.csv", 1);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QFont plain("OpenSans", 12, QFont::Normal, false);
    const QFont tagged("OpenSans", 12, QFont::DemiBold, true);
    const QString a = dir.path("a.csv");
    const QString b = dir.path("b.csv");

    QCOMPARE(fontOf(model, a), plain);
    QCOMPARE(colorOf(model, a), QColor(51, 51, 51));

    model.setTaggedPath(a);
    QCOMPARE(fontOf(model, a), tagged);
    QCOMPARE(fontOf(model, a).family(), QString("OpenSans"));
    QCOMPARE(fontOf(model, a).pointSize(), 12);
    QCOMPARE(int(fontOf(model, a).weight()), int(QFont::DemiBold));
    QVERIFY(fontOf(model, a).italic());
    QCOMPARE(colorOf(model, a), QColor("#0076BC"));
    QCOMPARE(fontOf(model, b), plain);
    QCOMPARE(int(fontOf(model, b).weight()), int(QFont::Normal));
    QVERIFY(!fontOf(model, b).italic());
    QCOMPARE(colorOf(model, b), QColor(51, 51, 51));
    const QModelIndex size = model.index(a).sibling(model.index(a).row(), 1);
    QCOMPARE(model.data(size, Qt::FontRole).value<QFont>(), tagged);

    model.setTaggedPath("a.csv"); // a name is no full path
    QCOMPARE(fontOf(model, a), plain);

    model.setTaggedPath(b);
    model.clearTaggedPath();
    QCOMPARE(fontOf(model, b), plain);
    QCOMPARE(colorOf(model, b), QColor(51, 51, 51));
}

void tst_FileSystemModel::taggingIsAnnouncedByNoSignal()
{
    const TestDir dir;
    dir.file("a.csv", 1);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    SignalLog log(&model);
    model.setTaggedPath(dir.path("a.csv"));
    model.setTaggedPath(dir.path("a.csv"));
    model.clearTaggedPath();
    model.clearTaggedPath();
    QCOMPARE(log.names(), QStringList());
}

void tst_FileSystemModel::foldersHaveTheFolderImageAndFilesNone()
{
    const TestDir dir;
    dir.file("a.csv", 1);
    dir.folder("soil");
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QModelIndex folder = model.index(dir.path("soil"));
    const QPixmap image = model.data(folder, Qt::DecorationRole).value<QPixmap>();
    QCOMPARE(image.size(), QSize(24, 24));
    QCOMPARE(image.toImage(), QPixmap(":/images/blue-folder.png").toImage());
    QCOMPARE(model.data(folder, Qt::DecorationRole).value<QPixmap>().cacheKey(), image.cacheKey());

    const QModelIndex file = model.index(dir.path("a.csv"));
    QVERIFY(!model.data(file, Qt::DecorationRole).isValid());
    QVERIFY(!model.data(folder.sibling(folder.row(), 1), Qt::DecorationRole).isValid());
}

void tst_FileSystemModel::everyIndexIsUserCheckable()
{
    const TestDir dir;
    dir.file("a.csv", 1);
    FileSystemModel model;
    QFileSystemModel plain;
    QVERIFY(load(model, dir.path()));
    QVERIFY(load(plain, dir.path()));
    const QModelIndex file = model.index(dir.path("a.csv"));
    QVERIFY(!model.isSelectable());
    for (int column = 0; column < model.columnCount(); ++column) {
        QCOMPARE(model.flags(file.sibling(file.row(), column)),
                 plain.flags(plain.index(dir.path("a.csv"), column)) | Qt::ItemIsUserCheckable);
    }
    QCOMPARE(model.flags(QModelIndex()), plain.flags(QModelIndex()) | Qt::ItemIsUserCheckable);
}

void tst_FileSystemModel::settersEmitNothing()
{
    FileSystemModel model;
    SignalLog log(&model);
    model.setIsSelectable(true);
    model.setIsSelectable(true);
    model.setIsSelectable(false);
    model.setDateTimeFormat("yyyy");
    QCOMPARE(log.names(), QStringList());
}

void tst_FileSystemModel::rowsOfTheAccountsHomeArePreloaded_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("selectable");
    QTest::addColumn<bool>("preloaded");
    QTest::newRow("home") << "/home/ostan/logs" << true << true;
    QTest::newRow("no check boxes") << "/home/ostan/logs" << false << false;
    QTest::newRow("elsewhere") << "/var/tmp/somewhere/logs" << true << false;
    QTest::newRow("any case, anywhere in the path") << "/var/tmp/KOSTANZE/logs" << true << true;
}

void tst_FileSystemModel::rowsOfTheAccountsHomeArePreloaded()
{
    QFETCH(QString, path);
    QFETCH(bool, selectable);
    QFETCH(bool, preloaded);
    const TestDir dir(path);
    dir.file("a.csv", 1);
    dir.folder("soil");
    dir.folder("flux");
    dir.file("soil/b.csv", 1);
    CountingModel model;
    model.setIsSelectable(selectable);
    QVERIFY(load(model, path));
    model.fetched.clear();
    model.readDirectory(path);

    QStringList rows;
    const QModelIndex folder = model.index(path);
    for (int row = 0; row < model.rowCount(folder); ++row)
        rows << model.index(row, 0, folder).data().toString();
    QCOMPARE(rows.count(), 3);
    if (!filesAreWatched())
        rows.removeAll("a.csv");
    QCOMPARE(model.fetched, preloaded ? rows : QStringList());
}

void tst_FileSystemModel::preloadingGoesOneLevelPerLoadedFolder()
{
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil/deep/deeper");
    FileSystemModel model;
    model.setIsSelectable(true);
    QVERIFY(load(model, dir.path()));
    QVERIFY(waitUntil([&] { return isThere(model, dir.path("soil"), "deep"); }));
    QVERIFY(waitUntil([&] { return isThere(model, dir.path("soil/deep"), "deeper"); }));

    FileSystemModel without;
    QVERIFY(load(without, dir.path()));
    letTimePass(200);
    QVERIFY(!isThere(without, dir.path("soil"), "deep"));
}

void tst_FileSystemModel::filesAreAnnouncedAsLoadedToo()
{
    if (!filesAreWatched())
        QSKIP("the model of this Qt hangs when files are watched", SkipAll);
    const TestDir dir("/home/ostan/logs");
    dir.file("a.csv", 1);
    dir.file("b.csv", 1);
    dir.folder("soil");
    FileSystemModel model;
    model.setIsSelectable(true);
    const LoadedPaths loaded(model);
    QVERIFY(load(model, dir.path()));
    QVERIFY(loaded.wait(dir.path("a.csv")));
    QVERIFY(loaded.wait(dir.path("b.csv")));
    QVERIFY(loaded.wait(dir.path("soil")));
}

// A log is written all day, and its folder stays the same.
void tst_FileSystemModel::aGrowingFileShowsItsNewSizeAndDate()
{
    if (!filesAreWatched())
        QSKIP("the model of this Qt hangs when files are watched", SkipAll);
    const TestDir dir("/home/ostan/logs");
    dir.file("today.log", 1000, aDay);
    FileSystemModel model;
    model.setIsSelectable(true);
    const LoadedPaths loaded(model);
    QVERIFY(load(model, dir.path()));
    QVERIFY(loaded.wait(dir.path("today.log")));
    const QPersistentModelIndex file = model.index(dir.path("today.log"));
    QCOMPARE(model.size(file), qint64(1000));
    QCOMPARE(model.lastModified(file), QDateTime::fromMSecsSinceEpoch(aDay * Q_INT64_C(1000)));

    for (int i = 1; i <= 3; ++i) { // and is watched on
        dir.grow("today.log", 5000);
        QVERIFY(waitUntil([&] { return model.size(file) == 1000 + i * 5000; }));
        QVERIFY(model.lastModified(file) > QDateTime::fromMSecsSinceEpoch(aDay * Q_INT64_C(1000)));
        QCOMPARE(model.data(file, FileSystemModel::SizeRole), QVariant(qint64(1000 + i * 5000)));
    }
    QVERIFY(model.setData(file, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.checkedFilesKB(), quint64(model.size(file)));
}

void tst_FileSystemModel::otherRolesAreSetByQtsModel()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QModelIndex file = model.index(dir.path("a.csv"));
    QVERIFY(!model.setData(file, "b.csv", Qt::EditRole)); // read-only
    QVERIFY(!model.setData(file, "b.csv", Qt::UserRole));
    model.setReadOnly(false);
    QVERIFY(model.setData(file, "b.csv", Qt::EditRole));
    QCOMPARE(dir.names(), QStringList("b.csv"));
    QCOMPARE(model.checkedFilesKB(), quint64(0));
}

// Folders are read by a thread of Qt's, whose user id is switched with all others. What it could
// not read then stays empty until it is read anew.
void tst_FileSystemModel::whatIsReadUnderAGuardIsWhatTheAccountMayRead()
{
    const TestDir dir;
    for (const char *folder : {"public", "roots own"}) {
        dir.folder(folder);
        dir.file(QString(folder) + "/a.csv", 10);
    }
    chmod(dir.path("roots own").toLocal8Bit().constData(), 0700);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    {
        const PrivilegeDropGuard guard;
        QVERIFY(load(model, dir.path("public")));
        QVERIFY(load(model, dir.path("roots own")));
        QVERIFY(isThere(model, dir.path("public"), "a.csv"));
        QCOMPARE(model.rowCount(model.index(dir.path("roots own"))), 0);
    }
    FileSystemModel another;
    QVERIFY(load(another, dir.path("roots own")));
    QVERIFY(isThere(another, dir.path("roots own"), "a.csv"));
}

QTEST_MAIN(tst_FileSystemModel)
#include "tst_filesystemmodel.moc"
