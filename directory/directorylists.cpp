// What QML reads through Directory's list properties. Items can't be added from there.

#include "directory/directory.h"

namespace {
template <typename List>
Directory *owner(List *list)
{
    return static_cast<Directory *>(list->object);
}
} // namespace

int Directory::filesCount() const
{
    return m_files.size();
}

QDeclarativeListProperty<File> Directory::files()
{
    return QDeclarativeListProperty<File>(this, nullptr, appendFile, fileSize, fileAt, nullptr);
}

void Directory::appendFile(QDeclarativeListProperty<File> *, File *)
{
}

File *Directory::fileAt(QDeclarativeListProperty<File> *list, ListSize index)
{
    return owner(list)->m_files.value(index);
}

Directory::ListSize Directory::fileSize(QDeclarativeListProperty<File> *list)
{
    return owner(list)->m_files.size();
}

int Directory::pathsCount() const
{
    return m_paths.size();
}

QDeclarativeListProperty<Path> Directory::paths()
{
    return QDeclarativeListProperty<Path>(this, nullptr, appendPath, pathSize, pathAt, nullptr);
}

void Directory::appendPath(QDeclarativeListProperty<Path> *, Path *)
{
}

Path *Directory::pathAt(QDeclarativeListProperty<Path> *list, ListSize index)
{
    return owner(list)->m_paths.value(index);
}

Directory::ListSize Directory::pathSize(QDeclarativeListProperty<Path> *list)
{
    return owner(list)->m_paths.size();
}

QDeclarativeListProperty<QString> Directory::filters()
{
    return QDeclarativeListProperty<QString>(this, nullptr, appendFilter, filterSize, filterAt,
                                             nullptr);
}

void Directory::appendFilter(QDeclarativeListProperty<QString> *, QString *)
{
}

QString *Directory::filterAt(QDeclarativeListProperty<QString> *list, ListSize index)
{
    return owner(list)->m_filters.value(index);
}

Directory::ListSize Directory::filterSize(QDeclarativeListProperty<QString> *list)
{
    return owner(list)->m_filters.size();
}
