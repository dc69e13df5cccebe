#include "directory/entryorder.h"

#include "directory/wallclock.h"

#include "common/filetime.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QtAlgorithms>

namespace {
/**
 * One entry while it is sorted. Plain data, because sorting moves it about a dozen times, and all
 * that nearly every comparison needs in itself, because looking it up costs more than comparing.
 */
struct SortItem
{
    quint64 key;         ///< decides, smallest first, unless it is equal
    quint64 nextKey;     ///< decides then, unless it is equal too
    const QString *name; ///< as compared
    int index;           ///< of the entry
    int group;           ///< of folders or files, the smaller comes first whatever the key
};

// QDir of Qt 5 takes an entry without a time for as old as any other. No size and no name has this
// key.
const quint64 noTimeKey = std::numeric_limits<quint64>::max();

quint64 largestFirst(qint64 number)
{
    const quint64 signBit = Q_UINT64_C(1) << 63;
    return ~(static_cast<quint64>(number) ^ signBit);
}

// QDir compares whole seconds on Qt 4.8, and until Qt 6.5 the milliseconds of the local clock, so
// that the hour before and the hour after the end of summer time fall together.
quint64 timeKey(const FolderEntry &entry, WallClock *clock)
{
    if (entry.modified == noTime)
        return noTimeKey;
#if QT_VERSION < 0x050000
    Q_UNUSED(clock);
    return largestFirst(entry.modified / 1000);
#else
    return largestFirst(QT_VERSION < 0x060600 ? clock->at(entry.modified) : entry.modified);
#endif
}

/**
 * Makes keys of the sixteen characters of the name from @p start on: names that differ in them need
 * no look at the rest. A character that a byte can't tell from others ends them.
 */
void setNameKeys(SortItem *item, int start)
{
    const int perKey = 8;
    const ushort beyond = 0xff;
    quint64 keys[] = {0, 0};
    const QString &name = *item->name;
    const int end = qMin(name.size(), start + 2 * perKey);
    for (int i = start; i < end; ++i) {
        const quint64 character = qMin(name.at(i).unicode(), beyond);
        const int place = i - start;
        keys[place / perKey] |= character << 8 * (perKey - 1 - place % perKey);
        if (character == beyond)
            break;
    }
    item->key = keys[0];
    item->nextKey = keys[1];
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

int groupOf(const FolderEntry &entry, QDir::SortFlags flags)
{
    if (flags & QDir::DirsFirst)
        return entry.isDir ? 0 : 1;
    return (flags & QDir::DirsLast) && entry.isDir ? 1 : 0;
}

void setKeys(QVector<SortItem> *items, const QVector<FolderEntry> &entries, QDir::SortFlags flags)
{
    const int order = flags & QDir::SortByMask;
    const int start = order == QDir::Name ? commonLength(*items) : 0;
    WallClock clock;
    for (SortItem &item : *items) {
        if (order == QDir::Time)
            item.key = timeKey(entries.at(item.index), &clock);
        else if (order == QDir::Size)
            item.key = largestFirst(entries.at(item.index).size);
        else
            setNameKeys(&item, start);
    }
}

class LessThan
{
public:
    explicit LessThan(bool reversed)
        : m_reversed(reversed)
    {
    }

    bool operator()(const SortItem &left, const SortItem &right) const
    {
        if (left.group != right.group)
            return left.group < right.group;
        if (left.key != right.key && left.key != noTimeKey && right.key != noTimeKey)
            return (left.key < right.key) != m_reversed;
        if (left.nextKey != right.nextKey)
            return (left.nextKey < right.nextKey) != m_reversed;
        const qint64 order = compareNames(left, right);
        return m_reversed ? order > 0 : order < 0;
    }

private:
    static qint64 compareNames(const SortItem &left, const SortItem &right)
    {
        const int order = left.name->compare(*right.name);
#if QT_VERSION < 0x050000
        // Names that differ in case only: QDir of Qt 4.8 takes the places that they have while it
        // sorts.
        if (order == 0)
            return &left - &right;
#endif
        return order;
    }

    const bool m_reversed;
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

QVector<int> sortEntries(QVector<FolderEntry> *entries, QDir::SortFlags flags)
{
    if (entries->isEmpty())
        return QVector<int>();
    const QVector<QString> lowerCase =
        flags & QDir::IgnoreCase ? lowerCaseNames(*entries) : QVector<QString>();
    QVector<SortItem> items;
    items.reserve(entries->size());
    for (int i = 0; i < entries->size(); ++i) {
        const FolderEntry &entry = entries->at(i);
        const SortItem item = {0, 0, lowerCase.isEmpty() ? &entry.name : &lowerCase.at(i), i,
                               groupOf(entry, flags)};
        items.append(item);
    }
    setKeys(&items, *entries, flags);

    // Neither Qt sorts stably, so that the same order of ties takes the same algorithm.
    const LessThan lessThan(flags & QDir::Reversed);
#if QT_VERSION < 0x050000
    qSort(items.begin(), items.end(), lessThan);
#else
    std::sort(items.begin(), items.end(), lessThan);
#endif

    // Moved, not copied: a copy is counted in each name, wherever in memory that is.
    QVector<FolderEntry> sorted(items.size());
    QVector<int> places(items.size());
    for (int i = 0; i < items.size(); ++i) {
        const int before = items.at(i).index;
        sorted[i] = std::move((*entries)[before]);
        places[before] = i;
    }
    entries->swap(sorted);
    return places;
}
