#include "random/plaindirectory.h"

#include "common/datafolders.h"

#include <QSet>

namespace {
const QDir::Filters listed = QDir::Dirs | QDir::Files | QDir::Drives | QDir::NoDotAndDotDot;

QDir::SortFlags flagsOf(Directory::SortType type, bool isAscending)
{
    const QDir::SortFlags direction =
        isAscending ? QDir::SortFlags() : QDir::SortFlags(QDir::Reversed);
    switch (type) {
    case Directory::name:
        return QDir::Name | QDir::IgnoreCase | direction;
    case Directory::date:
        return QDir::Time | direction;
    case Directory::size:
        return QDir::Size | direction;
    default:
        return QDir::Name | (isAscending ? QDir::DirsFirst : QDir::DirsLast);
    }
}

void tell(const std::function<void()> &handler)
{
    if (handler)
        handler();
}
} // namespace

PlainDirectory::PlainDirectory()
    : root(DataFolders::logs())
    , currentPath(root)
    , kilobytes(0)
    , m_type(Directory::date)
    , m_isAscending(true)
    , m_onlyScripts(false)
{
}

void PlainDirectory::refresh()
{
    if (QDir(currentPath).exists()) {
        dir = QDir(currentPath);
        m_entries = dir.entryInfoList(listed, flagsOf(m_type, m_isAscending));
        QList<Item> items;
        for (const QFileInfo &info : m_entries) {
            const Item item = {info.fileName(), info.size(), info.isDir(), false};
            if (!m_onlyScripts || item.isDir || item.name.contains(".py"))
                items.append(item);
        }
        bool isSame = items.size() == shown.size();
        for (int i = 0; isSame && i < items.size(); ++i)
            isSame = items.at(i).name == shown.at(i).name;
        if (!isSame) {
            shown = items;
            tell(whenListed);
            defer(Mark);
        }
    }
    breadcrumb = QFileInfo(root).dir().relativeFilePath(currentPath).split('/');
    breadcrumb.removeAll(QString());
}

void PlainDirectory::setRoot(const QString &path)
{
    if (path == root)
        return;
    root = path;
    setCurrentPath(path);
}

void PlainDirectory::setCurrentPath(const QString &path)
{
    if (path == currentPath || path.isEmpty())
        return;
    currentPath = path;
    refresh();
    tell(whenMoved);
}

void PlainDirectory::selectPath(const QString &path)
{
    if (!path.contains(root) || !QDir(path).exists())
        return;
    dir = QDir(path);
    setCurrentPath(path);
}

void PlainDirectory::selectFile(int index)
{
    const QString path = dir.filePath(entry(index));
    if (entry(index).isNull() || !m_entries.at(index).isDir() || !QDir(path).exists())
        return;
    dir = QDir(path);
    setCurrentPath(path);
}

void PlainDirectory::reorderBy(Directory::SortType type)
{
    if (type == m_type) {
        m_isAscending = !m_isAscending;
        refresh();
        return;
    }
    m_type = type;
    refresh();
    tell(whenSortedByOther);
    if (!m_isAscending) {
        m_isAscending = true;
        refresh();
    }
}

void PlainDirectory::showScripts()
{
    m_onlyScripts = true;
    setRoot(DataFolders::scripts());
}

void PlainDirectory::mark(int index, bool isSelected)
{
    if (index < 0 || index >= shown.size())
        return;
    const Item item = shown.at(index);
    const QString key = currentPath + '/' + item.name;
    shown[index].isMarked = isSelected;
    if (isSelected) {
        selection.insert(key, item.name);
        kilobytes += item.size / 1024;
        tell(whenSelected);
    } else if (selection.remove(key) > 0) {
        kilobytes -= item.size / 1024;
        tell(whenSelected);
    }
}

void PlainDirectory::markAll()
{
    for (int i = 0; i < shown.size(); ++i) {
        if (!shown.at(i).isMarked && !shown.at(i).isDir)
            mark(i, true);
    }
}

void PlainDirectory::clearSelection()
{
    selection.clear();
    kilobytes = 0;
    for (Item &item : shown)
        item.isMarked = false;
    tell(whenSelected);
}

QString PlainDirectory::namesThatFail(const QString &destination) const
{
    QStringList failed;
    QSet<QString> copied;
    for (const QString &path : selection.keys()) {
        const QString name = selection.value(path);
        const bool isFree = !QFileInfo(destination + '/' + name).exists() && !copied.contains(name);
        if (QFileInfo(path).isFile() && isFree)
            copied.insert(name);
        else
            failed.append(name);
    }
    return failed.join(" ");
}

void PlainDirectory::defer(Deferred what)
{
    m_deferred.append(what);
}

void PlainDirectory::timePasses()
{
    while (!m_deferred.isEmpty()) {
        switch (m_deferred.takeFirst()) {
        case Refresh:
            refresh();
            break;
        case ClearSelection:
            clearSelection();
            break;
        case Mark:
            markSelected();
            break;
        }
    }
}

QString PlainDirectory::entry(int index) const
{
    return index >= 0 && index < m_entries.size() ? m_entries.at(index).fileName() : QString();
}

void PlainDirectory::markSelected()
{
    for (Item &item : shown)
        item.isMarked = selection.contains(currentPath + '/' + item.name);
}
