#ifndef FILESYSTEMPROXYMODEL_H
#define FILESYSTEMPROXYMODEL_H

#include <QSortFilterProxyModel>

/**
 * Sorts a FileSystemModel with its folders grouped before its files, or after them, in ascending
 * and descending order alike. Within a group sizes are compared as bytes and dates as times; names
 * and types by their texts, upper case before lower case.
 *
 * Over any other model it is a plain QSortFilterProxyModel.
 */
class FileSystemProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(bool dirsFirst READ dirsFirst WRITE setDirsFirst NOTIFY dirsFirstChanged)

public:
    /** Groups folders first. */
    explicit FileSystemProxyModel(QObject *parent = nullptr);

    /** Whether folders come before files (the default) or after them. */
    bool dirsFirst() const;

signals:
    /** The grouping is another one; the rows are sorted by it right after this signal. */
    void dirsFirstChanged();

public slots:
    /** Groups folders before files or after them. */
    void setDirsFirst(bool dirsfirst);

protected:
    /** Order of two rows of the source model. */
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    bool m_dirsFirst;
};

#endif // FILESYSTEMPROXYMODEL_H
