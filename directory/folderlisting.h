#ifndef FOLDERLISTING_H
#define FOLDERLISTING_H

#include "directory/folderreader.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QVector>

/**
 * The entries of a folder in order, as last read. A folder is listed far more often than it
 * changes, so it is sorted only when it did.
 */
class FolderListing
{
public:
    /** Reads the folder @p path. The order is that of sortEntries() with @p flags. */
    void read(const QString &path, QDir::SortFlags flags);

    /** What the folder held; nothing before it was read, or when it could not be opened. */
    const QVector<FolderEntry> &entries() const;

private:
    QVector<const QString *> namesAsRead() const;
    bool isWhatWasSorted(const QVector<FolderEntry> &unsorted) const;

    QVector<FolderEntry> m_entries;
    QVector<int> m_places; // in m_entries of what was read, in the order in which it was
    QDir::SortFlags m_flags;
    QByteArray m_zone;
};

#endif // FOLDERLISTING_H
