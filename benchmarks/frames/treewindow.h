#ifndef TREEWINDOW_H
#define TREEWINDOW_H

#include "host/viewer.h"
#include "host/visitor.h"
#include "support/glass.h"

#include <QFileSystemModel>
#include <QPoint>
#include <QSortFilterProxyModel>
#include <QString>
#include <QStringList>
#include <QTreeView>

#include <memory>
#include <vector>

/** A tree in a window, and a finger on it. */
class TreeWindow
{
public:
    explicit TreeWindow(Glass *glass);
    virtual ~TreeWindow();

    /** Makes the window the one whose pictures count. */
    void watch();

    /** Touches the branch of the folder @p name of the first level, which opens it. */
    void touchBranch(const QString &name);

    /** Waits for the picture with the @p rows rows of the folder @p name, and says whether it came.
     */
    bool waitForRows(const QString &name, int rows);

    /** Pulls the scroll bar from its beginning a pixel at a time, forth and back. The seconds of
     * work for each picture. */
    std::vector<double> pull();

    /** Touches the scroll bar's end again and again, then its beginning: a row at a time. */
    std::vector<double> step();

    /** Names of the rows in sight from top to bottom. */
    QStringList shownNames() const;

    QTreeView *view() const
    {
        return m_view;
    }

protected:
    /** The window, and where in it the tree begins. */
    virtual QWidget *window() = 0;
    virtual QPoint origin() const = 0;

    /** Waits for the row of the folder @p name. */
    QModelIndex folder(const QString &name) const;

    Glass *m_glass;
    QTreeView *m_view;

private:
    QPoint onScrollBar(int y) const;
    void waitForFrame(size_t shown);
};

/** The tree screen of the viewer. */
class OurTree : public TreeWindow
{
public:
    OurTree(Glass *glass, const QString &imports);

protected:
    QWidget *window() override;
    QPoint origin() const override;

private:
    Viewer m_viewer;
    Visitor m_visitor;
    QPoint m_origin;
};

/** A plain tree view with Qt's models, and the looks of another tree. */
class PlainTree : public TreeWindow
{
public:
    PlainTree(Glass *glass, const QString &root, const QTreeView *looks);

protected:
    QWidget *window() override;
    QPoint origin() const override;

private:
    const std::unique_ptr<QFileSystemModel> m_model;
    const std::unique_ptr<QSortFilterProxyModel> m_proxy;
    QTreeView m_plainView; // goes before the models that it shows
};

#endif // TREEWINDOW_H
