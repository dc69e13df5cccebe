#include "tree/checkedentries.h"

CheckedEntries::CheckedEntries(const QAbstractItemModel *model)
    : m_model(model)
    , m_leftCount(0)
{
    connect(model, SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)), this,
            SLOT(noteLeaving(QModelIndex, int, int)));
    connect(model, SIGNAL(rowsRemoved(QModelIndex, int, int)), this, SLOT(dropLeft()));
    connect(model, SIGNAL(layoutChanged()), this, SLOT(dropHidden()));
}

bool CheckedEntries::isEmpty() const
{
    return m_entries.isEmpty();
}

bool CheckedEntries::contains(const QModelIndex &index) const
{
    return m_entries.contains(entryOf(index));
}

void CheckedEntries::insert(const QModelIndex &index)
{
    m_entries.insert(entryOf(index));
}

void CheckedEntries::remove(const QModelIndex &index)
{
    m_entries.remove(entryOf(index));
}

QModelIndexList CheckedEntries::indexes() const
{
    QModelIndexList found;
    visitBelow(QModelIndex(), [&](const QModelIndex &index) { found.append(index); });
    for (int i = 0; i < m_leftCount; ++i)
        found.append(QModelIndex());
    return found;
}

void CheckedEntries::noteLeaving(const QModelIndex &parent, int first, int last)
{
    // All rows, not only those in the set: until they are gone, reading may put them there.
    if (!m_entries.isEmpty())
        collectPointers(parent, first, last);
}

void CheckedEntries::dropLeft()
{
    const int before = m_entries.count();
    for (void *pointer : m_leaving) {
        for (int column = 0; column < m_model->columnCount(); ++column)
            m_entries.remove(Entry(pointer, column));
    }
    m_leftCount += before - m_entries.count();
    m_leaving.clear();
}

void CheckedEntries::dropHidden()
{
    // Qt's model applies its filters while it sorts: rows come and go without another signal.
    int visibleCount = 0;
    visitBelow(QModelIndex(), [&](const QModelIndex &) { ++visibleCount; });
    if (visibleCount == m_entries.count())
        return;
    QSet<Entry> visible;
    visible.reserve(visibleCount);
    visitBelow(QModelIndex(), [&](const QModelIndex &index) { visible.insert(entryOf(index)); });
    m_leftCount += m_entries.count() - visibleCount;
    m_entries = visible;
}

CheckedEntries::Entry CheckedEntries::entryOf(const QModelIndex &index)
{
    return Entry(index.internalPointer(), index.column());
}

void CheckedEntries::visitBelow(const QModelIndex &parent, const Visitor &visit) const
{
    if (m_entries.isEmpty())
        return;
    const int rows = m_model->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex first = m_model->index(row, 0, parent);
        for (int column = 0; column < m_model->columnCount(); ++column) {
            if (m_entries.contains(Entry(first.internalPointer(), column)))
                visit(m_model->index(row, column, parent));
        }
        visitBelow(first, visit);
    }
}

void CheckedEntries::collectPointers(const QModelIndex &parent, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        m_leaving.append(index.internalPointer());
        collectPointers(index, 0, m_model->rowCount(index) - 1);
    }
}
