#ifndef TREESCENE_H
#define TREESCENE_H

#include "support/testdir.h"
#include "support/treeparts.h"

#include <QDeclarativeView>

#include <QPointer>
#include <QTest>

/** A FileTreeViewerItem in a shown QML scene, 600 x 400, and fingers to touch it with. */
class TreeScene
{
public:
    /** The scene, with @p properties for the item in QML's words. */
    explicit TreeScene(const QByteArray &properties = QByteArray())
    {
        qmlRegisterType<FileTreeViewerItem>("Trees", 1, 0, "FileTreeViewerItem");
#if QT_VERSION < 0x050000
        const QByteArray quick = "import QtQuick 1.1\n";
#else
        const QByteArray quick = "import QtQuick 2.0\n";
#endif
        m_dir.file("scene.qml", quick +
                                    "import Trees 1.0\n"
                                    "Rectangle { width: 600; height: 400\n"
                                    "FileTreeViewerItem { anchors.fill: parent; " +
                                    properties + " } }\n");
        view.setSource(QUrl::fromLocalFile(m_dir.path("scene.qml")));
        if (!view.errors().isEmpty())
            qFatal("%s", qPrintable(view.errors().first().toString()));
        view.show();
        item = view.rootObject()->findChild<FileTreeViewerItem *>();
    }

    /** Shows the folder @p path, waits for its rows and for the view to lay them out. */
    bool show(const QString &path, const QString &expectedRows) const
    {
        item->setRoot(path);
        const TreeParts parts(item);
        if (!parts.waitFor(path, expectedRows))
            return false;
        const QModelIndex last = parts.row(path + '/' + parts.names(path).last());
        return waitUntil([&] { return !parts.view->visualRect(last).isEmpty(); });
    }

    /** Centre of the cell of entry @p path, in the scene. */
    QPoint cell(const QString &path, int column = 0) const
    {
        const TreeParts parts(item);
        return inScene(parts.view->visualRect(parts.row(path, column)).center());
    }

    /** A point of the viewport of the tree, in the scene. */
    QPoint inScene(const QPoint &point) const
    {
        const QTreeView *tree = TreeParts(item).view;
        return tree->viewport()->mapTo(const_cast<QTreeView *>(tree), point);
    }

    void press(const QPoint &point)
    {
        QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::KeyboardModifiers(), point);
    }

    void release(const QPoint &point)
    {
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::KeyboardModifiers(), point);
    }

    void touch(const QPoint &point)
    {
        press(point);
        release(point);
    }

    QDeclarativeView view;
    QPointer<FileTreeViewerItem> item;

private:
    Q_DISABLE_COPY(TreeScene)

    TestDir m_dir;
};

#endif // TREESCENE_H
