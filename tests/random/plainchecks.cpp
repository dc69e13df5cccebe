#include "random/plainchecks.h"

#include <QFileInfo>
#include <QSet>

PlainChecks::PlainChecks(const QFileSystemModel *model)
    : m_model(model)
    , m_bytes(0)
{
}

void PlainChecks::set(const QModelIndex &index, bool isChecked)
{
    const qint64 size = QFileInfo(m_model->filePath(index)).size();
    const bool wasChecked = contains(index);
    if (isChecked && !wasChecked) {
        m_bytes += size;
        m_checked.append(index);
    } else if (!isChecked && wasChecked) {
        m_bytes -= size;
        m_checked.removeAll(index);
    }
    setBelow(index, isChecked);
}

void PlainChecks::setBelow(const QModelIndex &folder, bool isChecked)
{
    for (int row = 0; row < m_model->rowCount(folder); ++row)
        set(m_model->index(row, 0, folder), isChecked);
}

bool PlainChecks::look(const QModelIndex &index)
{
    if (contains(index))
        return true;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        if (contains(above)) {
            m_checked.append(index);
            return true;
        }
    }
    return false;
}

QStringList PlainChecks::paths() const
{
    QStringList paths;
    for (const QPersistentModelIndex &index : m_checked)
        paths.append(index.isValid() ? m_model->filePath(index) : QString());
    return paths;
}

QStringList PlainChecks::namesThatFail(const QString &destination) const
{
    QStringList failed;
    QSet<QString> copied;
    for (const QString &path : paths()) {
        const QString name = QFileInfo(path).fileName();
        const bool isFree = !QFileInfo(destination + '/' + name).exists() && !copied.contains(name);
        if (QFileInfo(path).isFile() && isFree)
            copied.insert(name);
        else
            failed.append(name);
    }
    return failed;
}

quint64 PlainChecks::bytes() const
{
    return m_bytes;
}

bool PlainChecks::contains(const QModelIndex &index) const
{
    return m_checked.contains(QPersistentModelIndex(index));
}
