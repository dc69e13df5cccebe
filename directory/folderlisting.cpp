#include "directory/folderlisting.h"

#include "directory/entryorder.h"
#include "directory/wallclock.h"

void FolderListing::read(const QString &path, QDir::SortFlags flags)
{
    QVector<FolderEntry> entries = readFolder(path, namesAsRead());
    const QByteArray zone = WallClock::zone(); // the order by time is that on the wall
    if (flags == m_flags && zone == m_zone && isWhatWasSorted(entries))
        return;
    m_places = sortEntries(&entries, flags);
    m_entries = entries;
    m_flags = flags;
    m_zone = zone;
}

const QVector<FolderEntry> &FolderListing::entries() const
{
    return m_entries;
}

QVector<const QString *> FolderListing::namesAsRead() const
{
    QVector<const QString *> names;
    names.reserve(m_places.size());
    for (int place : m_places)
        names.append(&m_entries.at(place).name);
    return names;
}

bool FolderListing::isWhatWasSorted(const QVector<FolderEntry> &unsorted) const
{
    if (unsorted.size() != m_entries.size())
        return false;
    for (int i = 0; i < unsorted.size(); ++i) {
        if (!(unsorted.at(i) == m_entries.at(m_places.at(i))))
            return false;
    }
    return true;
}
