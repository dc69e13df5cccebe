#include "directory/directory.h"

#include "directory/modificationdates.h"

#include "common/datafolders.h"
#include "common/privilegedropguard.h"

#include <QDebug>
#include <QLocale>
#include <QMutexLocker>
#include <QTimer>

namespace {
const int selectionMarksDelayMs = 200;
} // namespace

Directory::Directory(QObject *parent)
    : QObject(parent)
    , m_sortType(date)
    , m_sortOrder(ascending)
    , m_selectedFilesKB(0)
    , m_nameSorted(false)
    , m_dateSorted(true)
    , m_sizeSorted(false)
    , m_typeSorted(false)
    , m_ascendingSorted(true)
    , m_scriptFilter(QLatin1String(".py"))
{
    m_root = DataFolders::logs();
    verifyRoot();
    setCurrentPath(m_root);

    // Only now, so that a new object lists nothing by itself.
    connect(this, SIGNAL(currentPathChanged()), this, SIGNAL(updateDirectory()));
    connect(this, SIGNAL(nameSortedChanged()), this, SIGNAL(updateDirectory()));
    connect(this, SIGNAL(dateSortedChanged()), this, SIGNAL(updateDirectory()));
    connect(this, SIGNAL(sizeSortedChanged()), this, SIGNAL(updateDirectory()));
    connect(this, SIGNAL(typeSortedChanged()), this, SIGNAL(updateDirectory()));
    connect(this, SIGNAL(ascendingSortedChanged()), this, SIGNAL(updateDirectory()));
    connect(this, SIGNAL(updateDirectory()), this, SLOT(refresh()));
    connect(this, SIGNAL(selectedFilesChanged()), this, SLOT(updateSelectedFilesKB()));
}

Directory::~Directory()
{
}

void Directory::refresh()
{
    refreshFileList();
    refreshPathList();
}

void Directory::refreshFileList()
{
    QMutexLocker locker(&m_mutex);
    if (!readCurrentFolder())
        return;
    const QVector<FolderEntry> entries = shownEntries();
    if (showsNamesOf(entries))
        return;
    replaceFiles(entries);
    emit filesChanged();
    QTimer::singleShot(selectionMarksDelayMs, this, SLOT(updateSelectedFiles()));
}

// A folder that may not be read leaves the previous one's entries to be shown under the new path,
// and the line names the working directory: deliberate both, the screens and the instrument's
// support know it so.
bool Directory::readCurrentFolder()
{
    if (!m_dir.cd(m_currentPath)) {
        qDebug() << "ERROR: Directory::refreshFileList failed to cd to " << m_currentPath;
        return false;
    }
    if (!m_dir.isReadable()) {
        qDebug() << "WARNING: " << QDir::currentPath() << " not readable!";
        return true;
    }
    m_listing.read(m_dir.absolutePath(), sortFlags());
    return true;
}

QDir::SortFlags Directory::sortFlags() const
{
    const QDir::SortFlags direction =
        m_sortOrder == descending ? QDir::SortFlags(QDir::Reversed) : QDir::SortFlags();
    switch (m_sortType) {
    case name:
        return QDir::Name | QDir::IgnoreCase | direction;
    case date:
        return QDir::Time | direction;
    case kind:
        return m_sortOrder == ascending ? QDir::Name | QDir::DirsFirst
                                        : QDir::Name | QDir::DirsLast;
    default:
        return QDir::Size | direction;
    }
}

QVector<FolderEntry> Directory::shownEntries() const
{
    if (m_filters.isEmpty())
        return m_listing.entries();
    QVector<FolderEntry> entries;
    for (const FolderEntry &entry : m_listing.entries()) {
        if (entry.isDir || filter(entry.name))
            entries.append(entry);
    }
    return entries;
}

bool Directory::filter(const QString &name) const
{
    for (const QString *text : m_filters) {
        if (name.contains(*text))
            return true;
    }
    return false;
}

bool Directory::showsNamesOf(const QVector<FolderEntry> &entries) const
{
    if (entries.size() != m_files.size())
        return false;
    for (int i = 0; i < entries.size(); ++i) {
        if (!m_files.at(i)->isNamed(entries.at(i).name))
            return false;
    }
    return true;
}

void Directory::replaceFiles(const QVector<FolderEntry> &entries)
{
    QList<File *> files;
    files.reserve(entries.size());
    ModificationDates dates(QLocale().dateFormat(QLocale::ShortFormat));
    for (const FolderEntry &entry : entries) {
        File *file = new File;
        file->setName(entry.name);
        file->setSize(entry.size);
        file->setDate(dates.text(entry.modified));
        file->setIsDir(entry.isDir);
        files.append(file);
    }
    qDeleteAll(m_files);
    m_files = files;
}

void Directory::refreshPathList()
{
    QMutexLocker locker(&m_mutex);
    m_paths.clear(); // the items live on, for the screen that still shows them
    m_pathParts.clear();
    QDir parent(m_root);
    if (!parent.cdUp())
        return;

    m_pathParts = parent.relativeFilePath(m_currentPath).split(QDir::separator());
    m_pathParts.removeAll(QString());
    QString steps;
    for (const QString &part : m_pathParts) {
        steps += QLatin1Char('/') + part;
        Path *path = new Path;
        path->setName(part);
        path->setFullpath(parent.absolutePath() + steps);
        m_paths.append(path);
    }
    emit pathsChanged();
}

void Directory::verifyRoot()
{
    PrivilegeDropGuard guard;
    if (!QDir(m_root).exists())
        QDir().mkpath(m_root);
}

QString Directory::root() const
{
    return m_root;
}

void Directory::setRoot(QString str)
{
    if (str == m_root)
        return;
    m_root = str;
    verifyRoot();
    emit rootChanged();
    setCurrentPath(m_root);
}

QString Directory::currentPath() const
{
    return m_currentPath;
}

void Directory::setCurrentPath(QString str)
{
    if (str == m_currentPath || str.isEmpty())
        return;
    if (!m_currentPath.isEmpty())
        m_watcher.removePath(m_currentPath);
    m_currentPath = str;
    m_watcher.addPath(m_currentPath);
    emit currentPathChanged();
}

void Directory::selectPath(QString newpath)
{
    if (!newpath.contains(m_root) || !m_dir.cd(newpath))
        return;
    setCurrentPath(m_dir.absolutePath());
}

void Directory::selectFile(int index)
{
    if (!isEntry(index) || !m_listing.entries().at(index).isDir ||
        !m_dir.cd(m_listing.entries().at(index).name))
        return;
    setCurrentPath(m_dir.absolutePath());
}

bool Directory::isDir(int index)
{
    return isEntry(index) && m_listing.entries().at(index).isDir;
}

bool Directory::isEntry(int index) const
{
    return index >= 0 && index < m_listing.entries().size();
}

int Directory::getIndex(QString filename)
{
    QMutexLocker locker(&m_mutex);
    for (int i = 0; i < m_files.size(); ++i) {
        if (m_files.at(i)->isNamed(filename))
            return i;
    }
    return -1;
}

void Directory::reorderByName()
{
    reorderBy(name);
}

void Directory::reorderByDate()
{
    reorderBy(date);
}

void Directory::reorderBySize()
{
    reorderBy(size);
}

void Directory::reorderByType()
{
    reorderBy(kind);
}

void Directory::reorderBy(SortType type)
{
    if (m_sortType == type) {
        setSortOrder(m_sortOrder == ascending ? descending : ascending);
        return;
    }
    setSortType(type);
    setSortOrder(ascending);
}

void Directory::setSortType(Directory::SortType type)
{
    if (type == m_sortType)
        return;
    m_sortType = type;
    setNameSorted(type == name);
    setDateSorted(type == date);
    setSizeSorted(type == size);
    setTypeSorted(type == kind);
}

void Directory::setSortOrder(Directory::SortOrder order)
{
    if (order == m_sortOrder)
        return;
    m_sortOrder = order;
    setAscendingSorted(order == ascending);
}

bool Directory::nameSorted() const
{
    return m_nameSorted;
}

void Directory::setNameSorted(bool state)
{
    m_nameSorted = state;
    emit nameSortedChanged();
}

bool Directory::dateSorted() const
{
    return m_dateSorted;
}

void Directory::setDateSorted(bool state)
{
    m_dateSorted = state;
    emit dateSortedChanged();
}

bool Directory::sizeSorted() const
{
    return m_sizeSorted;
}

void Directory::setSizeSorted(bool state)
{
    m_sizeSorted = state;
    emit sizeSortedChanged();
}

bool Directory::typeSorted() const
{
    return m_typeSorted;
}

void Directory::setTypeSorted(bool state)
{
    m_typeSorted = state;
    emit typeSortedChanged();
}

bool Directory::ascendingSorted() const
{
    return m_ascendingSorted;
}

void Directory::setAscendingSorted(bool state)
{
    m_ascendingSorted = state;
    emit ascendingSortedChanged();
}

void Directory::viewScriptDirectory()
{
    m_filters.clear();
    m_filters.append(&m_scriptFilter);
    setRoot(DataFolders::scripts());
}

void Directory::viewLogDirectory()
{
    setRoot(DataFolders::logs());
}

void Directory::viewGraphDefinitionDirectory()
{
    setRoot(DataFolders::graphDefinitions());
}

void Directory::viewConfigsDirectory()
{
    setRoot(DataFolders::configurations());
}

void Directory::viewSoilFluxDirectory()
{
    setRoot(DataFolders::soilFlux());
}

QString Directory::getSoilFluxDirectory()
{
    return DataFolders::soilFlux();
}
