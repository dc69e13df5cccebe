#include "directory/folderlisting.h"

#include "directory/entryorder.h"
#include "directory/wallclock.h"

void FolderListing::read(const QString &path, QDir::SortFlags flags)
{
    const QVector<FolderEntry> unsorted = readFolder(path);
    const QByteArray zone = WallClock::zone(); // the order by time is that on the wall
    if (flags == m_flags && zone == m_zone && unsorted == m_unsorted)
        return;
    m_entries = sortedEntries(unsorted, flags);
    m_unsorted = unsorted;
    m_flags = flags;
    m_zone = zone;
}

const QVector<FolderEntry> &FolderListing::entries() const
{
    return m_entries;
}
