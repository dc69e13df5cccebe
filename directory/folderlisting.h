#ifndef FOLDERLISTING_H
#define FOLDERLISTING_H

#include "directory/folderreader.h"

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QVector>

/**
 * The entries of a folder in order, as last read. A folder is listed far more often than it
 * changes, so what has been sorted is kept beside what it was sorted from.
 */
class FolderListing
{
public:
    /** Reads the folder @p path. The order is that of sortedEntries() with @p flags. */
    void read(const QString &path, QDir::SortFlags flags);

    /** What the folder held; nothing before it was read, or when it could not be opened. */
    const QVector<FolderEntry> &entries() const;

private:
    QVector<FolderEntry> m_unsorted;
    QVector<FolderEntry> m_entries;
    QDir::SortFlags m_flags;
    QByteArray m_zone;
};

#endif // FOLDERLISTING_H
