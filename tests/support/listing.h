#ifndef LISTING_H
#define LISTING_H

#include "directory/directory.h"

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

#endif // LISTING_H
