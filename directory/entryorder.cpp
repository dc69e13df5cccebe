#include "directory/entryorder.h"

#include "directory/modificationdates.h"

#include <algorithm>

#include <QtAlgorithms>

namespace {
/** One entry while it is sorted. Plain data: sorting moves it about a dozen times. */
struct SortItem
{
    const FolderEntry *entry;
    const QString *name; ///< as compared
    quint64 key;         ///< decides, smallest first, unless it is equal
};

quint64 largestFirst(qint64 number)
{
    const quint64 signBit = Q_UINT64_C(1) << 63;
    return ~(static_cast<quint64>(number) ^ signBit);
}

// QDir compares whole seconds on Qt 4.8, and on Qt 5 the milliseconds of the local clock, so that
// the hour before and the hour after the end of summer time fall together.
quint64 timeKey(const FolderEntry &entry)
{
    if (entry.modified == noTime)
        return largestFirst(0);
#if QT_VERSION < 0x050000
    return largestFirst(entry.modified / 1000);
#else
    return largestFirst(wallClock(entry.modified));
#endif
}

/** The four characters of @p name from @p start on: names that differ in them need no look at the
 * rest. */
quint64 nameKey(const QString &name, int start)
{
    quint64 key = 0;
    for (int i = start; i < start + 4; ++i)
        key = key << 16 | (i < name.size() ? name.at(i).unicode() : 0);
    return key;
}

/** Length of what all names have in common in front, as log files do. */
int commonLength(const QVector<SortItem> &items)
{
    const QString &first = *items.first().name;
    int length = first.size();
    for (const SortItem &item : items) {
        const QString &name = *item.name;
        length = qMin(length, name.size());
        int same = 0;
        while (same < length && name.at(same) == first.at(same))
            ++same;
        length = same;
    }
    return length;
}

void setKeys(QVector<SortItem> *items, QDir::SortFlags flags)
{
    const int order = flags & QDir::SortByMask;
    const int start = order == QDir::Name ? commonLength(*items) : 0;
    for (SortItem &item : *items) {
        if (order == QDir::Time)
            item.key = timeKey(*item.entry);
        else if (order == QDir::Size)
            item.key = largestFirst(item.entry->size);
        else
            item.key = nameKey(*item.name, start);
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
    qint64 compare(const SortItem &left, const SortItem &right) const
    {
        if (left.key != right.key)
            return left.key < right.key ? -1 : 1;
        const int order = left.name->compare(*right.name);
#if QT_VERSION < 0x050000
        // Names that differ in case only: QDir of Qt 4.8 takes the places that they have while it
        // sorts.
        if (order == 0)
            return &left - &right;
#endif
        return order;
    }

    const QDir::SortFlags m_flags;
};

QVector<QString> lowerCaseNames(const QVector<FolderEntry> &entries)
{
    QVector<QString> names;
    names.reserve(entries.size());
    for (const FolderEntry &entry : entries)
        names.append(entry.name.toLower());
    return names;
}
} // namespace

void sortEntries(QVector<FolderEntry> *entries, QDir::SortFlags flags)
{
    if (entries->isEmpty())
        return;
    refreshTimeZone();
    const QVector<QString> lowerCase =
        flags & QDir::IgnoreCase ? lowerCaseNames(*entries) : QVector<QString>();
    QVector<SortItem> items;
    items.reserve(entries->size());
    for (int i = 0; i < entries->size(); ++i) {
        const FolderEntry &entry = entries->at(i);
        const SortItem item = {&entry, lowerCase.isEmpty() ? &entry.name : &lowerCase.at(i), 0};
        items.append(item);
    }
    setKeys(&items, flags);

    // Neither Qt sorts stably, so that the same order of ties takes the same algorithm.
#if QT_VERSION < 0x050000
    qSort(items.begin(), items.end(), LessThan(flags));
#else
    std::sort(items.begin(), items.end(), LessThan(flags));
#endif

    QVector<FolderEntry> sorted;
    sorted.reserve(items.size());
    for (const SortItem &item : items)
        sorted.append(*item.entry);
    *entries = sorted;
}
