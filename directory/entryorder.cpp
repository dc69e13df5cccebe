#include "directory/entryorder.h"

#include "directory/modificationdates.h"

#include <algorithm>

#include <QtAlgorithms>

namespace {
/** One entry while it is sorted, with what the comparison looks at. */
struct SortItem
{
    const FolderEntry *entry;
    qint64 key;           ///< for the orders by time and size
    mutable QString name; ///< as compared; null until the first tie asks for it
};

typedef qint64 (*KeyOf)(const FolderEntry &);

qint64 noKey(const FolderEntry &)
{
    return 0;
}

qint64 sizeKey(const FolderEntry &entry)
{
    return entry.size;
}

// QDir compares whole seconds on Qt 4.8, and on Qt 5 the milliseconds of the local clock, so that
// the hour before and the hour after the end of summer time fall together.
qint64 timeKey(const FolderEntry &entry)
{
    if (entry.modified == noTime)
        return 0;
#if QT_VERSION < 0x050000
    return entry.modified / 1000;
#else
    return wallClock(entry.modified);
#endif
}

KeyOf keyFor(QDir::SortFlags flags)
{
    switch (flags & QDir::SortByMask) {
    case QDir::Time:
        return timeKey;
    case QDir::Size:
        return sizeKey;
    default:
        return noKey;
    }
}

class LessThan
{
public:
    explicit LessThan(QDir::SortFlags flags)
        : m_flags(flags)
    {
    }

    bool operator()(const SortItem &left, const SortItem &right) const
    {
        if (left.entry->isDir != right.entry->isDir) {
            if (m_flags & QDir::DirsFirst)
                return left.entry->isDir;
            if (m_flags & QDir::DirsLast)
                return right.entry->isDir;
        }
        const qint64 order = compare(left, right);
        return m_flags & QDir::Reversed ? order > 0 : order < 0;
    }

private:
    // Unreversed, the newest and the largest come first.
    qint64 compare(const SortItem &left, const SortItem &right) const
    {
        if (left.key != right.key)
            return right.key > left.key ? 1 : -1;
        const int order = comparedName(left).compare(comparedName(right));
#if QT_VERSION < 0x050000
        // Names that differ in case only: QDir of Qt 4.8 takes the places that they have while it
        // sorts.
        if (order == 0)
            return &left - &right;
#endif
        return order;
    }

    const QString &comparedName(const SortItem &item) const
    {
        if (item.name.isNull())
            item.name = m_flags & QDir::IgnoreCase ? item.entry->name.toLower() : item.entry->name;
        return item.name;
    }

    const QDir::SortFlags m_flags;
};
} // namespace

void sortEntries(QVector<FolderEntry> *entries, QDir::SortFlags flags)
{
    refreshTimeZone();
    const KeyOf keyOf = keyFor(flags);
    const QVector<FolderEntry> unsorted = *entries;
    QVector<SortItem> items;
    items.reserve(unsorted.size());
    for (const FolderEntry &entry : unsorted) {
        const SortItem item = {&entry, keyOf(entry), QString()};
        items.append(item);
    }

    // Neither Qt sorts stably, so that the same order of ties takes the same algorithm.
#if QT_VERSION < 0x050000
    qSort(items.begin(), items.end(), LessThan(flags));
#else
    std::sort(items.begin(), items.end(), LessThan(flags));
#endif

    for (int i = 0; i < items.size(); ++i)
        (*entries)[i] = *items.at(i).entry;
}
