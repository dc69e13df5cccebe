#include "random/trieddirectory.h"

#include "random/disorder.h"
#include "support/listing.h"
#include "support/testdir.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <chrono>
#include <future>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace {
const int mostShown = 6; // more or less: an index beyond the end is one to try
const int deadlineSeconds = 5;

QString placeOf(const Step &step)
{
    const char *const places[] = {"/home/ostan/logs",          "/home/ostan/logs/sub",
                                  "/home/ostan/logs/deep/sub", "/home/ostan/configs",
                                  "/home/ostan/autoprogs",     "/nowhere"};
    return places[step.first % 6];
}

QString describe(const QString &name, qint64 size, bool isDir, bool isMarked)
{
    return name + ' ' + QString::number(size) + (isDir ? " folder" : "") +
           (isMarked ? " marked" : "");
}
/** Whether a call that takes the lock comes back. One that does not stays in its thread. */
bool isUnlocked(Directory *directory)
{
    const std::shared_ptr<std::promise<int>> promise = std::make_shared<std::promise<int>>();
    std::future<int> answer = promise->get_future();
    std::thread([=] { promise->set_value(directory->getIndex(QString())); }).detach();
    return answer.wait_for(std::chrono::seconds(deadlineSeconds)) == std::future_status::ready;
}
} // namespace

TriedDirectory::TriedDirectory(QList<QPointer<QObject>> *items)
    : m_items(items)
    , m_isDying(false)
{
    begin();
}

TriedDirectory::~TriedDirectory()
{
    end();
}

// With a listing, as until then names are those of the process's working folder.
void TriedDirectory::begin()
{
    end();
    m_directory = new Directory;
    m_plain = PlainDirectory();
    m_isDying = false;
    m_pathLog.reset(new Reaction(m_directory, SIGNAL(pathsChanged()), [this] { noteItems(); }));
    m_fileLog.reset(new Reaction(m_directory, SIGNAL(filesChanged()), [this] { noteItems(); }));
    m_directory->refresh();
    m_plain.refresh();
}

void TriedDirectory::end()
{
    m_handler.reset();
    delete m_directory;
}

void TriedDirectory::noteItems()
{
    QDeclarativeListProperty<Path> paths = m_directory->paths();
    for (int i = 0; i < m_directory->pathsCount(); ++i)
        m_items->append(QPointer<QObject>(paths.at(&paths, i)));
    for (int i = 0; i < m_directory->filesCount(); ++i)
        m_items->append(QPointer<QObject>(shownFile(m_directory, i)));
}

void TriedDirectory::act(const Step &step)
{
    const QString name = nameOf(step.second);
    const int index = step.first % mostShown;
    switch (step.action) {
    case 0:
    case 1:
    case 2:
        m_directory->refresh();
        m_plain.refresh();
        break;
    case 3:
    case 4:
        reorder(step.first % 4);
        break;
    case 5:
    case 6:
    case 7:
        m_directory->setIsSelectedAt(index, step.second % 2 == 0);
        m_plain.mark(index, step.second % 2 == 0);
        break;
    case 8:
        m_directory->selectAll();
        m_plain.markAll();
        break;
    case 9:
        m_directory->clearAll();
        m_plain.clearSelection();
        break;
    case 10:
    case 11:
        m_directory->selectFile(index);
        m_plain.selectFile(index);
        break;
    case 12:
        m_directory->selectPath(placeOf(step));
        m_plain.selectPath(placeOf(step));
        break;
    case 13:
        m_directory->setCurrentPath(placeOf(step));
        m_plain.setCurrentPath(placeOf(step));
        break;
    case 14:
        setRoot(step.first);
        break;
    case 15:
        makeFile(name);
        break;
    case 16:
        makeFolder(name);
        break;
    case 17:
        rename(index, name);
        break;
    case 18:
        remove(index);
        break;
    default:
        copy();
        break;
    }
    compare();
    if (m_isDying) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        expect(m_directory.isNull(), "deleted and still there");
        begin();
    }
}

void TriedDirectory::hear(int number, TriedDirectory *other)
{
    m_handler.reset();
    m_plain.whenListed = m_plain.whenMoved = m_plain.whenSelected = m_plain.whenSortedByOther =
        nullptr;
    const char *const emitted[] = {SIGNAL(filesChanged()), SIGNAL(pathsChanged()),
                                   SIGNAL(selectedFilesChanged()), SIGNAL(currentPathChanged()),
                                   SIGNAL(updateDirectory())};
    const char *const any = emitted[number / 7 % 5];
    switch (number % 7) {
    case 0:
        react(SIGNAL(selectedFilesChanged()), [this] { m_directory->refresh(); });
        m_plain.whenSelected = [this] { m_plain.refresh(); };
        break;
    case 1:
        react(SIGNAL(filesChanged()), [this] { m_directory->setIsSelectedAt(0, true); });
        m_plain.whenListed = [this] { m_plain.mark(0, true); };
        break;
    case 2:
        react(SIGNAL(currentPathChanged()),
              [this] { m_directory->setCurrentPath(m_directory->root()); });
        m_plain.whenMoved = [this] { m_plain.setCurrentPath(m_plain.root); };
        break;
    case 3:
        react(SIGNAL(nameSortedChanged()), [this] { m_directory->selectAll(); });
        m_plain.whenSortedByOther = [this] { m_plain.markAll(); };
        break;
    case 4:
        react(any, [this] {
            m_directory->deleteLater();
            m_isDying = true;
        });
        break;
    case 5:
        react(any, [other] { other->begin(); });
        break;
    default:
        break;
    }
}

void TriedDirectory::timeHasPassed()
{
    if (m_directory.isNull()) { // a handler ended it
        expect(m_isDying, "gone by itself");
        begin();
        return;
    }
    m_plain.timePasses();
    compare();
}

QString TriedDirectory::currentPath() const
{
    return m_plain.currentPath;
}

void TriedDirectory::react(const char *signal, const std::function<void()> &action)
{
    m_handler.reset(new Reaction(m_directory, signal, action));
}

void TriedDirectory::expect(bool holds, const QString &what)
{
    if (!holds && complaint.empty())
        complaint = inWords(what);
}

// The folder of the list may be gone: then there is nowhere to make, and nothing to remove.
void TriedDirectory::expectResult(bool result, bool expected, const char *what)
{
    m_plain.defer(PlainDirectory::Refresh);
    expect(result == (expected && m_plain.dir.exists()), what + QString(" tells something else"));
}

void TriedDirectory::reorder(int type)
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

void TriedDirectory::setRoot(int number)
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

void TriedDirectory::makeFile(const QString &name)
{
    const bool isFree = !m_plain.dir.exists(name);
    const bool made = m_directory->newFile(m_plain.dir.filePath(name));
    if (isFree)
        expectResult(made, true, "newFile");
    else
        expect(!made, "newFile of what is there");
}

void TriedDirectory::makeFolder(const QString &name)
{
    const bool isFree = !m_plain.dir.exists(name);
    const bool made = m_directory->newDirectory(name);
    if (isFree)
        expectResult(made, true, "newDirectory");
    else
        expect(!made, "newDirectory of what is there");
    if (made) // by the account alone, and root meddles later
        chmod(QFile::encodeName(m_plain.dir.filePath(name)).constData(), 0777);
}

void TriedDirectory::rename(int index, const QString &name)
{
    const QString oldName = m_plain.entry(index);
    const bool canBe = m_plain.dir.exists(oldName) && !m_plain.dir.exists(name);
    const bool renamed = m_directory->renameFile(index, name);
    if (oldName.isNull())
        expect(!renamed, "renameFile of nothing");
    else
        expectResult(renamed, canBe, "renameFile");
}

void TriedDirectory::remove(int index)
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

void TriedDirectory::copy()
{
    const QString expected = m_plain.namesThatFail(destination);
    const QString failed = m_directory->copySelectedTo(destination);
    expect(failed == expected, "told as failed: " + failed + ", and not: " + expected);
    m_plain.defer(PlainDirectory::ClearSelection);
    for (const QString &name : QDir(destination).entryList(QDir::Files)) {
        if (name.startsWith('a'))
            QFile::remove(destination + '/' + name);
    }
}

void TriedDirectory::compare()
{
    if (!isUnlocked(m_directory)) {
        expect(false, "locked");
        m_directory->moveToThread(new QThread); // where nothing fires that would wait for ever, too
        m_directory = nullptr;
        begin();
        return;
    }
    QStringList shown;
    for (int i = 0; i < m_directory->filesCount(); ++i) {
        const File *file = shownFile(m_directory, i);
        shown.append(describe(file->name(), file->sizeBytes(), file->isDir(), file->isSelected()));
    }
    QStringList expected;
    for (const PlainDirectory::Item &item : m_plain.shown)
        expected.append(describe(item.name, item.size, item.isDir, item.isMarked));
    expect(shown == expected, "shown: " + shown.join(", ") + ", and not: " + expected.join(", "));
    expect(m_directory->currentPath() == m_plain.currentPath, "at " + m_directory->currentPath());
    expect(m_directory->root() == m_plain.root, "root " + m_directory->root());
    expect(m_directory->selectedFiles() == QStringList(m_plain.selection.values()).join(" "),
           "selected: " + m_directory->selectedFiles());
    expect(m_directory->selectedFilesKB() == m_plain.kilobytes, "KB of the selection");
    expect(m_directory->pathsCount() == m_plain.breadcrumb.size(), "steps of the breadcrumb");
    expect(geteuid() == 0, "the user id");
}
