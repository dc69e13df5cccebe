#include "random/triedtree.h"

#include "tree/filesystemmodel.h"

#include "random/disorder.h"
#include "support/account.h"
#include "support/loading.h"
#include "support/testdir.h"
#include "support/treeparts.h"
#include "support/waiting.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>

#include <algorithm>

#include <unistd.h>

namespace {
const int operationsApart = 4; // the model takes its time to notice each
const int deadlineMs = 5000;   // shorter than others: shrinking waits for it again and again

/** Names have blanks in them, and nobody promises their order: the same characters must do. */
QString characters(QString names)
{
    std::sort(names.begin(), names.end());
    return names;
}

bool mayBeWrittenByAccount(const QFileInfo &info)
{
    return info.ownerId() == ostanUid || info.permission(QFile::WriteOther);
}

qint64 seconds(const QFileInfo &info)
{
    return info.lastModified().toMSecsSinceEpoch() / 1000;
}

bool isCopy(const QFileInfo &copy, const QStringList &sources)
{
    for (const QString &path : sources) {
        const QFileInfo source(path);
        if (source.fileName() == copy.fileName() && source.size() == copy.size() &&
            seconds(source) == seconds(copy))
            return true;
    }
    return false;
}
/** Whether the row @p left is less than @p right in a column; folders have neither size nor date.
 */
bool isLess(const QModelIndex &left, const QModelIndex &right, int column)
{
    const bool isFolder = left.data(FileSystemModel::IsDirRole).toBool();
    switch (column) {
    case 1:
        return !isFolder && left.data(FileSystemModel::SizeRole).toLongLong() <
                                right.data(FileSystemModel::SizeRole).toLongLong();
    case 3:
        return !isFolder && left.data(FileSystemModel::LastModifiedRole).toDateTime() <
                                right.data(FileSystemModel::LastModifiedRole).toDateTime();
    default:
        return left.sibling(left.row(), column).data().toString() <
               right.sibling(right.row(), column).data().toString();
    }
}
} // namespace

TriedTree::TriedTree(const QString &top, const std::function<bool(const QString &)> &mayGo)
    : m_top(top)
    , m_mayGo(mayGo)
    , m_movesSeen(0)
    , m_isDying(false)
{
    begin();
}

TriedTree::~TriedTree()
{
    end();
}

void TriedTree::begin()
{
    end();
    m_item = new FileTreeViewerItem;
    m_plain = PlainTree();
    m_checks.reset(new PlainChecks(model()));
    m_isDying = false;
    m_item->setIsSelectable(true); // which loads all below, as it is in the account's home
    m_item->setRoot(m_top);
    m_plain.setRoot(m_top);
    m_movesSeen = m_plain.moves;
}

void TriedTree::end()
{
    m_handler.reset();
    delete m_item;
}

bool TriedTree::isAlive() const
{
    return m_item;
}

QString TriedTree::viewRoot() const
{
    return m_plain.viewRoot;
}

void TriedTree::act(const Step &step)
{
    // Since the last look rows may have gone and come again, and the view has looked at those.
    compareChecks();
    const bool operates = step.first % operationsApart == 0;
    const QString name = nameOf(step.second);
    switch (step.action) {
    case 0:
    case 1:
    case 2:
    case 3:
        check(rowPath(step.first), step.second % 2);
        break;
    case 4:
        m_item->selectAll();
        m_checks->setBelow(model()->index(m_plain.viewRoot), true);
        break;
    case 5:
        m_checks->set(model()->index(0, 0), false);
        m_item->clearAll();
        break;
    case 6:
    case 7:
    case 8:
        browse(step);
        break;
    case 9:
    case 10:
    case 11:
        touch(rowPath(step.first));
        break;
    case 12:
        findAndSelect(step);
        break;
    case 13:
        selectNothing();
        break;
    case 14:
        parts().view->sortByColumn(step.first % 4,
                                   step.second % 2 ? Qt::AscendingOrder : Qt::DescendingOrder);
        break;
    case 15:
        m_plain.foldersFirst = step.first % 2;
        m_item->setDirsFirst(step.first % 2);
        break;
    case 16:
        m_item->setOpenDirs(step.first % 2);
        m_plain.opensFolders = step.first % 2;
        break;
    case 17:
        m_item->setShowRoot(step.first % 2);
        m_plain.showsRoot = step.first % 2;
        break;
    case 18:
        step.first % 2 ? m_item->expandAll() : m_item->collapseAll();
        break;
    case 19:
        if (operates)
            filter(step);
        break;
    case 20:
        if (operates)
            createFile(name);
        break;
    case 21:
        if (operates)
            createFolder(name);
        break;
    case 22:
        if (operates)
            removeSelected(step.second % 2);
        break;
    case 23:
        if (operates)
            rename(name);
        break;
    case 24:
        copy();
        break;
    default:
        m_item->setIsSelectable(false);
        compareChecks();
        m_item->setIsSelectable(true);
        break;
    }
    if (m_isDying) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        expect(!isAlive(), "deleted and still there");
        begin();
    }
}

void TriedTree::hear(int number, TriedTree *other)
{
    m_handler.reset();
    m_plain.whenMoved = m_plain.whenTouched = nullptr;
    const char *const emitted[] = {
        SIGNAL(checkedFilesKBChanged()),      SIGNAL(currentFilenameChanged()),
        SIGNAL(currentFilepathChanged()),     SIGNAL(absoluteFilePathChanged()),
        SIGNAL(dirsFirstChanged()),           SIGNAL(nameFiltersChanged()),
        SIGNAL(fileRenamed(QString, QString))};
    const char *const any = emitted[number / 6 % 7];
    switch (number % 6) {
    case 0:
        react(emitted[number / 6 % 4], [this] { // the next one would call itself
            m_plain.foldersFirst = !m_plain.foldersFirst;
            m_item->setDirsFirst(m_plain.foldersFirst);
        });
        break;
    case 1:
        react(SIGNAL(currentFilepathChanged()), [this] { m_item->setCurrentPath(m_item->root()); });
        m_plain.whenMoved = [this] { m_plain.setCurrentPath(m_plain.root); };
        break;
    case 2:
        react(SIGNAL(absoluteFilePathChanged()), [this] { m_item->clearSelection(); });
        m_plain.whenTouched = [this] { m_plain.selectNothing(); };
        break;
    case 3:
        react(any, [this] {
            m_item->deleteLater();
            m_isDying = true;
        });
        break;
    case 4:
        react(any, [other] { other->end(); });
        break;
    default:
        break;
    }
}

TreeParts TriedTree::parts() const
{
    return TreeParts(m_item);
}

QFileSystemModel *TriedTree::model() const
{
    return parts().model;
}

/** Paths of all rows below @p folder. */
QStringList TriedTree::loaded(const QString &folder) const
{
    QStringList paths;
    const QModelIndex index = model()->index(folder);
    for (int i = 0; i < model()->rowCount(index); ++i) {
        const QString path = model()->filePath(model()->index(i, 0, index));
        paths.append(path);
        paths += loaded(path);
    }
    paths.sort();
    return paths;
}

/** Paths of all entries below @p folder that the filter shows. */
QStringList TriedTree::onDisk(const QString &folder) const
{
    QStringList paths;
    for (const QFileInfo &info :
         QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
        if (info.isFile() && !m_plain.shows(info.fileName()))
            continue;
        paths.append(info.filePath());
        if (info.isDir())
            paths += onDisk(info.filePath());
    }
    paths.sort();
    return paths;
}

/**
 * Until Qt's model has read what it was asked for, which it does one after the other. A folder that
 * it is asked for again before that is not watched.
 */
void TriedTree::letBeRead()
{
    static int number = 0;
    const QString last = m_top + QString("-aside/%1").arg(++number); // one that it has not read yet
    QDir().mkpath(last);
    const LoadedPaths announced(*model());
    model()->fetchMore(model()->index(last));
    expect(announced.wait(last), "nothing is read any more");
    QDir().rmdir(last);
}

/**
 * Opens the folders below @p folder. Qt's model doesn't watch a folder any more that was its root,
 * until that is opened again.
 */
void TriedTree::reopen(const QModelIndex &folder)
{
    if (model()->canFetchMore(folder))
        model()->fetchMore(folder);
    for (int i = 0; i < model()->rowCount(folder); ++i) {
        if (model()->isDir(model()->index(i, 0, folder)))
            reopen(model()->index(i, 0, folder));
    }
}

QString TriedTree::rowPath(int number) const
{
    const QStringList paths = loaded(m_plain.viewRoot);
    return paths.isEmpty() ? QString() : paths.at(number % paths.size());
}

void TriedTree::browse(const Step &step)
{
    const QString places[] = {m_top, m_top + "/sub", m_top + "/sub/deep", m_top + "/deep",
                              "/nowhere"};
    const QString &place = places[step.first % 5];
    if (step.second % 2) {
        m_item->setRoot(place);
        m_plain.setRoot(place);
    } else {
        m_item->setCurrentPath(place);
        m_plain.setCurrentPath(place);
    }
}

void TriedTree::filter(const Step &step)
{
    const char *const words[] = {"", "b", "run", "z,a.,", "deep"};
    switch (step.second % 4) {
    case 0:
        m_item->setNameFilters(words[step.second / 4 % 5]);
        m_plain.setWords(words[step.second / 4 % 5]);
        break;
    case 1:
        m_item->clearNameFilters();
        m_plain.forgetWords();
        break;
    default:
        m_item->setNameFilterOn(step.second % 4 == 2);
        m_plain.setFilterOn(step.second % 4 == 2);
        break;
    }
    selectNothing(); // what was selected may be hidden soon
}

void TriedTree::check(const QString &path, bool isChecked)
{
    if (path.isEmpty())
        return;
    m_checks->set(model()->index(path), isChecked);
    model()->setData(model()->index(path), isChecked ? Qt::Checked : Qt::Unchecked,
                     Qt::CheckStateRole);
}

void TriedTree::touch(const QString &path)
{
    if (path.isEmpty())
        return;
    const QModelIndex index = parts().row(path);
    m_plain.touch(path);
    parts().view->setCurrentIndex(index);
    QMetaObject::invokeMethod(parts().view, "pressed", Q_ARG(QModelIndex, index));
}

// What is selected already stays so besides: one row at a time is what a screen wants.
void TriedTree::findAndSelect(const Step &step)
{
    const QString path = rowPath(step.first);
    if (path.isEmpty())
        return;
    selectNothing();
    const QString folder = QFileInfo(path).path();
    const bool isWholePath = step.second % 4;
    m_item->findAndSelectIndex(folder, isWholePath ? path : QFileInfo(path).fileName());
    if (folder != m_plain.folder)
        m_plain.setCurrentPath(folder);
    if (isWholePath)
        m_plain.touch(path);
}

void TriedTree::createFile(const QString &name)
{
    const QFileInfo file(m_plain.folder + '/' + name);
    const bool canBe = QDir(m_plain.folder).exists() &&
                       (!file.exists() || (file.isFile() && mayBeWrittenByAccount(file)));
    expect(m_item->createNewFile(name) == canBe, "createNewFile tells something else");
    const QFileInfo made(file.filePath());
    const uid_t owner = file.exists() ? file.ownerId() : ostanUid;
    expect(!canBe || (made.isFile() && made.size() == 0 && made.ownerId() == owner),
           "createNewFile made something else");
}

void TriedTree::createFolder(const QString &name)
{
    const QFileInfo folder(m_plain.folder + '/' + name);
    const bool canBe = QDir(m_plain.folder).exists() && !folder.exists();
    expect(m_item->createNewFolder(name), "createNewFolder is always content");
    expect(QFileInfo(folder.filePath()).isDir() == (canBe || folder.isDir()),
           "createNewFolder made something else");
}

void TriedTree::removeSelected(bool asFolder)
{
    const QFileInfo info(m_plain.row);
    const bool isSelected = !m_plain.row.isEmpty();
    if (isSelected && !m_mayGo(m_plain.row))
        return;
    const bool isEmptyFolder =
        info.isDir() &&
        QDir(m_plain.row).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty();
    const bool removed = asFolder ? m_item->deleteSelectedDir() : m_item->deleteSelectedFile();
    const bool canGo = isSelected && (!asFolder || isEmptyFolder);
    expect(removed == canGo, "deleting tells something else");
    expect(!isSelected || QFileInfo(info.filePath()).exists() != canGo, "deleted something else");
    selectNothing(); // before the model notices, and the view selects a neighbour
}

void TriedTree::rename(const QString &name)
{
    const QFileInfo info(m_plain.row);
    const bool isSelected = !m_plain.row.isEmpty();
    if (isSelected && !m_mayGo(m_plain.row))
        return;
    const QString target = info.path() + '/' + name;
    const bool canBe = isSelected && !QFileInfo(target).exists();
    QSignalSpy spy(m_item, SIGNAL(fileRenamed(QString, QString)));
    expect(m_item->renameFile(name) == canBe, "renameFile tells something else");
    expect(spy.count() == canBe, "fileRenamed at the wrong time");
    if (canBe && spy.count() == 1) {
        expect(spy.first() == QVariantList() << m_plain.folder << target, "fileRenamed of others");
        expect(QFileInfo(target).exists() && !QFileInfo(info.filePath()).exists(),
               "renamed something else");
    }
    selectNothing();
}

void TriedTree::copy()
{
    const QStringList sources = m_checks->paths();
    const QString expected = m_checks->namesThatFail(destination).join(" ");
    const QStringList before = QDir(destination).entryList(QDir::Files);
    m_checks->set(model()->index(0, 0), false);
    const QString failed = m_item->copyCheckedFilesTo(destination);
    expect(characters(failed) == characters(expected),
           "told as failed: " + failed + ", and not: " + expected);
    for (const QFileInfo &info : QDir(destination).entryInfoList(QDir::Files)) {
        if (before.contains(info.fileName()))
            continue;
        expect(isCopy(info, sources), info.fileName() + " is no copy");
        if (info.fileName().startsWith('a'))
            QFile::remove(info.filePath());
    }
}

void TriedTree::selectNothing()
{
    m_item->clearSelection();
    m_plain.selectNothing();
}

void TriedTree::compare()
{
    if (m_movesSeen != m_plain.moves) {
        m_movesSeen = m_plain.moves;
        letBeRead();
        reopen(model()->index(m_plain.viewRoot));
        letBeRead();
    }
    const bool hasCome = waitUntil(
        [this] { return loaded(m_plain.viewRoot) == onDisk(m_plain.viewRoot); }, deadlineMs);
    expect(hasCome, "the tree has " + loaded(m_plain.viewRoot).join(", "));
    expect(waitUntil([this] { return isInOrder(); }, deadlineMs), "the order of the rows");
    if (!m_plain.current.isEmpty() && !QFileInfo(m_plain.current).exists())
        selectNothing(); // as screens must: the view selects a neighbour of what was touched last
    expect(model()->filePath(parts().proxyModel->mapToSource(parts().view->rootIndex())) ==
               m_plain.viewRoot,
           "another folder in view than " + m_plain.viewRoot);
    expect(m_item->root() == m_plain.root, "root " + m_item->root());
    expect(m_item->currentFilepath() == m_plain.folder, "in " + m_item->currentFilepath());
    expect(m_item->currentFilename() == m_plain.file, "file " + m_item->currentFilename());
    expect(m_item->selectedFilename() == m_plain.selectedFile,
           "selected file " + m_item->selectedFilename());
    expect(m_item->absoluteFilePath() == m_plain.row, "row " + m_item->absoluteFilePath());
    expect(m_item->getCurrentItemName() == QFileInfo(m_plain.row).fileName(), "name of the row");
    expect(m_item->isDirSelected() == QFileInfo(m_plain.row).isDir(), "kind of the row");
    expect(m_item->nameFilters() == m_plain.words, "words " + m_item->nameFilters());
    expect(m_item->getNameFilters() == m_plain.patterns, "patterns");
    expect(m_item->dirsFirst() == m_plain.foldersFirst, "folders first");
    expect(m_item->openDirs() == m_plain.opensFolders, "folders open");
    expect(parts().view->rootIsDecorated() == m_plain.showsRoot, "decorated root");
    compareChecks();
    expect(geteuid() == 0, "the user id");
}

void TriedTree::compareChecks()
{
    const bool isShown = m_item->isSelectable();
    for (const QString &path : loaded(m_plain.viewRoot)) {
        const QModelIndex index = model()->index(path);
        const QVariant state = index.data(Qt::CheckStateRole);
        const bool isChecked = isShown && m_checks->look(index);
        expect(state.toInt() == (isChecked ? Qt::Checked : Qt::Unchecked),
               path + (isChecked ? " must be checked" : " must not be checked"));
    }
    expect(m_item->checkedFilesKB() == m_checks->bytes(),
           QString("the total is %1").arg(m_item->checkedFilesKB()));
}

/** Whether no row of the view's top stands before one that must come first. */
bool TriedTree::isInOrder() const
{
    const QSortFilterProxyModel *rows = parts().proxyModel;
    const QModelIndex top = parts().row(m_plain.viewRoot);
    const bool isAscending = rows->sortOrder() == Qt::AscendingOrder;
    for (int i = 1; i < rows->rowCount(top); ++i) {
        const QModelIndex upper = rows->index(i - 1, 0, top);
        const QModelIndex lower = rows->index(i, 0, top);
        const bool upperIsFolder = upper.data(FileSystemModel::IsDirRole).toBool();
        const bool lowerIsFolder = lower.data(FileSystemModel::IsDirRole).toBool();
        if (upperIsFolder != lowerIsFolder
                ? upperIsFolder != m_plain.foldersFirst
                : isLess(isAscending ? lower : upper, isAscending ? upper : lower,
                         rows->sortColumn()))
            return false;
    }
    return true;
}

void TriedTree::expect(bool holds, const QString &what)
{
    if (!holds && complaint.empty())
        complaint = inWords(what);
}

void TriedTree::react(const char *signal, const std::function<void()> &action)
{
    m_handler.reset(new Reaction(m_item, signal, action));
}
