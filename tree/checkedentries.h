#ifndef CHECKEDENTRIES_H
#define CHECKEDENTRIES_H

#include <QAbstractItemModel>
#include <QPair>
#include <QSet>
#include <QVector>

#include <functional>

/**
 * The set of entries of a file-system model whose check box is on. Entries stay in it while the
 * model sorts and inserts rows. One that leaves the model, because it was removed or filtered out,
 * is in the set as an invalid index from then on.
 *
 * That is a set of persistent indexes without their price. Qt's model, whenever it sorts, looks for
 * each persistent index among all the names of its folder: seconds for 20,000 of them, with the
 * user interface standing still. The set knows an entry by its internal pointer instead, which is
 * the entry's own for as long as it is in the model, and goes through the rows once after a sort.
 */
class CheckedEntries : public QObject
{
    Q_OBJECT

public:
    /** The empty set over @p model. Make it before others listen to the model's signals, so that
     * what they read is up to date. */
    explicit CheckedEntries(const QAbstractItemModel *model);

    bool isEmpty() const;
    bool contains(const QModelIndex &index) const;
    void insert(const QModelIndex &index);
    void remove(const QModelIndex &index);

    /** All entries: those in the model in the order of their rows, and an invalid index for each
     * that left it. Goes through all loaded rows. */
    QModelIndexList indexes() const;

private slots:
    void noteLeaving(const QModelIndex &parent, int first, int last);
    void dropLeft();
    void dropHidden();

private:
    typedef QPair<void *, int> Entry; // internal pointer and column
    typedef std::function<void(const QModelIndex &)> Visitor;

    static Entry entryOf(const QModelIndex &index);
    void visitBelow(const QModelIndex &parent, const Visitor &visit) const;
    void collectPointers(const QModelIndex &parent, int first, int last);

    const QAbstractItemModel *const m_model;
    QSet<Entry> m_entries;
    int m_leftCount;
    QVector<void *> m_leaving; // rows that are just being removed, with all below
};

#endif // CHECKEDENTRIES_H
