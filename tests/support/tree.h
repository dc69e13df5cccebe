#ifndef TREE_H
#define TREE_H

#include "support/signallog.h"
#include "support/treeparts.h"

#include <QStringList>

/** The item, its parts and a record of the signals it has emitted itself. */
class Tree
{
public:
    Tree()
        : parts(&item)
        , m_log(&item)
    {
    }

    /** Shows the folder @p path and waits for its rows. */
    bool show(const QString &path, const QString &expectedRows)
    {
        item.setRoot(path);
        const bool loaded = parts.waitFor(path, expectedRows);
        m_log.take();
        return loaded;
    }

    /** Opens the folder @p path in the tree and waits for its rows. */
    bool open(const QString &path, const QString &expectedRows) const
    {
        parts.view->expand(parts.row(path));
        return parts.waitFor(path, expectedRows);
    }

    /** What a touch of the row @p path does, selecting it as the view does. */
    QStringList touch(const QString &path)
    {
        m_log.take();
        parts.view->setCurrentIndex(parts.row(path));
        item.updateSelection(parts.row(path));
        return m_log.take();
    }

    QStringList emitted()
    {
        return m_log.take();
    }

    FileTreeViewerItem item;
    const TreeParts parts;

private:
    SignalLog m_log;
};

/** The words of @p names. */
inline QStringList list(const char *names)
{
    return QString(names).split(' ');
}

#endif // TREE_H
