#ifndef LISTING_H
#define LISTING_H

#include "directory/directory.h"

#include "support/moment.h"

#include <QStringList>

/** The entry that @p directory shows at @p index. */
inline File *shownFile(Directory *directory, int index)
{
    QDeclarativeListProperty<File> files = directory->files();
    return files.at(&files, index);
}

/** Names of the entries that @p directory shows, in order. */
inline QStringList shownNames(Directory *directory)
{
    QStringList names;
    for (int i = 0; i < directory->filesCount(); ++i)
        names.append(shownFile(directory, i)->name());
    return names;
}

/** Names of the entries that @p directory shows as selected, in order. */
inline QStringList markedNames(Directory *directory)
{
    QStringList names;
    for (int i = 0; i < directory->filesCount(); ++i) {
        if (shownFile(directory, i)->isSelected())
            names.append(shownFile(directory, i)->name());
    }
    return names;
}

/** What @p directory emits from @p operation on, in spans around the 200 ms after which it lists.
 */
inline QStringList emittedBy(Directory *directory, const std::function<void()> &operation)
{
    return signalsAround(200, directory, operation);
}

/** The spans of emittedBy(): before, around and after the end of the delay. */
inline QStringList spans(const char *before, const char *around, const char *afterwards)
{
    return QStringList() << before << around << afterwards;
}

inline QStringList nothing()
{
    return spans("", "", "");
}

/** A listing with other names. The log, a later receiver, hears what caused it last. */
inline QStringList oneListing()
{
    return spans("", "filesChanged pathsChanged updateDirectory", "");
}

/** A listing with the names as they were. */
inline QStringList oneQuietListing()
{
    return spans("", "pathsChanged updateDirectory", "");
}

#endif // LISTING_H
