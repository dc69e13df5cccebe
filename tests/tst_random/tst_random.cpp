// Everything that can happen to the types, in any order, against the plainest model of what must be
// so.
//
// ./test does some thousand steps, ./test --long a hundred thousand. A failure prints the shortest
// sequence of steps that fails, and RC_PARAMS="reproduce=..." with the printed text does it again.

#include "directory/directory.h"
#include "tree/filesystemmodel.h"
#include "tree/filetreevieweritem.h"
#include "usb/usb.h"

#include "random/plaindirectory.h"
#include "random/steps.h"
#include "support/debuglog.h"
#include "support/listing.h"
#include "support/loading.h"
#include "support/reaction.h"
#include "support/stick.h"
#include "support/testdir.h"
#include "support/treeparts.h"
#include "support/waiting.h"

#include <QPointer>
#include <QTest>

#include <algorithm>
#include <memory>

#include <malloc.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {
const int delayMs = 200;
const qint64 mostGrowth = qint64(256) * 1024; // what Qt keeps for later, however many the steps
const char *const fileNames[] = {"a.csv",    "B.csv", "b.csv", "run 1.py",
                                 "run 2.py", "z",     "sub",   "deep"};
const int nameCount = sizeof fileNames / sizeof *fileNames;
const int folderNames = 2; // the last ones
const QString destination = "/media/copies";

QString nameOf(int number)
{
    return fileNames[number % nameCount];
}

std::string inWords(const QString &text)
{
    return text.toUtf8().constData();
}

/** Makes the file or folder @p name in @p folder, or removes it when it is there. */
void meddle(const QString &folder, const QString &name, int size)
{
    const QString path = folder + '/' + name;
    if (!QFileInfo(folder).isDir())
        return;
    if (QFileInfo(path).exists()) {
        removeTree(path);
    } else if (name == fileNames[nameCount - 1] || name == fileNames[nameCount - folderNames]) {
        QDir().mkdir(path);
        chmod(QFile::encodeName(path).constData(), 0777);
    } else {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.resize(qint64(size) * 7);
        file.close();
        setTimes(path, 1368000000 + size, 1368000000 + size);
    }
}

/** What the process holds of the system: descriptors, and folders that are watched. */
QString holdings()
{
    int descriptors = 0;
    int watches = 0;
    for (const QFileInfo &info :
         QDir("/proc/self/fdinfo").entryInfoList(QDir::Files | QDir::System)) {
        ++descriptors;
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly))
            watches += file.readAll().count("inotify wd:");
    }
    return QString("%1 descriptors, %2 watches").arg(descriptors).arg(watches);
}

qint64 bytesInUse()
{
    malloc_trim(0);
    return static_cast<qint64>(mallinfo2().uordblks);
}

/** All that is put off happens, for objects that are gone too. */
void letTimersFire()
{
    const Moment all(2 * delayMs + 20, [] {});
    waitUntil([&] { return all.isOver(); });
}

/** A Directory, what it must show, and every item that it ever had. */
class ListTrial
{
public:
    ListTrial()
    {
        begin();
    }

    ~ListTrial()
    {
        m_directory.reset();
        // The documented leak: to the last item, and no more than that.
        for (const QPointer<QObject> &item : m_items)
            delete item.data();
    }

    void act(const Step &step)
    {
        const QString name = nameOf(step.second);
        switch (step.action) {
        case 0:
        case 1:
        case 2:
            meddle(m_plain.currentPath, name, step.first);
            break;
        case 3:
        case 4:
        case 5:
            m_directory->refresh();
            m_plain.refresh();
            break;
        case 6:
        case 7:
            reorder(step.first % 4);
            break;
        case 8:
        case 9:
        case 10:
            m_directory->setIsSelectedAt(step.first % 6, step.second % 2 == 0);
            m_plain.mark(step.first % 6, step.second % 2 == 0);
            break;
        case 11:
            m_directory->selectAll();
            m_plain.markAll();
            break;
        case 12:
            m_directory->clearAll();
            m_plain.clearSelection();
            break;
        case 13:
        case 14:
            m_directory->selectFile(step.first % 6);
            m_plain.selectFile(step.first % 6);
            break;
        case 15:
            m_directory->selectPath(placeOf(step));
            m_plain.selectPath(placeOf(step));
            break;
        case 16:
            m_directory->setCurrentPath(placeOf(step));
            m_plain.setCurrentPath(placeOf(step));
            break;
        case 17:
            setRoot(step.first);
            break;
        case 18:
            expectResult(m_directory->newFile(m_plain.dir.filePath(name)),
                         !m_plain.dir.exists(name), "newFile");
            break;
        case 19:
            makeFolder(name);
            break;
        case 20:
            rename(step.first % 6, name);
            break;
        case 21:
            remove(step.first % 6);
            break;
        case 22:
            copy();
            break;
        case 23:
            hearSelection();
            break;
        case 24:
            if (step.first % 8 == 0) {
                letTimersFire();
                m_plain.timePasses();
            }
            break;
        default:
            if (step.first % 4 == 0)
                begin();
            break;
        }
        compare();
    }

    static const int actions = 26;

    std::string complaint;

private:
    // With a listing, as until then names are those of the process's working folder.
    void begin()
    {
        m_handler.reset();
        m_directory.reset(new Directory);
        m_plain = PlainDirectory();
        listen();
        m_directory->refresh();
        m_plain.refresh();
    }

    void listen()
    {
        m_pathLog.reset(new Reaction(m_directory.get(), SIGNAL(pathsChanged()), [this] {
            QDeclarativeListProperty<Path> paths = m_directory->paths();
            for (int i = 0; i < m_directory->pathsCount(); ++i)
                m_items.append(QPointer<QObject>(paths.at(&paths, i)));
        }));
        m_fileLog.reset(new Reaction(m_directory.get(), SIGNAL(filesChanged()), [this] {
            for (int i = 0; i < m_directory->filesCount(); ++i)
                m_items.append(QPointer<QObject>(shownFile(m_directory.get(), i)));
        }));
    }

    static QString placeOf(const Step &step)
    {
        const char *const places[] = {"/home/ostan/logs",          "/home/ostan/logs/sub",
                                      "/home/ostan/logs/deep/sub", "/home/ostan/configs",
                                      "/home/ostan/autoprogs",     "/nowhere"};
        return places[step.first % 6];
    }

    void expect(bool holds, const QString &what)
    {
        if (!holds && complaint.empty())
            complaint = inWords(what);
    }

    // A folder of the list may be gone: then there is nowhere to make, and nothing to remove.
    void expectResult(bool result, bool expected, const char *what)
    {
        m_plain.willRefresh = true;
        expect(result == (expected && m_plain.dir.exists()),
               what + QString(" tells something else"));
    }

    void reorder(int type)
    {
        switch (type) {
        case Directory::name:
            m_directory->reorderByName();
            break;
        case Directory::date:
            m_directory->reorderByDate();
            break;
        case Directory::size:
            m_directory->reorderBySize();
            break;
        default:
            m_directory->reorderByType();
            break;
        }
        m_plain.reorderBy(static_cast<Directory::SortType>(type));
    }

    void setRoot(int number)
    {
        switch (number % 4) {
        case 0:
            m_directory->viewScriptDirectory();
            m_plain.showScripts();
            break;
        case 1:
            m_directory->viewConfigsDirectory();
            m_plain.setRoot("/home/ostan/configs");
            break;
        default:
            m_directory->viewLogDirectory();
            m_plain.setRoot("/home/ostan/logs");
            break;
        }
    }

    void makeFolder(const QString &name)
    {
        const bool isFree = !m_plain.dir.exists(name);
        const bool made = m_directory->newDirectory(name);
        expectResult(made, isFree, "newDirectory");
        if (made) // by the account alone, and root meddles later
            chmod(QFile::encodeName(m_plain.dir.filePath(name)).constData(), 0777);
    }

    void rename(int index, const QString &name)
    {
        const QString oldName = m_plain.entry(index);
        const bool canBe = m_plain.dir.exists(oldName) && !m_plain.dir.exists(name);
        const bool renamed = m_directory->renameFile(index, name);
        if (oldName.isNull())
            expect(!renamed, "renameFile of nothing");
        else
            expectResult(renamed, canBe, "renameFile");
    }

    void remove(int index)
    {
        const QString name = m_plain.entry(index);
        const QFileInfo info(m_plain.dir.filePath(name));
        const bool isEmpty =
            !info.isDir() ||
            QDir(info.filePath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty();
        const bool isAsListed = info.exists() && info.isDir() == m_directory->isDir(index);
        const bool removed = m_directory->deleteFile(index);
        if (name.isNull())
            expect(!removed, "deleteFile of nothing");
        else
            expectResult(removed, isEmpty && isAsListed, "deleteFile");
    }

    void copy()
    {
        const QString expected = m_plain.namesThatFail(destination);
        const QString failed = m_directory->copySelectedTo(destination);
        expect(failed == expected, "told as failed: " + failed + ", and not: " + expected);
        m_plain.willClear = true;
        for (const QString &name : QDir(destination).entryList(QDir::Files)) {
            if (name.startsWith('a'))
                QFile::remove(destination + '/' + name);
        }
    }

    void hearSelection()
    {
        m_plain.listsWhenSelected = !m_plain.listsWhenSelected;
        m_handler.reset();
        if (m_plain.listsWhenSelected)
            m_handler.reset(new Reaction(m_directory.get(), SIGNAL(selectedFilesChanged()),
                                         [this] { m_directory->refresh(); }));
    }

    void compare()
    {
        QStringList shown;
        for (int i = 0; i < m_directory->filesCount(); ++i) {
            const File *file = shownFile(m_directory.get(), i);
            shown.append(
                describe(file->name(), file->sizeBytes(), file->isDir(), file->isSelected()));
        }
        QStringList expected;
        for (const PlainDirectory::Item &item : m_plain.shown)
            expected.append(describe(item.name, item.size, item.isDir, item.isMarked));
        expect(shown == expected,
               "shown: " + shown.join(", ") + ", and not: " + expected.join(", "));
        expect(m_directory->currentPath() == m_plain.currentPath,
               "at " + m_directory->currentPath());
        expect(m_directory->root() == m_plain.root, "root " + m_directory->root());
        expect(m_directory->selectedFiles() == QStringList(m_plain.selection.values()).join(" "),
               "selected: " + m_directory->selectedFiles());
        expect(m_directory->selectedFilesKB() == m_plain.kilobytes, "KB of the selection");
        expect(m_directory->pathsCount() == m_plain.breadcrumb.size(), "steps of the breadcrumb");
        expect(geteuid() == 0, "the user id");
    }

    static QString describe(const QString &name, qint64 size, bool isDir, bool isMarked)
    {
        return name + ' ' + QString::number(size) + (isDir ? " folder" : "") +
               (isMarked ? " marked" : "");
    }

    std::unique_ptr<Directory> m_directory;
    PlainDirectory m_plain;
    QList<QPointer<QObject>> m_items;
    std::unique_ptr<Reaction> m_pathLog;
    std::unique_ptr<Reaction> m_fileLog;
    std::unique_ptr<Reaction> m_handler;
};

/** A USB object and the sticks that come and go. */
class StickTrial
{
public:
    void act(const Step &step)
    {
        const QString path = pathOf(step.second);
        switch (step.action) {
        case 0:
        case 1:
            plug(step.first % 2, path);
            break;
        case 2:
            m_sticks.remove(path);
            break;
        case 3:
        case 4:
            find();
            break;
        case 5:
            eject(step.first % 2);
            break;
        case 6:
            m_usb.eject(path);
            pulled(path);
            break;
        case 7:
            prepare(path);
            break;
        case 8:
            m_isNested = !m_isNested;
            m_handler.reset(
                m_isNested ? new Reaction(&m_usb, SIGNAL(usbAChanged()), [this] { m_usb.find(); })
                           : nullptr);
            break;
        default:
            fill(path, step.first);
            break;
        }
        compare();
    }

    static const int actions = 10;

    std::string complaint;

private:
    struct Told
    {
        bool isThere;
        QString path;
        qint64 kilobytes;
    };

    static QString pathOf(int number)
    {
        const char *const paths[] = {"/media/one", "/media/two words"};
        return paths[number % 2];
    }

    void plug(int device, const QString &path)
    {
        if (m_sticks.contains(path))
            return;
        m_sticks.insert(
            path, QSharedPointer<Stick>(new Stick(device ? "/dev/sdb1" : "/dev/sda1", path, 512)));
        m_devices.insert(path, device);
        m_order.removeAll(path);
        m_order.append(path);
    }

    void pulled(const QString &path)
    {
        m_sticks.remove(path);
    }

    void find()
    {
        m_usb.find();
        for (int device = 0; device < 2; ++device) {
            m_told[device] = Told();
            for (const QString &path : m_order) {
                if (m_sticks.contains(path) && m_devices.value(path) == device &&
                    !m_told[device].isThere) {
                    m_told[device].isThere = true;
                    m_told[device].path = path;
                    struct statvfs figures;
                    statvfs(QFile::encodeName(path).constData(), &figures);
                    m_told[device].kilobytes = figures.f_bavail * figures.f_bsize / 1024;
                }
            }
        }
    }

    void eject(int device)
    {
        device ? m_usb.ejectB() : m_usb.ejectA();
        pulled(m_told[device].path);
    }

    void prepare(const QString &path)
    {
        m_usb.prepareUnmount(path);
        const bool wasThere = m_told[0].isThere;
        if (m_told[0].path == path)
            m_told[0].isThere = false;
        else if (m_told[1].path == path)
            m_told[1].isThere = false;
        if (m_isNested && m_told[0].isThere != wasThere)
            find();
    }

    void fill(const QString &path, int kilobytes)
    {
        QFile file(path + "/file");
        if (m_sticks.contains(path) && file.open(QIODevice::WriteOnly))
            file.write(QByteArray(kilobytes * 1024 / 2, 'x'));
    }

    void compare()
    {
        const bool holds =
            m_usb.usbA() == m_told[0].isThere && m_usb.usbAPath() == m_told[0].path &&
            m_usb.usbASpace() == m_told[0].kilobytes && m_usb.usbB() == m_told[1].isThere &&
            m_usb.usbBPath() == m_told[1].path && m_usb.usbBSpace() == m_told[1].kilobytes;
        if (!holds && complaint.empty())
            complaint = inWords("told is " + m_usb.usbAPath() + ", " + m_usb.usbBPath());
        for (const QString &path : m_sticks.keys()) {
            if (!m_sticks.value(path)->isMounted() && complaint.empty())
                complaint = inWords(path + " is not mounted any more");
        }
    }

    USB m_usb;
    QMap<QString, QSharedPointer<Stick>> m_sticks;
    QMap<QString, int> m_devices;
    QStringList m_order; // of the lines of the mount table
    Told m_told[2] = {Told(), Told()};
    bool m_isNested = false;
    std::unique_ptr<Reaction> m_handler;
};

/** A tree, and the checked entries as a list of persistent indexes. */
class TreeTrial
{
public:
    TreeTrial()
        : m_dir("/home/ostan/random")
    {
        for (const char *folder : {"sub", "deep", "sub/deep"})
            m_dir.folder(folder);
        for (const char *name : {"a.csv", "B.csv", "sub/run 1.py", "sub/deep/z", "deep/b.csv"})
            m_dir.file(name, qint64(100 + name[0]));
        show();
    }

    void act(const Step &step)
    {
        switch (step.action) {
        case 0:
        case 1:
        case 2:
        case 3:
            check(row(step.first), step.second % 2 ? Qt::Checked : Qt::Unchecked);
            break;
        case 4:
        case 5:
            break; // looking is what follows every step
        case 6:
            m_item->setDirsFirst(step.first % 2);
            break;
        case 7:
            parts().view->sortByColumn(step.first % 4,
                                       step.second % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
            break;
        case 8:
            m_item->selectAll();
            selectAll();
            break;
        case 9:
            copy(step.first % 2);
            break;
        case 10:
            m_item->setIsSelectable(step.first % 4 != 0);
            break;
        case 11:
            touch(step);
            break;
        case 12:
            if (step.first % 6 == 0)
                changeDisk(step);
            break;
        case 13:
            if (step.first % 6 == 0)
                filter(step.second);
            break;
        default:
            if (step.first % 12 == 0) {
                m_checked.clear();
                m_bytes = 0;
                m_word.clear();
                show();
            }
            break;
        }
        compare();
    }

    static const int actions = 15;

    std::string complaint;

private:
    TreeParts parts() const
    {
        return TreeParts(m_item.get());
    }

    FileSystemModel *model() const
    {
        return static_cast<FileSystemModel *>(parts().model);
    }

    void show()
    {
        m_item.reset(new FileTreeViewerItem);
        m_item->setIsSelectable(true);
        m_item->setRoot(m_dir.path()); // loads all below, as it is in the account's home
        waitForRows();
    }

    /** Until the model has read what is on the disk. */
    void waitForRows()
    {
        const bool hasCome =
            waitUntil([this] { return loaded(m_dir.path()) == onDisk(m_dir.path()); });
        if (!hasCome && complaint.empty())
            complaint = inWords("the tree has " + loaded(m_dir.path()).join(", "));
    }

    QStringList loaded(const QString &folder) const
    {
        QStringList names;
        const QModelIndex index = model()->index(folder);
        for (int i = 0; i < model()->rowCount(index); ++i) {
            const QString path = model()->filePath(model()->index(i, 0, index));
            names.append(path);
            names += loaded(path);
        }
        names.sort();
        return names;
    }

    QStringList onDisk(const QString &folder) const
    {
        QStringList names;
        for (const QFileInfo &info :
             QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            if (info.isFile() && !m_word.isEmpty() &&
                !info.fileName().contains(m_word, Qt::CaseInsensitive))
                continue;
            names.append(info.filePath());
            if (info.isDir())
                names += onDisk(info.filePath());
        }
        names.sort();
        return names;
    }

    QModelIndex row(int number) const
    {
        const QStringList paths = loaded(m_dir.path());
        return paths.isEmpty() ? QModelIndex() : model()->index(paths.at(number % paths.size()));
    }

    bool isChecked(const QModelIndex &index) const
    {
        return m_checked.contains(QPersistentModelIndex(index));
    }

    void check(const QModelIndex &index, Qt::CheckState state)
    {
        if (!index.isValid())
            return;
        mirror(index, state);
        model()->setData(index, state, Qt::CheckStateRole);
    }

    /** What checking must do, as the rule for it says. */
    void mirror(const QModelIndex &index, Qt::CheckState state)
    {
        const qint64 size = QFileInfo(model()->filePath(index)).size();
        const bool wasChecked = isChecked(index);
        if (state == Qt::Checked) {
            m_bytes += size >= 1 && !wasChecked ? size : 0;
            if (!wasChecked)
                m_checked.append(index);
        } else {
            m_bytes -= size >= 1 && wasChecked ? size : 0;
            m_checked.removeAll(index);
        }
        for (int i = 0; i < model()->rowCount(index); ++i)
            mirror(model()->index(i, 0, index), state);
    }

    void selectAll()
    {
        const QModelIndex root = model()->index(m_dir.path());
        for (int i = 0; i < model()->rowCount(root); ++i)
            mirror(model()->index(i, 0, root), Qt::Checked);
    }

    void copy(bool unchecks)
    {
        QStringList names;
        for (const QPersistentModelIndex &index : m_checked)
            names.append(index.data().toString());
        names.sort();
        QStringList failed;
        const QString told = unchecks ? m_item->copyCheckedFilesTo("/nowhere")
                                      : model()->copyCheckedFilesTo("/nowhere");
        if (unchecks)
            mirror(model()->index(0, 0), Qt::Unchecked);
        QString expected = names.join(" ");
        // Names have blanks in them, and their order is nobody's business.
        QString sorted = told;
        std::sort(sorted.begin(), sorted.end());
        std::sort(expected.begin(), expected.end());
        if (sorted != expected && complaint.empty())
            complaint = inWords("copied: " + told + ", and not: " + names.join(" "));
    }

    void touch(const Step &step)
    {
        const QModelIndex index = row(step.first);
        if (!index.isValid())
            return;
        const QModelIndex inView = parts().proxyModel->mapFromSource(index);
        parts().view->setCurrentIndex(inView);
        const QString path = model()->filePath(index);
        const bool isDir = QFileInfo(path).isDir();
        m_item->updateSelection(inView);
        const QString folder = isDir ? path : QFileInfo(path).path();
        if ((m_item->absoluteFilePath() != path || m_item->currentFilepath() != folder ||
             m_item->currentFilename() != (isDir ? QString() : QFileInfo(path).fileName())) &&
            complaint.empty())
            complaint = inWords("touched: " + path + ", told is " + m_item->absoluteFilePath());
    }

    void changeDisk(const Step &step)
    {
        const char *const folders[] = {"", "/sub", "/deep", "/sub/deep"};
        const QString folder = m_dir.path() + folders[step.first / 6 % 4];
        if (!QDir(folder).exists())
            return;
        meddle(folder, nameOf(step.second), step.first);
        waitForRows();
    }

    void filter(int number)
    {
        m_word = number % 3 ? QString(number % 3 == 1 ? "b" : "run") : QString();
        m_item->setNameFilters(m_word);
        m_item->setNameFilterOn(!m_word.isEmpty());
        waitForRows();
    }

    void compare()
    {
        for (const QString &path : loaded(m_dir.path())) {
            const QModelIndex index = model()->index(path);
            const bool isShown = m_item->isSelectable();
            bool expected = isChecked(index);
            for (QModelIndex above = index.parent(); isShown && !expected && above.isValid();
                 above = above.parent()) {
                if (isChecked(above)) {
                    expected = true;
                    m_checked.append(index); // looking checks what is below a checked folder
                }
            }
            const QVariant state = index.data(Qt::CheckStateRole);
            const bool holds = isShown ? state.toInt() == (expected ? Qt::Checked : Qt::Unchecked)
                                       : !state.isValid() || state.toInt() == Qt::Unchecked;
            if (!holds && complaint.empty())
                complaint =
                    inWords(path + (expected ? " must be checked" : " must not be checked"));
        }
        if (m_item->checkedFilesKB() != m_bytes && complaint.empty())
            complaint = inWords(
                QString("the total is %1 and not %2").arg(m_item->checkedFilesKB()).arg(m_bytes));
    }

    const TestDir m_dir;
    std::unique_ptr<FileTreeViewerItem> m_item;
    QList<QPersistentModelIndex> m_checked;
    quint64 m_bytes = 0;
    QString m_word;
};

/** Runs the steps on a fresh trial. */
template <typename Trial>
std::string run(const std::vector<Step> &steps)
{
    Trial trial;
    for (const Step &step : steps) {
        trial.act(step);
        if (!trial.complaint.empty())
            return trial.complaint;
    }
    return trial.complaint;
}
} // namespace

class tst_Random : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theBreadcrumbLosesItsItemsAndNoMore(); // first, while the memory has no holes
    void theListShowsWhatThePlainOneDoes();
    void theSticksAreThoseThatAreThere();
    void theTreeChecksLikeASetOfPersistentIndexes();

private:
    bool holdsLevel(int steps, int actions, const Property &property);

    QScopedPointer<DebugLog> m_log;
};

void tst_Random::init()
{
    m_log.reset(new DebugLog);
}

void tst_Random::cleanup()
{
    m_log.reset();
}

/**
 * Whether the property holds, and the process holds no more of the system's and no more memory
 * after many steps than after a few.
 */
bool tst_Random::holdsLevel(int steps, int actions, const Property &property)
{
    const Property quiet = [&](const std::vector<Step> &sequence) {
        m_log->take();
        return property(sequence);
    };
    const bool holds = holdsFor(steps / 8, actions, quiet);
    letTimersFire();
    const QString heldBefore = holdings();
    const qint64 bytesBefore = bytesInUse();
    const bool stillHolds = holds && holdsFor(steps, actions, quiet);
    letTimersFire();
    const qint64 growth = bytesInUse() - bytesBefore;
    if (growth > mostGrowth)
        qWarning("%lld bytes more in use than before", growth);
    return stillHolds && growth <= mostGrowth &&
           waitUntil([&] { return holdings() == heldBefore; });
}

void tst_Random::theBreadcrumbLosesItsItemsAndNoMore()
{
    if (qgetenv("GLIBC_TUNABLES").isEmpty())
        QSKIP("freed memory counts as used: run by ctest", SkipSingle);
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil/2013");
    Directory directory;
    directory.setCurrentPath("/home/ostan/logs/soil/2013");
    QCOMPARE(directory.pathsCount(), 3);

    const int times = 1000;
    QVector<Path *> items;
    items.reserve(3 * times);
    qint64 left = 0;
    for (int round = 0; round < 2; ++round) { // the first makes room for the second
        items.resize(0);                      // keeps its memory
        directory.refresh();
        const qint64 before = bytesInUse();
        for (int i = 0; i < times; ++i) {
            directory.refresh();
            QDeclarativeListProperty<Path> paths = directory.paths();
            for (int step = 0; step < directory.pathsCount(); ++step)
                items.append(paths.at(&paths, step));
        }
        QCOMPARE(items.size(), 3 * times);
        std::sort(items.begin(), items.end());
        QVERIFY(std::unique(items.begin(), items.end()) == items.end());

        // All of them live, as a screen may show any. With them goes all that the refreshes took.
        qDeleteAll(items);
        left = bytesInUse() - before;
    }
    // Less than a byte for each: what the holes between them are good for.
    QVERIFY2(qAbs(left) < times, qPrintable(QString::number(left)));
}

void tst_Random::theListShowsWhatThePlainOneDoes()
{
    QVERIFY(holdsLevel(wantedSteps(), ListTrial::actions, [](const std::vector<Step> &steps) {
        for (const char *folder : {"logs", "configs", "autoprogs"})
            removeTree(QString("/home/ostan/") + folder);
        const TestDir copies(destination);
        return run<ListTrial>(steps);
    }));
}

void tst_Random::theSticksAreThoseThatAreThere()
{
    QVERIFY(holdsLevel(wantedSteps() / 4, StickTrial::actions, run<StickTrial>));
}

void tst_Random::theTreeChecksLikeASetOfPersistentIndexes()
{
    QVERIFY(holdsLevel(wantedSteps(), TreeTrial::actions, run<TreeTrial>));
}

QTEST_MAIN(tst_Random)
#include "tst_random.moc"
