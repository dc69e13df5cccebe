#include "tree/filesystemmodel.h"

#include "common/datafolders.h"
#include "common/filecopy.h"
#include "tree/newsizes.h"

#include <QColor>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QPixmap>
#include <QStringList>

#include <sys/stat.h>

namespace {
const int nameColumn = 0;
const char fontFamily[] = "OpenSans";
const int fontPoints = 12;

// What QFileInfo would answer, in a third of the time: a folder is checked file by file.
qint64 sizeOnDisk(const QString &path)
{
    struct stat info;
    return stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_size : 0;
}

bool isFolderOnDisk(const QString &path)
{
    struct stat info;
    return stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Since 6.5 Qt's model searches its queue for ever when a watched file and its folder change in one
// go, as they do when the file is deleted.
const bool canWatchFiles = QT_VERSION < 0x060500;
} // namespace

FileSystemModel::FileSystemModel(QObject *parent)
    : QFileSystemModel(parent)
    , m_checked(this)
    , m_dateTimeFormat(QLatin1String("dd MMM yyyy hh:mm AP"))
    , m_checkedBytes(0)
    , m_isSelectable(false)
    , m_wasEdited(false)
    , m_entryCache(this)
    , m_font(QFont(QLatin1String(fontFamily), fontPoints, QFont::Normal, false))
    , m_taggedFont(QFont(QLatin1String(fontFamily), fontPoints, QFont::DemiBold, true))
    , m_color(QColor(51, 51, 51))
    , m_taggedColor(QColor(QLatin1String("#0076BC")))
    , m_folderImage(QPixmap(QLatin1String(":/images/blue-folder.png")))
{
    setNameFilterDisables(false);
#if QT_VERSION < 0x050000
    // That sorts later, and Qt 4.8 makes the root's own rows in the middle of it, behind the back
    // of a proxy that is attached by then: a crash. Made now, they are rows like any other.
    index(rootPath());
#endif
    connect(this, SIGNAL(directoryLoaded(QString)), this, SLOT(readDirectory(QString)));
}

Qt::ItemFlags FileSystemModel::flags(const QModelIndex &index) const
{
    return QFileSystemModel::flags(index) | Qt::ItemIsUserCheckable;
}

QVariant FileSystemModel::data(const QModelIndex &index, int role) const
{
    const bool inNameColumn = index.column() == nameColumn;
    switch (role) {
    case Qt::TextAlignmentRole:
        if (!inNameColumn)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        break;
    case Qt::ForegroundRole:
        return isTagged(index) ? m_taggedColor : m_color;
    case Qt::FontRole:
        return isTagged(index) ? m_taggedFont : m_font;
    case Qt::CheckStateRole:
        if (inNameColumn && m_isSelectable)
            return int(checkState(index));
        break;
    case Qt::DecorationRole:
        if (inNameColumn)
            return isDir(index) ? m_folderImage : QVariant();
        break;
    case TypeRole:
        return type(index);
    case LastModifiedRole:
        return lastModified(index);
    case SizeRole:
        return size(index);
    case DisplayTextRole:
        return index.data(Qt::DisplayRole).toString();
    case IsDirRole:
        return isDir(index);
    default:
        break;
    }
    return QFileSystemModel::data(index, role);
}

bool FileSystemModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole) {
        m_wasEdited = true;
        return QFileSystemModel::setData(index, value, role);
    }

    const bool checked = value == QVariant(int(Qt::Checked));
    const qint64 size = sizeOnDisk(pathOnDisk(index));
    const bool wasChecked = m_checked.contains(index);
    qDebug() << (checked ? "Add Size " : "Remove Size ") << index.data(Qt::DisplayRole).toString()
             << "=" << size;
    if (checked) {
        if (size >= 1 && !wasChecked)
            m_checkedBytes += size;
        m_checked.insert(index);
    } else {
        if (size >= 1 && wasChecked)
            m_checkedBytes -= size;
        m_checked.remove(index);
    }
    recursiveCheck(index, value);
    emit dataChanged(index, index);
    emit checkedFilesKBChanged();
    return true;
}

EntryCache &FileSystemModel::entryCache() const
{
    return m_entryCache;
}

void FileSystemModel::clearAll()
{
    setData(index(0, nameColumn), Qt::Unchecked, Qt::CheckStateRole);
}

bool FileSystemModel::isSelectable()
{
    return m_isSelectable;
}

void FileSystemModel::listSelectedFiles()
{
    // Deliberately without effect: screens of the instrument call it.
}

void FileSystemModel::readDirectory(const QString &path)
{
    if (!m_isSelectable || !path.contains(DataFolders::account(), Qt::CaseInsensitive))
        return;
    // Qt's model announces every file as loaded, too. A look at the disk tells that it has no rows
    // in a fraction of the time that the model takes to find the file among 10,000 others.
    if (!isFolderOnDisk(path))
        return;
    const QModelIndex folder = index(path);
#if QT_VERSION < 0x050000
    takeNewSizes(this, folder);
#endif
    for (int row = 0; row < rowCount(folder); ++row) {
        const QModelIndex child = index(row, nameColumn, folder);
        if (canWatchFiles || isDir(child))
            fetchMore(child);
    }
}

void FileSystemModel::selectAll()
{
    const QModelIndex folder = index(rootPath());
    if (!hasChildren(folder))
        return;
    for (int row = 0; row < rowCount(folder); ++row)
        setData(index(row, nameColumn, folder), Qt::Checked, Qt::CheckStateRole);
}

void FileSystemModel::setDateTimeFormat(const QString &format)
{
    m_dateTimeFormat = format;
}

void FileSystemModel::setIsSelectable(bool isSelectable)
{
    m_isSelectable = isSelectable;
}

void FileSystemModel::setTaggedPath(const QString &path)
{
    m_taggedPath = path;
}

void FileSystemModel::clearTaggedPath()
{
    m_taggedPath = QString();
}

quint64 FileSystemModel::checkedFilesKB()
{
    return m_checkedBytes;
}

QString FileSystemModel::copyCheckedFilesTo(const QString &dest)
{
    qDebug() << "FileSystemModel::copySelectedTo()";
    QStringList failed;
    for (const QModelIndex &index : m_checked.indexes()) {
        const QString name = index.data(Qt::DisplayRole).toString();
        qDebug() << "Selected " << name;
        const QString source = QFileInfo(filePath(index)).absoluteFilePath();
        if (!copyFileWithTimes(source, dest + QDir::separator() + name))
            failed.append(name);
    }
    return failed.join(QLatin1String(" "));
}

void FileSystemModel::recursiveCheck(const QModelIndex &index, const QVariant &value)
{
    if (!hasChildren(index))
        return;
    if (rowCount(index) == 0) {
        qDebug() << QDateTime::currentDateTime().toString()
                 << "ERROR: FileSystemModel::recursiveCheck() - Need to fetch more files not "
                    "loaded in model!";
        return;
    }
    for (int row = 0; row < rowCount(index); ++row)
        setData(this->index(row, nameColumn, index), value, Qt::CheckStateRole);
}

QString FileSystemModel::pathOnDisk(const QModelIndex &index) const
{
    // Put together folder by folder, a path costs more than all else that checking an entry takes.
    // In an entry's info it stands, but as it was before a folder above was renamed by editing.
    return m_wasEdited ? filePath(index) : fileInfo(index).filePath();
}

bool FileSystemModel::isTagged(const QModelIndex &index) const
{
    return QFileSystemModel::data(index, FilePathRole).toString() == m_taggedPath;
}

Qt::CheckState FileSystemModel::checkState(const QModelIndex &index) const
{
    if (m_checked.isEmpty())
        return Qt::Unchecked;
    if (m_checked.contains(index))
        return Qt::Checked;
    for (QModelIndex folder = index.parent(); folder.isValid(); folder = folder.parent()) {
        if (m_checked.contains(folder)) {
            m_checked.insert(index);
            return Qt::Checked;
        }
    }
    return Qt::Unchecked;
}
