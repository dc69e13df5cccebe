#ifndef PLAINCHECKS_H
#define PLAINCHECKS_H

#include <QFileSystemModel>
#include <QList>
#include <QPersistentModelIndex>
#include <QStringList>

/** The checked entries of a model as a list of persistent indexes, and the sum of their sizes. */
class PlainChecks
{
public:
    explicit PlainChecks(const QFileSystemModel *model);

    /** Checks or unchecks the row and all that is loaded below. */
    void set(const QModelIndex &index, bool isChecked);

    /** The same with every row of the folder. */
    void setBelow(const QModelIndex &folder, bool isChecked);

    /** Whether the row must show as checked. Looking checks what is below a checked folder. */
    bool look(const QModelIndex &index);

    /** Paths of all that is checked, empty for what is gone. */
    QStringList paths() const;

    /** What must be said of a copy into @p destination, in any order of the names. */
    QStringList namesThatFail(const QString &destination) const;

    quint64 bytes() const;

private:
    bool contains(const QModelIndex &index) const;

    const QFileSystemModel *m_model;
    QList<QPersistentModelIndex> m_checked;
    quint64 m_bytes;
};

#endif // PLAINCHECKS_H
