// What checking entries of the tree does, to themselves, to the total and to a copy of them.

#include "tree/filesystemmodel.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/loading.h"
#include "support/signallog.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <unistd.h>

namespace {
const time_t aDay = 1370044800; // 1 June 2013, 00:00 UTC

void check(FileSystemModel &model, const QString &path, const QVariant &value = Qt::Checked)
{
    model.setData(model.index(path), value, Qt::CheckStateRole);
}

QVariant checkState(const FileSystemModel &model, const QString &path)
{
    return model.data(model.index(path), Qt::CheckStateRole);
}

/** Paths of the rows whose data changed, in order. */
class ChangedRows : public QObject
{
    Q_OBJECT

public:
    explicit ChangedRows(const QFileSystemModel &model)
        : m_model(model)
    {
        connect(&model, SIGNAL(dataChanged(QModelIndex, QModelIndex)), this,
                SLOT(record(QModelIndex, QModelIndex)));
    }

    QStringList paths;

private slots:
    void record(const QModelIndex &first, const QModelIndex &last)
    {
        QCOMPARE(first, last);
        paths.append(m_model.filePath(first));
    }

private:
    const QFileSystemModel &m_model;
};
} // namespace

class tst_Checking : public QObject
{
    Q_OBJECT

private slots:
    void withoutCheckBoxesThereIsNoCheckState();
    void checkingAFolderTellsEveryRowLowestFirst();
    void aLinkCountsWhatItLeadsTo();
    void whatIsBelowAnEditedFolderKeepsItsSize();
    void debugLinesNameTheEntryAndItsSize();
    void anythingButCheckedUnchecks_data();
    void anythingButCheckedUnchecks();
    void checkingAFolderThatIsNotLoadedSaysSo();
    void anEmptyFolderSaysThatItIsNotLoaded();
    void listSelectedFilesDoesNothing();
    void clearAllOfANewModelLeavesTheTotalAlone();
    void aRootThatIsAFileByNowHasNothingToCheck();
    void copyCarriesTimesAndNamesWhatFailed();
    void copyNeverOverwrites();
    void copyOfNothingIsNoFailure();
    void copyRunsWithTheRightsOfTheProcess();
    void aCopyWhoseTimesAreLostCountsAsCopied();
    void removedEntriesAreStillCopiedAsEmptyNames();
    void entriesStayCheckedWhileTheModelSorts();
    void entriesHiddenByAFilterLoseTheirCheckAndKeepTheirSize();
};

void tst_Checking::withoutCheckBoxesThereIsNoCheckState()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    const QString a = dir.path("a.csv");
    check(model, a);
    QVERIFY(!checkState(model, a).isValid());
    QCOMPARE(model.checkedFilesKB(), quint64(10));

    model.setIsSelectable(true);
    QVERIFY(model.isSelectable());
    QCOMPARE(checkState(model, a), QVariant(int(Qt::Checked)));
    for (int column = 1; column < model.columnCount(); ++column)
        QVERIFY(!model.data(model.index(a, column), Qt::CheckStateRole).isValid());

    model.setIsSelectable(false);
    QVERIFY(!checkState(model, a).isValid());
    QCOMPARE(model.checkedFilesKB(), quint64(10));
}

void tst_Checking::checkingAFolderTellsEveryRowLowestFirst()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/a.csv", 100);
    dir.file("soil/b.csv", 20);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    QVERIFY(load(model, dir.path("soil")));

    // Qt's model sorts its rows some time after they are loaded.
    QStringList rows;
    const QModelIndex folder = model.index(dir.path("soil"));
    for (int row = 0; row < model.rowCount(folder); ++row)
        rows << model.filePath(model.index(row, 0, folder));
    QCOMPARE(rows.count(), 2);

    SignalLog log(&model);
    const ChangedRows changed(model);
    check(model, dir.path("soil"));

    QStringList expected;
    for (int row = 0; row < 3; ++row)
        expected << "dataChanged"
                 << "checkedFilesKBChanged";
    QCOMPARE(log.names(), expected);
    QCOMPARE(changed.paths, rows << dir.path("soil"));
    QCOMPARE(model.checkedFilesKB(), quint64(120 + QFileInfo(dir.path("soil")).size()));
}

void tst_Checking::aLinkCountsWhatItLeadsTo()
{
    const TestDir elsewhere;
    elsewhere.file("a.csv", 5000);
    const TestDir dir;
    QVERIFY(QFile::link(elsewhere.path("a.csv"), dir.path("file")));
    QVERIFY(QFile::link(elsewhere.path(), dir.path("folder")));
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    check(model, dir.path("file"));
    QCOMPARE(model.checkedFilesKB(), quint64(5000));
    elsewhere.file("a.csv", 300);
    check(model, dir.path("file"), Qt::Unchecked);
    QCOMPARE(model.checkedFilesKB(), quint64(4700));
    check(model, dir.path("folder"));
    QCOMPARE(model.checkedFilesKB(), quint64(4700 + QFileInfo(elsewhere.path()).size()));
}

void tst_Checking::whatIsBelowAnEditedFolderKeepsItsSize()
{
    const TestDir dir;
    dir.folder("soil/2013");
    dir.file("soil/2013/a.csv", 5000);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    QVERIFY(load(model, dir.path("soil")));
    QVERIFY(load(model, dir.path("soil/2013")));
    const QModelIndex file = model.index(dir.path("soil/2013/a.csv"));
    model.setReadOnly(false);
    QVERIFY(model.setData(model.index(dir.path("soil")), "flux"));
    QCOMPARE(model.filePath(file), dir.path("flux/2013/a.csv"));
    model.setData(file, Qt::Checked, Qt::CheckStateRole);
    QCOMPARE(model.checkedFilesKB(), quint64(5000));
}

void tst_Checking::debugLinesNameTheEntryAndItsSize()
{
    const TestDir dir;
    dir.file("a b.csv", 5000);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    DebugLog log;
    check(model, dir.path("a b.csv"));
    check(model, dir.path("a b.csv"));
    check(model, dir.path("a b.csv"), Qt::Unchecked);
    QCOMPARE(log.lines(), QStringList() << "Add Size  \"a b.csv\" = 5000"
                                        << "Add Size  \"a b.csv\" = 5000"
                                        << "Remove Size  \"a b.csv\" = 5000");
}

void tst_Checking::anythingButCheckedUnchecks_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<quint64>("total");
    QTest::newRow("unchecked") << QVariant(int(Qt::Unchecked)) << quint64(0);
    QTest::newRow("partially checked") << QVariant(int(Qt::PartiallyChecked)) << quint64(0);
    QTest::newRow("nothing") << QVariant() << quint64(0);
    QTest::newRow("a text") << QVariant(QString("checked")) << quint64(0);
    QTest::newRow("the number 2") << QVariant(2) << quint64(70);
    QTest::newRow("the number 2.0") << QVariant(2.0) << quint64(70);
}

void tst_Checking::anythingButCheckedUnchecks()
{
    QFETCH(QVariant, value);
    QFETCH(quint64, total);
    const TestDir dir;
    dir.file("a.csv", 70);
    FileSystemModel model;
    model.setIsSelectable(true);
    QVERIFY(load(model, dir.path()));
    check(model, dir.path("a.csv"));
    QVERIFY(model.setData(model.index(dir.path("a.csv")), value, Qt::CheckStateRole));
    QCOMPARE(model.checkedFilesKB(), total);
    QCOMPARE(checkState(model, dir.path("a.csv")).toInt(),
             int(total == 0 ? Qt::Unchecked : Qt::Checked));
}

void tst_Checking::checkingAFolderThatIsNotLoadedSaysSo()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("soil/a.csv", 100);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    DebugLog log;
    const QSignalSpy total(&model, SIGNAL(checkedFilesKBChanged()));
    check(model, dir.path("soil"));

    const qint64 size = QFileInfo(dir.path("soil")).size();
    QCOMPARE(log.lines().count(), 2);
    QCOMPARE(log.lines().first(), QString("Add Size  \"soil\" = %1").arg(size));
    const QString error = " ERROR: FileSystemModel::recursiveCheck() - Need to fetch more files "
                          "not loaded in model!";
    QVERIFY(log.lines().last().endsWith(error));
    QString time = log.lines().last();
    time.chop(error.size());
    QVERIFY(time.startsWith('"') && time.endsWith('"'));
    QVERIFY(QDateTime::fromString(time.mid(1, time.size() - 2)).isValid());
    QCOMPARE(total.count(), 1);
    QCOMPARE(model.checkedFilesKB(), quint64(size));
    QCOMPARE(model.rowCount(model.index(dir.path("soil"))), 0);
}

void tst_Checking::anEmptyFolderSaysThatItIsNotLoaded()
{
    const TestDir dir;
    dir.folder("empty");
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    QVERIFY(load(model, dir.path("empty")));
    DebugLog log;
    check(model, dir.path("empty"));
    QVERIFY(log.lines().last().endsWith("Need to fetch more files not loaded in model!"));
}

void tst_Checking::listSelectedFilesDoesNothing()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    check(model, dir.path("a.csv"));
    SignalLog log(&model);
    DebugLog debug;
    model.listSelectedFiles();
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(debug.lines(), QStringList());
    QCOMPARE(model.checkedFilesKB(), quint64(10));
}

void tst_Checking::clearAllOfANewModelLeavesTheTotalAlone()
{
    FileSystemModel model;
    SignalLog log(&model);
    DebugLog debug;
    model.clearAll();
#if QT_VERSION < 0x050000
    // There a new model has rows: the root and those on the way to the working directory.
    QVERIFY(log.count("dataChanged") > 1);
    QCOMPARE(log.count("checkedFilesKBChanged"), log.count("dataChanged"));
#else
    QCOMPARE(log.names(), QStringList() << "dataChanged"
                                        << "checkedFilesKBChanged");
    QCOMPARE(debug.lines().count(), 2);
    QCOMPARE(debug.lines().first(), QString("Remove Size  \"\" = 0"));
#endif
    QCOMPARE(model.checkedFilesKB(), quint64(0));
}

void tst_Checking::aRootThatIsAFileByNowHasNothingToCheck()
{
    const TestDir dir;
    dir.folder("soil");
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    model.setRootPath(dir.path("soil"));
    model.fetchMore(model.index(dir.path())); // or nobody watches the folder above
    removeTree(dir.path("soil"));
    dir.file("soil", 10);
    QVERIFY(waitUntil([&] { return !model.isDir(model.index(dir.path("soil"))); }));

    SignalLog log(&model);
    model.selectAll();
    QCOMPARE(log.count("checkedFilesKBChanged"), 0);
    QCOMPARE(model.checkedFilesKB(), quint64(0));
}

void tst_Checking::copyCarriesTimesAndNamesWhatFailed()
{
    const TestDir dir;
    dir.file("a b.csv", 5000, aDay);
    dir.file("c.csv", 17, aDay + 86400);
    dir.folder("soil");
    const TestDir target;
    FileSystemModel model;
    model.setIsSelectable(true);
    QVERIFY(load(model, dir.path()));
    model.selectAll();
    const quint64 total = model.checkedFilesKB();

    SignalLog log(&model);
    DebugLog debug;
    QCOMPARE(model.copyCheckedFilesTo(target.path()), QString("soil"));

    QCOMPARE(target.names(), QStringList() << "a b.csv"
                                           << "c.csv");
    const QFileInfo copy(target.path("a b.csv"));
    QCOMPARE(copy.lastModified(), QDateTime::fromMSecsSinceEpoch(aDay * Q_INT64_C(1000)));
    // Reading the source to copy it may count as its last read.
    QCOMPARE(copy.lastRead().toMSecsSinceEpoch() / 1000,
             QFileInfo(dir.path("a b.csv")).lastRead().toMSecsSinceEpoch() / 1000);
    QCOMPARE(target.contents("a b.csv"), dir.contents("a b.csv"));
    QCOMPARE(debug.lines().first(), QString("FileSystemModel::copySelectedTo()"));
    QStringList selected = debug.lines().mid(1);
    selected.sort();
    QCOMPARE(selected, QStringList() << "Selected  \"a b.csv\""
                                     << "Selected  \"c.csv\""
                                     << "Selected  \"soil\"");
    QCOMPARE(log.names(), QStringList());
    QCOMPARE(model.checkedFilesKB(), total);
    QCOMPARE(checkState(model, dir.path("soil")).toInt(), int(Qt::Checked));
    QCOMPARE(checkState(model, dir.path("c.csv")).toInt(), int(Qt::Checked));
}

void tst_Checking::copyNeverOverwrites()
{
    const TestDir dir;
    dir.file("a.csv", QByteArray("new"));
    dir.file("b.csv", QByteArray("new"));
    const TestDir target;
    target.file("a.csv", QByteArray("old"));
    target.file("b.csv", QByteArray("old"));
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    model.selectAll();
    QStringList failed = model.copyCheckedFilesTo(target.path()).split(' ');
    failed.sort();
    QCOMPARE(failed, QStringList() << "a.csv"
                                   << "b.csv");
    QCOMPARE(target.contents("a.csv"), QByteArray("old"));
}

void tst_Checking::copyOfNothingIsNoFailure()
{
    FileSystemModel model;
    QCOMPARE(model.copyCheckedFilesTo("/nowhere"), QString(""));
}

void tst_Checking::copyRunsWithTheRightsOfTheProcess()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    const TestDir target;
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    model.selectAll();
    QCOMPARE(model.copyCheckedFilesTo(target.path()), QString());
    QCOMPARE(ownerOf(target.path("a.csv").toLocal8Bit()), geteuid());
}

void tst_Checking::aCopyWhoseTimesAreLostCountsAsCopied()
{
    const TestDir dir;
    const QString name = QString::fromUtf8("m\xC3\xBCll.csv"); // other bytes in Latin-1
    dir.file(name, 10, aDay);
    const TestDir target;
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    model.selectAll();
    DebugLog debug;
    QCOMPARE(model.copyCheckedFilesTo(target.path()), QString());
    QCOMPARE(target.names(), QStringList(name));
    QCOMPARE(debug.lines().last(),
             QString("WARNING: Directory::copySelectedTo() - Failed to copy date modified!"));
}

void tst_Checking::removedEntriesAreStillCopiedAsEmptyNames()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.file("b.csv", 20);
    dir.file("c.csv", 40);
    const TestDir target;
    FileSystemModel model;
    QVERIFY(load(model, dir.path()));
    model.selectAll();
    QFile::remove(dir.path("a.csv"));
    QFile::remove(dir.path("b.csv"));
    QVERIFY(waitUntil([&] { return model.rowCount(model.index(dir.path())) == 1; }));
    QCOMPARE(model.checkedFilesKB(), quint64(70));

    DebugLog debug;
    QCOMPARE(model.copyCheckedFilesTo(target.path()), QString(" ")); // two empty names
    QCOMPARE(debug.lines().count("Selected  \"\""), 2);
    QCOMPARE(target.names(), QStringList("c.csv"));
}

void tst_Checking::entriesStayCheckedWhileTheModelSorts()
{
    const TestDir dir;
    for (int i = 0; i < 20; ++i)
        dir.file(QString("%1.csv").arg(i), 1 + i);
    FileSystemModel model;
    model.setIsSelectable(true);
    QVERIFY(load(model, dir.path()));
    check(model, dir.path("3.csv"));
    check(model, dir.path("17.csv"));
    const QSignalSpy sorted(&model, SIGNAL(layoutChanged()));
    for (int column = 3; column >= 0; --column) {
        model.sort(column, Qt::DescendingOrder);
        model.sort(column, Qt::AscendingOrder);
        for (int i = 0; i < 20; ++i) {
            const bool checked = i == 3 || i == 17;
            QCOMPARE(checkState(model, dir.path(QString("%1.csv").arg(i))).toInt(),
                     int(checked ? Qt::Checked : Qt::Unchecked));
        }
    }
    QVERIFY(sorted.count() >= 7);
    check(model, dir.path("3.csv"), Qt::Unchecked);
    QCOMPARE(model.checkedFilesKB(), quint64(18));
}

void tst_Checking::entriesHiddenByAFilterLoseTheirCheckAndKeepTheirSize()
{
    const TestDir dir;
    dir.file("a.csv", 10);
    dir.file("b.txt", 20);
    FileSystemModel model;
    model.setIsSelectable(true);
    QVERIFY(load(model, dir.path()));
    model.selectAll();
    model.setNameFilters(QStringList("*csv*"));
    QVERIFY(waitUntil([&] { return !isThere(model, dir.path(), "b.txt"); }));
    model.setNameFilters(QStringList());
    QVERIFY(waitUntil([&] { return isThere(model, dir.path(), "b.txt"); }));
    QCOMPARE(checkState(model, dir.path("a.csv")).toInt(), int(Qt::Checked));
    QCOMPARE(checkState(model, dir.path("b.txt")).toInt(), int(Qt::Unchecked));
    QCOMPARE(model.checkedFilesKB(), quint64(30));
}

QTEST_MAIN(tst_Checking)
#include "tst_checking.moc"
