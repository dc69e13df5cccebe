#include "tree/filesystemproxymodel.h"

#include "tree/filesystemmodel.h"

#include "support/loading.h"
#include "support/modelchecker.h"
#include "support/signallog.h"
#include "support/surface.h"
#include "support/testdir.h"
#include "support/timezone.h"
#include "support/waiting.h"

#include <QDateTime>
#include <QFileInfo>
#include <QStandardItemModel>
#include <QTest>

#include <algorithm>
#include <random>

#include <sys/stat.h>
#include <unistd.h>

namespace {
const time_t aDay = 1370044800; // 1 June 2013, 00:00 UTC
const time_t day = 86400;
const int nameColumn = 0;
const int sizeColumn = 1;
const int typeColumn = 2;
const int dateColumn = 3;

QStringList rows(const QAbstractItemModel &model, const QModelIndex &parent)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(parent); ++row)
        names.append(model.index(row, 0, parent).data().toString());
    return names;
}

/**
 * The model but for two things about Qt's checker of models: it does not take that the invalid
 * index is user checkable, deliberate as it is, and it would load the whole file system.
 */
class CheckableModel : public FileSystemModel
{
public:
    explicit CheckableModel(const QString &path)
        : m_path(path)
    {
    }

    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        const Qt::ItemFlags all = FileSystemModel::flags(index);
        return index.isValid() ? all : all & ~Qt::ItemIsUserCheckable;
    }

    bool canFetchMore(const QModelIndex &parent) const override
    {
        return filePath(parent).startsWith(m_path) && isDir(parent) &&
               FileSystemModel::canFetchMore(parent);
    }

private:
    const QString m_path;
};

/** A folder seen through the proxy, set up as the tree does it. */
class SortedFolder
{
public:
    explicit SortedFolder(const QString &path)
        : model(path)
        , m_path(path)
    {
        proxy.setSourceModel(&model);
        proxy.setDynamicSortFilter(true);
        if (!load(model, path))
            qFatal("the folder was not loaded");
    }

    QStringList names() const
    {
        return rows(proxy, proxy.mapFromSource(model.index(m_path)));
    }

    QStringList sorted(int column, Qt::SortOrder order = Qt::AscendingOrder)
    {
        proxy.sort(column, order);
        return names();
    }

    CheckableModel model;
    FileSystemProxyModel proxy;

private:
    const QString m_path;
};
} // namespace

class tst_FileSystemProxyModel : public QObject
{
    Q_OBJECT

private slots:
    void aNewProxyGroupsFoldersFirst();
    void propertySignalAndSlotStandInTheirOrder();
    void settingTheSameGroupingDoesNothing();
    void theSignalComesBeforeTheRowsMove();
    void foldersStayTogetherInBothOrders_data();
    void foldersStayTogetherInBothOrders();
    void namesCompareUpperCaseFirst();
    void namesCompareAsTheProxyIsTold();
    void anEditedNameIsComparedAtOnce();
    void typesCompareByTheirText();
    void sizesCompareAsNumbers();
    void foldersCompareByTheSizeTheModelReports();
    void datesCompareAsTimes();
    void datesSortLikeDateTimes_data();
    void datesSortLikeDateTimes();
    void aChangedDateMovesItsRow();
    void newFilesFallIntoPlace();
    void aReusedNameIsSortedByItsNewDate();
    void bothModelsKeepTheirContracts();
    void overAnotherModelItIsAPlainProxy();
    void withoutAModelItIsEmpty();
};

void tst_FileSystemProxyModel::aNewProxyGroupsFoldersFirst()
{
    QObject parent;
    FileSystemProxyModel *proxy = new FileSystemProxyModel(&parent);
    QCOMPARE(static_cast<QObject *>(proxy)->parent(), &parent);
    QVERIFY(proxy->dirsFirst());
    const QSortFilterProxyModel plain;
    QCOMPARE(proxy->dynamicSortFilter(), plain.dynamicSortFilter());
    QCOMPARE(proxy->sortColumn(), plain.sortColumn());
    QCOMPARE(proxy->sortCaseSensitivity(), Qt::CaseSensitive);
    QVERIFY(!proxy->isSortLocaleAware());
}

void tst_FileSystemProxyModel::propertySignalAndSlotStandInTheirOrder()
{
    QCOMPARE(surface(FileSystemProxyModel::staticMetaObject),
             QStringList() << "bool dirsFirst rw dirsFirstChanged"
                           << "signal void dirsFirstChanged()"
                           << "slot void setDirsFirst(bool)");
}

void tst_FileSystemProxyModel::settingTheSameGroupingDoesNothing()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("a.csv", 1);
    SortedFolder folder(dir.path());
    folder.sorted(nameColumn);
    SignalLog log(&folder.proxy);
    folder.proxy.setDirsFirst(true);
    QCOMPARE(log.names(), QStringList());
}

void tst_FileSystemProxyModel::theSignalComesBeforeTheRowsMove()
{
    const TestDir dir;
    dir.folder("soil");
    dir.file("a.csv", 1);
    SortedFolder folder(dir.path());
    folder.sorted(nameColumn);
    SignalLog log(&folder.proxy);
    QVERIFY(folder.proxy.setProperty("dirsFirst", false));
    QVERIFY(!folder.proxy.property("dirsFirst").toBool());
    QCOMPARE(log.take(), QStringList() << "dirsFirstChanged"
                                       << "layoutAboutToBeChanged"
                                       << "layoutChanged");
    QCOMPARE(folder.names(), QStringList() << "a.csv"
                                           << "soil");
    folder.proxy.setDirsFirst(false);
    QCOMPARE(log.names(), QStringList());
}

void tst_FileSystemProxyModel::foldersStayTogetherInBothOrders_data()
{
    QTest::addColumn<bool>("dirsFirst");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first, ascending") << true << true << "b d a c";
    QTest::newRow("first, descending") << true << false << "d b c a";
    QTest::newRow("last, ascending") << false << true << "a c b d";
    QTest::newRow("last, descending") << false << false << "c a d b";
}

void tst_FileSystemProxyModel::foldersStayTogetherInBothOrders()
{
    QFETCH(bool, dirsFirst);
    QFETCH(bool, ascending);
    QFETCH(QString, expected);
    const Qt::SortOrder order = ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
    const TestDir dir;
    dir.file("a", 10, aDay);
    dir.folder("b");
    dir.file("c", 20, aDay + 10);
    dir.folder("d");
    setTimes(dir.path("b"), aDay + 2, aDay + 2);
    setTimes(dir.path("d"), aDay + 5, aDay + 5);
    SortedFolder folder(dir.path());
    folder.proxy.setDirsFirst(dirsFirst);
    QCOMPARE(folder.sorted(nameColumn, order).join(" "), expected);
    QCOMPARE(folder.sorted(dateColumn, order).join(" "), expected);
    QStringList bySize = folder.sorted(sizeColumn, order);
    QStringList files = bySize;
    files.removeAll("b");
    files.removeAll("d");
    QCOMPARE(files, ascending ? QStringList() << "a"
                                              << "c"
                              : QStringList() << "c"
                                              << "a");
    bySize = dirsFirst ? bySize.mid(2) : bySize.mid(0, 2);
    QCOMPARE(bySize, files);
}

void tst_FileSystemProxyModel::namesCompareUpperCaseFirst()
{
    const TestDir dir;
    dir.file("a.csv");
    dir.file("B.csv");
    dir.file("b.csv");
    dir.file("A.csv");
    dir.file("a10.csv");
    dir.file("a9.csv");
    SortedFolder folder(dir.path());
    QCOMPARE(folder.sorted(nameColumn), QStringList() << "A.csv"
                                                      << "B.csv"
                                                      << "a.csv"
                                                      << "a10.csv"
                                                      << "a9.csv"
                                                      << "b.csv");
}

void tst_FileSystemProxyModel::namesCompareAsTheProxyIsTold()
{
    const TestDir dir;
    dir.file("a", 30);
    dir.file("B", 20);
    dir.file("c", 10);
    SortedFolder folder(dir.path());
    QCOMPARE(folder.sorted(nameColumn).join(" "), QString("B a c"));
    folder.proxy.setSortCaseSensitivity(Qt::CaseInsensitive);
    QCOMPARE(folder.names().join(" "), QString("a B c"));
    folder.proxy.setSortRole(FileSystemModel::SizeRole);
    QCOMPARE(folder.names().join(" "), QString("c B a"));

    QSortFilterProxyModel plain;
    plain.setSourceModel(&folder.model);
    for (QSortFilterProxyModel *proxy :
         {static_cast<QSortFilterProxyModel *>(&folder.proxy), &plain}) {
        proxy->setSortRole(Qt::DisplayRole);
        proxy->setSortCaseSensitivity(Qt::CaseSensitive);
        proxy->setSortLocaleAware(true);
        proxy->sort(nameColumn);
    }
    QCOMPARE(folder.names(), rows(plain, plain.mapFromSource(folder.model.index(dir.path()))));
}

void tst_FileSystemProxyModel::anEditedNameIsComparedAtOnce()
{
    const TestDir dir;
    dir.file("a");
    dir.file("b");
    dir.file("c");
    SortedFolder folder(dir.path());
    folder.model.setReadOnly(false);
    QCOMPARE(folder.sorted(nameColumn).join(" "), QString("a b c"));
    QVERIFY(folder.model.setData(folder.model.index(dir.path("a")), "d"));
    // Before the model has got round to sorting its own rows.
    folder.proxy.invalidate();
    QCOMPARE(folder.names().join(" "), QString("b c d"));
}

void tst_FileSystemProxyModel::typesCompareByTheirText()
{
    const TestDir dir;
    dir.file("a.py");
    dir.file("b.csv");
    SortedFolder folder(dir.path());
    const QModelIndex a = folder.model.index(dir.path("a.py"), typeColumn);
    const QModelIndex b = folder.model.index(dir.path("b.csv"), typeColumn);
    QVERIFY(a.data().toString() > b.data().toString());
    QCOMPARE(folder.sorted(typeColumn).first(), QString("b.csv"));
    QCOMPARE(folder.sorted(typeColumn, Qt::DescendingOrder).first(), QString("a.py"));
}

void tst_FileSystemProxyModel::sizesCompareAsNumbers()
{
    const TestDir dir;
    dir.file("900", qint64(900));
    dir.file("12000", qint64(12000));
    dir.file("0");
    dir.file("3GB");
    QCOMPARE(truncate(dir.path("3GB").toLocal8Bit(), 3LL << 30), 0);
    SortedFolder folder(dir.path());
    const QStringList ascending = QStringList() << "0"
                                                << "900"
                                                << "12000"
                                                << "3GB";
    QCOMPARE(folder.sorted(sizeColumn), ascending);
    QStringList descending = ascending;
    std::reverse(descending.begin(), descending.end());
    QCOMPARE(folder.sorted(sizeColumn, Qt::DescendingOrder), descending);
}

void tst_FileSystemProxyModel::foldersCompareByTheSizeTheModelReports()
{
    const TestDir dir;
    dir.folder("full");
    dir.folder("empty");
    for (int i = 0; i < 500; ++i)
        dir.file(QString("full/%1").arg(i));
    SortedFolder folder(dir.path());
    // Qt's model takes every folder for empty, so that its own order is kept.
    QCOMPARE(folder.model.size(folder.model.index(dir.path("full"))), qint64(0));
    QCOMPARE(folder.model.size(folder.model.index(dir.path("empty"))), qint64(0));
    const QStringList own = rows(folder.model, folder.model.index(dir.path()));
    QCOMPARE(folder.sorted(sizeColumn), own);
    QCOMPARE(folder.sorted(sizeColumn, Qt::DescendingOrder), own);
}

void tst_FileSystemProxyModel::datesCompareAsTimes()
{
    const TestDir dir;
    dir.file("2 June 2013", 1, aDay + day);
    dir.file("10 May 2013", 1, aDay - 22 * day);
    dir.file("1 January 2014", 1, aDay + 214 * day);
    SortedFolder folder(dir.path());
    QCOMPARE(folder.sorted(dateColumn), QStringList() << "10 May 2013"
                                                      << "2 June 2013"
                                                      << "1 January 2014");
    QCOMPARE(folder.sorted(dateColumn, Qt::DescendingOrder).first(), QString("1 January 2014"));
}

void tst_FileSystemProxyModel::datesSortLikeDateTimes_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("seconds");
    const qint64 year = 366 * day;
    QTest::newRow("a year") << QByteArray("Europe/Berlin") << qint64(aDay) << year;
    QTest::newRow("the hour that comes twice")
        << QByteArray("Europe/Berlin") << qint64(1382832000) << qint64(14400);
    QTest::newRow("the hour that is left out")
        << QByteArray("Europe/Berlin") << qint64(1364684400) << qint64(14400);
    QTest::newRow("a zone that moved back without summer time")
        << QByteArray("Europe/Moscow") << qint64(1414270800) << qint64(14400);
    QTest::newRow("before 1970") << QByteArray("Europe/Berlin") << qint64(-7200) << qint64(14400);
    QTest::newRow("a second") << QByteArray("America/New_York") << qint64(aDay) << qint64(2);
}

void tst_FileSystemProxyModel::datesSortLikeDateTimes()
{
    QFETCH(QByteArray, zone);
    QFETCH(qint64, start);
    QFETCH(qint64, seconds);
    const TimeZone timeZone(zone.constData());
    const TestDir dir;
    std::mt19937 random(17);
    for (int i = 0; i < 200; ++i)
        dir.file(QString::number(i), 1, start + 1 + random() % seconds);
    SortedFolder folder(dir.path());

    for (int i = 0; i < 2; ++i) {
        const Qt::SortOrder order = i == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
        folder.sorted(dateColumn, order);
        const QModelIndex parent = folder.proxy.mapFromSource(folder.model.index(dir.path()));
        for (int row = 1; row < 200; ++row) {
            const QModelIndex one = folder.proxy.index(row - 1, 0, parent);
            const QModelIndex other = folder.proxy.index(row, 0, parent);
            const QDateTime earlier = folder.model.lastModified(folder.proxy.mapToSource(one));
            const QDateTime later = folder.model.lastModified(folder.proxy.mapToSource(other));
            QVERIFY(i == 0 ? !(later < earlier) : !(earlier < later));
        }
    }
}

void tst_FileSystemProxyModel::aChangedDateMovesItsRow()
{
    const TestDir dir;
    dir.file("a", 1, aDay);
    dir.file("b", 1, aDay + 10);
    dir.file("c", 1, aDay + 20);
    SortedFolder folder(dir.path());
    QCOMPARE(folder.sorted(dateColumn).join(" "), QString("a b c"));
    // Nothing else happens to the folder: a row that comes or goes would sort it afresh. Qt 4.8's
    // model sees no new time before that.
    setTimes(dir.path("a"), aDay, aDay + 15);
#if QT_VERSION >= 0x050000
    QVERIFY(waitUntil([&] { return folder.names().join(" ") == "b a c"; }));
#endif
    chmod(dir.path("a").toLocal8Bit(), 0600);
    dir.file("new", 1, aDay - 10);
    QVERIFY(waitUntil([&] { return folder.names().join(" ") == "new b a c"; }));
}

void tst_FileSystemProxyModel::newFilesFallIntoPlace()
{
    const TestDir dir;
    dir.file("b", 1, aDay);
    dir.folder("z");
    SortedFolder folder(dir.path());
    QCOMPARE(folder.sorted(dateColumn).join(" "), QString("z b"));
    dir.file("c", 1, aDay - 1);
    dir.file("a", 1, aDay + 1);
    QVERIFY(waitUntil([&] { return folder.names().join(" ") == "z c b a"; }));
}

void tst_FileSystemProxyModel::aReusedNameIsSortedByItsNewDate()
{
    const TestDir dir;
    dir.file("a", 1, aDay);
    dir.file("b", 1, aDay + 10);
    SortedFolder folder(dir.path());
    QCOMPARE(folder.sorted(dateColumn).join(" "), QString("a b"));
    for (int i = 0; i < 20; ++i) {
        QVERIFY(QFile::remove(dir.path("a")));
        QVERIFY(waitUntil([&] { return folder.names().join(" ") == "b"; }));
        const bool later = i % 2 == 0;
        dir.file("a", 1, later ? aDay + 20 : aDay);
        const QString expected = later ? "b a" : "a b";
        QVERIFY(waitUntil([&] { return folder.names().join(" ") == expected; }));
    }
}

void tst_FileSystemProxyModel::bothModelsKeepTheirContracts()
{
    TestDir dir;
    dir.folder("soil");
    for (int i = 0; i < 30; ++i)
        dir.file(QString::number(i), qint64(i), aDay + i);
    SortedFolder folder(dir.path());
    folder.model.setIsSelectable(true);
    const Checker modelChecker(&folder.model);
    const Checker proxyChecker(&folder.proxy);
    folder.sorted(dateColumn);
    folder.model.selectAll();

    dir.file("new.csv");
    QVERIFY(waitUntil([&] { return folder.names().contains("new.csv"); }));
    QVERIFY(QFile::rename(dir.path("new.csv"), dir.path("newer.csv")));
    QVERIFY(waitUntil([&] { return folder.names().contains("newer.csv"); }));
    QVERIFY(QFile::remove(dir.path("7")));
    QVERIFY(waitUntil([&] { return !folder.names().contains("7"); }));
    QVERIFY(load(folder.model, dir.path("soil")));
    dir.file("soil/a.csv");
    QVERIFY(waitUntil([&] { return folder.model.index(dir.path("soil/a.csv")).isValid(); }));
    for (int column = nameColumn; column <= dateColumn; ++column) {
        folder.sorted(column, Qt::DescendingOrder);
        folder.proxy.setDirsFirst(!folder.proxy.dirsFirst());
        folder.model.sort(column, Qt::DescendingOrder);
    }
    folder.model.setNameFilters(QStringList("*1*"));
    QVERIFY(waitUntil([&] { return !folder.names().contains("2"); }));
    folder.model.clearAll();
    folder.model.setNameFilters(QStringList());
    QVERIFY(waitUntil([&] { return folder.names().contains("2"); }));
    QCOMPARE(folder.names().count(), 31);
}

void tst_FileSystemProxyModel::overAnotherModelItIsAPlainProxy()
{
    QStandardItemModel items(0, 4);
    const char *const texts[] = {"b", "10", "9", "B", "a"};
    for (const char *text : texts) {
        QList<QStandardItem *> row;
        for (int column = 0; column < 4; ++column)
            row.append(new QStandardItem(text));
        items.appendRow(row);
    }
    FileSystemProxyModel proxy;
    QSortFilterProxyModel plain;
    proxy.setSourceModel(&items);
    plain.setSourceModel(&items);
    for (int column = 0; column < 4; ++column) {
        for (int i = 0; i < 2; ++i) {
            const Qt::SortOrder order = i == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
            proxy.sort(column, order);
            plain.sort(column, order);
            QCOMPARE(rows(proxy, QModelIndex()), rows(plain, QModelIndex()));
        }
    }

    // Also over Qt's own model of the file system: folders are not grouped.
    const TestDir dir;
    dir.folder("b");
    dir.file("a");
    QFileSystemModel model;
    QVERIFY(load(model, dir.path()));
    proxy.setSourceModel(&model);
    proxy.sort(nameColumn);
    QCOMPARE(rows(proxy, proxy.mapFromSource(model.index(dir.path()))).join(" "), QString("a b"));
}

void tst_FileSystemProxyModel::withoutAModelItIsEmpty()
{
    FileSystemProxyModel proxy;
    proxy.sort(dateColumn);
    proxy.setDirsFirst(false);
    QCOMPARE(proxy.rowCount(), 0);
}

QTEST_MAIN(tst_FileSystemProxyModel)
#include "tst_filesystemproxymodel.moc"
