#ifndef ENTRYORDER_H
#define ENTRYORDER_H

#include "directory/folderreader.h"

#include <QDir>
#include <QVector>

/**
 * Sorts @p entries as QDir of the same Qt sorts them, ties included. Understands QDir::Name,
 * QDir::Time and QDir::Size with QDir::DirsFirst, QDir::DirsLast, QDir::IgnoreCase and
 * QDir::Reversed.
 *
 * Unlike QDir it takes each time and each lower-case name once, as a key, and not in every
 * comparison.
 *
 * @return for each index of before the index that its entry has now
 */
QVector<int> sortEntries(QVector<FolderEntry> *entries, QDir::SortFlags flags);

#endif // ENTRYORDER_H
