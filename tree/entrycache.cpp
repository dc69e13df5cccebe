#include "tree/entrycache.h"

#include <QDateTime>

EntryCache::Entry::Entry()
    : pointer(nullptr)
    , isDir(false)
    , hasModified(false)
    , modified(0)
{
}

EntryCache::EntryCache(const QFileSystemModel *model)
    : m_model(model)
{
    connect(model, SIGNAL(dataChanged(QModelIndex, QModelIndex)), this,
            SLOT(clearUnlessNamesOnly(QModelIndex, QModelIndex)));
    connect(model, SIGNAL(fileRenamed(QString, QString, QString)), this, SLOT(clear()));
    connect(model, SIGNAL(rowsRemoved(QModelIndex, int, int)), this, SLOT(clear()));
    connect(model, SIGNAL(layoutChanged()), this, SLOT(clear()));
}

bool EntryCache::isDir(const QModelIndex &index)
{
    return entry(index).isDir;
}

QString EntryCache::name(const QModelIndex &index)
{
    Entry &known = entry(index);
    if (known.name.isNull())
        known.name = m_model->fileName(index);
    return known.name;
}

qint64 EntryCache::modified(const QModelIndex &index)
{
    Entry &known = entry(index);
    if (!known.hasModified) {
        known.modified = m_model->lastModified(index).toMSecsSinceEpoch();
        known.hasModified = true;
    }
    return known.modified;
}

void EntryCache::clear()
{
    m_entries.clear();
}

void EntryCache::clearUnlessNamesOnly(const QModelIndex &, const QModelIndex &last)
{
    // A check box changes the first column alone, another state of the file all of them.
    if (last.column() > 0)
        clear();
}

EntryCache::Entry &EntryCache::entry(const QModelIndex &index)
{
    const int row = index.row();
    if (row >= m_entries.count())
        m_entries.resize(qMax(row + 1, m_model->rowCount(index.parent())));
    Entry &known = m_entries[row];
    if (known.pointer != index.internalPointer())
        lookAt(index, &known);
    return known;
}

void EntryCache::lookAt(const QModelIndex &index, Entry *entry) const
{
    *entry = Entry();
    entry->pointer = index.internalPointer();
    entry->isDir = m_model->isDir(index);
}
