// Does each task once under valgrind's callgrind, for its instructions to be counted.
//
//   bench_counting <import path>
//
// Before a count the same is done once without: what only the first time takes is not its subject.
// Counts are written by callgrind where "<task>/<number of entries>" is announced to it; the line
// on the standard output says what was built and with what.

#include "directory/directory.h"
#include "support/bigfolder.h"
#include "tree/filetreevieweritem.h"
#include "usb/mounttable.h"

#include <QAbstractEventDispatcher>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QDeclarativeComponent>
#include <QDeclarativeEngine>
#include <QDeclarativeError>
#include <QFile>
#include <QGraphicsProxyWidget>
#include <QTreeView>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>

#include <gnu/libc-version.h>
#include <sys/stat.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

namespace {
const int count = 2000;
const int rowsOfTree = count;
const int copied = 500;
const int made = 10;
const int linesOfTable = 1000;
const int nameColumn = 0;
const int sizeColumn = 1;
const int dateColumn = 3;

void need(bool right, const char *what)
{
    if (right)
        return;
    fprintf(stderr, "wrong result: %s\n", what);
    exit(EXIT_FAILURE);
}

template <typename Work>
void counted(const std::string &task, int entries, const Work &work)
{
    const std::string title = task + '/' + std::to_string(entries);
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(title.c_str());
}

/** Counts @p work, which @p undo makes possible again. */
template <typename Work, typename Undo>
void countSecond(const std::string &task, int entries, const Work &work, const Undo &undo)
{
    work();
    undo();
    counted(task, entries, work);
}

QStringList shownNames(Directory *directory)
{
    QStringList names;
    QDeclarativeListProperty<File> files = directory->files();
    for (int i = 0; i < files.count(&files); ++i)
        names.append(files.at(&files, i)->name());
    return names;
}

void countListing(Directory *directory, const BigFolder &folder)
{
    const struct
    {
        const char *title;
        Directory::SortType type;
        QDir::SortFlags order;
    } rows[] = {{"by name", Directory::name, QDir::Name | QDir::IgnoreCase},
                {"by size", Directory::size, QDir::Size},
                {"by kind", Directory::kind, QDir::Name | QDir::DirsFirst},
                {"by date", Directory::date, QDir::Time}};
    const QString elsewhere = directory->root();
    directory->setCurrentPath(folder.path());
    for (const auto &row : rows) {
        const auto isShown = [&] { return shownNames(directory) == folder.names(row.order); };
        countSecond(
            std::string("change the order to ") + row.title, count,
            [&] { directory->setSortType(row.type); },
            [&] {
                directory->setSortType(row.type == Directory::name ? Directory::date
                                                                   : Directory::name);
            });
        need(isShown(), row.title);
        countSecond(
            std::string("list ") + row.title, count,
            [&] { directory->setCurrentPath(folder.path()); },
            [&] { directory->setCurrentPath(elsewhere); });
        need(isShown(), row.title);
    }
    countSecond(
        "list again", count, [&] { directory->refresh(); }, [] {});
    need(shownNames(directory) == folder.names(QDir::Time), "listed again");
}

void countSelection(Directory *directory)
{
    const auto select = [&] { directory->selectAll(); };
    const auto clear = [&] { directory->clearAll(); };
    countSecond("select all", count, select, clear);
    QString text;
    countSecond(
        "read selectedFiles", count, [&] { text = directory->selectedFiles(); }, [] {});
    need(text.count(QLatin1String(".csv")) == count - count / 100, "selected files");
    countSecond("clear the selection", count, clear, select);
    need(directory->selectedFiles().isEmpty(), "cleared selection");
}

void countCopying(Directory *directory)
{
    const BigFolder source(copied);
    const QString target = QLatin1String("/home/ostan/copies");
    QDir().mkpath(target);
    chmod(target.toLatin1().constData(), 0777); // for the account too
    const int files = copied - copied / 100;
    directory->setCurrentPath(source.path());
    directory->selectAll();
    QString failed;
    countSecond(
        "copy", files, [&] { failed = directory->copySelectedTo(target); },
        [&] {
            for (const QString &name : QDir(target).entryList(QDir::Files))
                QFile::remove(target + QLatin1Char('/') + name);
            directory->selectAll();
        });
    need(failed.isEmpty() && QDir(target).entryList(QDir::Files).size() == files, "copies");
}

void countMountTable()
{
    const QString path = QLatin1String("/home/ostan/mounts");
    QFile table(path);
    table.open(QIODevice::WriteOnly);
    for (int i = 0; i < linesOfTable - 1; ++i) {
        table.write("tmpfs /run/service/" + QByteArray::number(i) +
                    " tmpfs rw,nosuid,nodev,noexec,relatime,size=10240k,mode=755 0 0\n");
    }
    table.write("/dev/sda1 /media/Stick\\040A vfat rw,relatime,fmask=0022 0 0\n");
    table.close();
    MountedSticks sticks;
    const auto scan = [&] {
        QFile file(path);
        file.open(QIODevice::ReadOnly | QIODevice::Text);
        sticks = readMountTable(&file);
    };
    countSecond("scan a mount table, per line", linesOfTable, scan, [] {});
    need(sticks.a.path == QLatin1String("/media/Stick A"), "stick");
}

/** What another thread looks like that has nothing to do. */
struct Thread
{
    QString id;
    QByteArray time; ///< on a processor so far
    bool isAsleep;
};

bool operator==(const Thread &left, const Thread &right)
{
    return left.id == right.id && left.time == right.time && left.isAsleep && right.isAsleep;
}

QList<Thread> otherThreads()
{
    const QString self = QString::number(gettid());
    const QDir folder(QLatin1String("/proc/self/task"));
    QList<Thread> threads;
    for (const QString &id : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile times(folder.filePath(id + QLatin1String("/schedstat")));
        QFile state(folder.filePath(id + QLatin1String("/stat")));
        if (id == self || !times.open(QIODevice::ReadOnly) || !state.open(QIODevice::ReadOnly))
            continue;
        const QByteArray behindName = state.readAll().split(')').last();
        threads.append(
            {id, times.readAll().split(' ').first(), behindName.trimmed().startsWith('S')});
    }
    return threads;
}

/**
 * Waits until the other threads have nothing to do. What they hand over is taken in at once then,
 * and not in portions that depend on who was faster. Asleep they are too while this thread is the
 * one that valgrind runs, so that they must also have got no further.
 */
void waitForOtherThreads()
{
    CALLGRIND_TOGGLE_COLLECT;
    const int quiet = 10;
    QList<Thread> before;
    for (int same = 0; same < quiet;) {
        usleep(5000);
        const QList<Thread> now = otherThreads();
        same = now == before ? same + 1 : 0;
        before = now;
    }
    CALLGRIND_TOGGLE_COLLECT;
}

/** The tree as a screen has it, on the folder of a month's logs. */
class Tree
{
public:
    explicit Tree(const QString &path)
        : m_path(path)
        , m_view(viewOf(m_item))
    {
        m_item.setSize(QSizeF(800, 480));
    }

    void open()
    {
        m_item.setRoot(m_path);
        takeIn();
    }

    /** As is done on opening where rows can be checked. Not together with it, because the thread in
     * the background would read children already while this one takes in the last of them. */
    void readChildren()
    {
        m_item.setIsSelectable(true);
        QObject *const model = qobject_cast<QAbstractProxyModel *>(m_view->model())->sourceModel();
        QMetaObject::invokeMethod(model, "readDirectory", Q_ARG(QString, m_path));
        takeIn();
    }

    void sort(int column)
    {
        m_view->sortByColumn(column, Qt::AscendingOrder);
    }

    FileTreeViewerItem &item()
    {
        return m_item;
    }

    int rows() const
    {
        return m_view->model()->rowCount(m_view->rootIndex());
    }

    QString nameAt(int row) const
    {
        return m_view->model()->index(row, nameColumn, m_view->rootIndex()).data().toString();
    }

private:
    /** Takes in what was read in the background, and what is read because of that. */
    void takeIn()
    {
        do {
            waitForOtherThreads();
        } while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents));
    }

    static QTreeView *viewOf(const QGraphicsItem &item)
    {
        for (QGraphicsItem *child : item.childItems()) {
            if (child->isWidget())
                return qobject_cast<QTreeView *>(
                    static_cast<QGraphicsProxyWidget *>(child)->widget());
        }
        return nullptr;
    }

    const QString m_path;
    FileTreeViewerItem m_item;
    QTreeView *const m_view;
};

void countTree(const BigFolder &folder)
{
    Tree tree(folder.path());
    counted("tree: open", rowsOfTree, [&] { tree.open(); });
    tree.readChildren(); // not counted: Qt's thread tells in as many pieces as it has time for
    need(tree.rows() == rowsOfTree, "rows of the tree");

    const struct
    {
        const char *title;
        int column;
        QDir::SortFlags order;
    } sorts[] = {{"tree: sort by size", sizeColumn, QDir::Size | QDir::Reversed},
                 {"tree: sort by date", dateColumn, QDir::Time | QDir::Reversed},
                 {"tree: sort by name", nameColumn, QDir::Name}};
    for (const auto &sort : sorts) {
        countSecond(
            sort.title, rowsOfTree, [&] { tree.sort(sort.column); },
            [&] { tree.sort(sort.column == nameColumn ? sizeColumn : nameColumn); });
        const QString last = folder.names(sort.order).filter(QLatin1String(".csv")).last();
        need(tree.nameAt(rowsOfTree - 1) == last, sort.title);
    }
    countSecond(
        "tree: check all", rowsOfTree, [&] { tree.item().selectAll(); },
        [&] { tree.item().clearAll(); });
    need(tree.item().checkedFilesKB() > 0, "size of what is checked");
    counted("tree: uncheck all", rowsOfTree, [&] { tree.item().clearAll(); });
    need(tree.item().checkedFilesKB() == 0, "size of what is unchecked");
}

// Qt 6 would rather see a QML file import it, but that is done in a thread of the engine's.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
bool importModule(QDeclarativeEngine *engine, const QString &imports)
{
#if QT_VERSION < 0x050000
    QString errors;
#else
    QList<QDeclarativeError> errors;
#endif
    return engine->importPlugin(imports + QLatin1String("/FileBrowser/libfilebrowser.so"),
                                QLatin1String("FileBrowser"), &errors);
}
#pragma GCC diagnostic pop

void countModule(const QString &imports)
{
    QDeclarativeEngine engine;
    engine.addImportPath(imports);
    const auto create = [](QDeclarativeComponent *component) {
        const std::unique_ptr<QObject> object(component->create());
        need(object.get(), qPrintable(component->errorString()));
    };
    const QByteArray base = qVersion()[0] == '4' ? "import QtQuick 1.0\n" : "import QtQuick 2.0\n";
    const QByteArray import = base + "import FileBrowser 1.0 as Module\n";
    QDeclarativeComponent(&engine).setData(base + "QtObject { }", QUrl());
    counted("load the module", 1, [&] { need(importModule(&engine, imports), "module"); });
    for (const char *type : {"Directory", "File", "Path", "USB", "FileTreeViewerItem"}) {
        QDeclarativeComponent component(&engine);
        component.setData(import + "Module." + type + " { }", QUrl());
        const auto make = [&] {
            for (int i = 0; i < made; ++i)
                create(&component);
        };
        countSecond(std::string("make ") + type, made, make, [] {});
    }
}
} // namespace

/**
 * Time stands still: Qt's file system watcher hands over what it has read so far when a second is
 * over, which on a busy machine is sooner or later.
 */
extern "C" int clock_gettime(clockid_t clock, timespec *time) __THROW
{
    Q_UNUSED(clock);
    time->tv_sec = 1719792000;
    time->tv_nsec = 0;
    return 0;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    printf("g++ %s, Qt %s, glibc %s, %s\n", __VERSION__, qVersion(), gnu_get_libc_version(),
           sizeof(void *) == 8 ? "64 bits" : "32 bits");
    countModule(application.arguments().at(1));
    const BigFolder folder(count);
    {
        Directory directory;
        countListing(&directory, folder);
        countSelection(&directory);
        countCopying(&directory);
    }
    countMountTable();
    countTree(folder);
}
