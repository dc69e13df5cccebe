#ifndef TREEPARTS_H
#define TREEPARTS_H

#include "tree/filetreevieweritem.h"

#include "support/waiting.h"

#include <QFileSystemModel>
#include <QGraphicsProxyWidget>
#include <QSortFilterProxyModel>
#include <QTreeView>

/** What a FileTreeViewerItem is made of. */
class TreeParts
{
public:
    explicit TreeParts(FileTreeViewerItem *item)
        : proxyWidget(nullptr)
    {
        const QList<QGraphicsItem *> children = static_cast<QGraphicsItem *>(item)->childItems();
        for (QGraphicsItem *child : children) {
            if (child->isWidget())
                proxyWidget = static_cast<QGraphicsProxyWidget *>(child);
        }
        if (!proxyWidget)
            qFatal("the item holds no widget");
        view = qobject_cast<QTreeView *>(proxyWidget->widget());
        proxyModel = qobject_cast<QSortFilterProxyModel *>(view->model());
        model = qobject_cast<QFileSystemModel *>(proxyModel->sourceModel());
    }

    /** Index of the entry @p path as the view knows it; invalid while it is not loaded. */
    QModelIndex row(const QString &path, int column = 0) const
    {
        return proxyModel->mapFromSource(model->index(path, column));
    }

    /** Names of the rows below the folder @p path, in the view's order. */
    QStringList names(const QString &path) const
    {
        QStringList names;
        const QModelIndex folder = row(path);
        for (int i = 0; i < proxyModel->rowCount(folder); ++i)
            names.append(proxyModel->index(i, 0, folder).data().toString());
        return names;
    }

    /** Waits until the folder @p path shows these rows. */
    bool waitFor(const QString &path, const QString &expected) const
    {
        return waitUntil([&] { return names(path).join(QLatin1String(" ")) == expected; });
    }

    QGraphicsProxyWidget *proxyWidget;
    QTreeView *view;
    QSortFilterProxyModel *proxyModel;
    QFileSystemModel *model;
};

#endif // TREEPARTS_H
