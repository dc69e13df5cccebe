#include "tree/filesystemproxymodel.h"

#include "tree/filesystemmodel.h"

namespace {
// Columns of QFileSystemModel.
const int nameColumn = 0;
const int sizeColumn = 1;
const int dateColumn = 3;
} // namespace

FileSystemProxyModel::FileSystemProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_dirsFirst(true)
{
}

bool FileSystemProxyModel::dirsFirst() const
{
    return m_dirsFirst;
}

void FileSystemProxyModel::setDirsFirst(bool dirsfirst)
{
    if (dirsfirst == m_dirsFirst)
        return;
    m_dirsFirst = dirsfirst;
    emit dirsFirstChanged();
    invalidate();
}

bool FileSystemProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const FileSystemModel *model = qobject_cast<const FileSystemModel *>(sourceModel());
    if (!model)
        return QSortFilterProxyModel::lessThan(left, right);

    EntryCache &entries = model->entryCache();
    const bool leftIsDir = entries.isDir(left);
    if (leftIsDir != entries.isDir(right)) {
        // The base class sorts descending by swapping the rows: the order undoes that, so that the
        // groups stay where they are.
        const bool ascending = sortOrder() == Qt::AscendingOrder;
        return (leftIsDir == m_dirsFirst) == ascending;
    }
    switch (sortColumn()) {
    case nameColumn:
        // What the base class would do, without wrapping each name in a variant.
        if (sortRole() == Qt::DisplayRole && !isSortLocaleAware())
            return entries.name(left).compare(entries.name(right), sortCaseSensitivity()) < 0;
        break;
    case dateColumn:
        return entries.modified(left) < entries.modified(right);
    case sizeColumn:
        return model->size(left) < model->size(right);
    default:
        break;
    }
    return QSortFilterProxyModel::lessThan(left, right);
}
