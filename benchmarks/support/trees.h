#ifndef TREES_H
#define TREES_H

#include "tree/filesystemmodel.h"
#include "tree/filesystemproxymodel.h"

#include <QDebug>
#include <QEventLoop>
#include <QFileInfo>
#include <QHeaderView>
#include <QSet>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include <memory>

/** The column of names, by which trees are sorted first. */
const int nameColumn = 0;

/** Whether this plugin lets Qt's model watch files, and not folders only. */
const bool filesAreWatched = QT_VERSION < 0x060500;

/** Qt's model with the fewest lines that make its rows checkable, the debug line among them. */
class PlainCheckableModel : public QFileSystemModel
{
public:
    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return QFileSystemModel::flags(index) | Qt::ItemIsUserCheckable;
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::CheckStateRole && index.column() == nameColumn && m_shown)
            return int(m_checked.contains(index) ? Qt::Checked : Qt::Unchecked);
        return QFileSystemModel::data(index, role);
    }

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role != Qt::CheckStateRole)
            return QFileSystemModel::setData(index, value, role);
        qDebug() << "Add Size " << fileName(index) << "=" << sizeToTell(index);
        m_checked.insert(index);
        emit dataChanged(index, index);
        return true;
    }

    void showBoxes()
    {
        m_shown = true;
    }

    void fetchChildren()
    {
        const QModelIndex folder = index(rootPath());
        for (int row = 0; row < rowCount(folder); ++row)
            fetchUnlessLeftOut(index(row, nameColumn, folder));
    }

    void selectAll()
    {
        const QModelIndex folder = index(rootPath());
        for (int row = 0; row < rowCount(folder); ++row)
            setData(index(row, nameColumn, folder), Qt::Checked, Qt::CheckStateRole);
    }

protected:
    virtual qint64 sizeToTell(const QModelIndex &index) const
    {
        return size(index);
    }

private:
    void fetchUnlessLeftOut(const QModelIndex &child)
    {
        if (filesAreWatched || isDir(child))
            fetchMore(child);
    }

    QSet<QPersistentModelIndex> m_checked;
    bool m_shown = false;
};

/** The same with sizes as they are by now, and not as they were when the folder was read. */
class AskingModel : public PlainCheckableModel
{
protected:
    qint64 sizeToTell(const QModelIndex &index) const override
    {
        return QFileInfo(filePath(index)).size();
    }
};

class CheckableModel : public FileSystemModel
{
public:
    void showBoxes()
    {
        setIsSelectable(true);
    }

    void fetchChildren()
    {
        // Done already, because there are boxes.
    }
};

/** A model, a proxy and a view of the size of the instrument's screen. */
template <typename Model, typename Proxy>
class Tree
{
public:
    explicit Tree(const QString &folder)
        : m_path(folder)
        , m_view(new QTreeView)
    {
        m_model.setNameFilterDisables(false);
        m_proxy.setSourceModel(&m_model);
        m_proxy.setDynamicSortFilter(true);
        m_view->setUniformRowHeights(true);
        m_view->setModel(&m_proxy);
        m_view->setSortingEnabled(true);
        m_view->sortByColumn(nameColumn, Qt::AscendingOrder);
        m_view->resize(800, 480);
        m_view->show();
        for (const char *change : {SIGNAL(rowsInserted(QModelIndex, int, int)),
                                   SIGNAL(rowsRemoved(QModelIndex, int, int)),
                                   SIGNAL(layoutChanged()), SIGNAL(modelReset())})
            QObject::connect(&m_proxy, change, &m_loop, SLOT(quit()));
        QObject::connect(&m_model, SIGNAL(directoryLoaded(QString)), &m_loop, SLOT(quit()));
    }

    void open(int rows)
    {
        m_model.setRootPath(m_path);
        m_view->setRootIndex(m_proxy.mapFromSource(m_model.index(m_path)));
        waitForRows(rows);
    }

    /** Opens the folder and fetches what is below each row, as is done where rows have boxes. */
    void openAndFetch(int rows, int folders)
    {
        QSignalSpy loaded(&m_model, SIGNAL(directoryLoaded(QString)));
        m_model.showBoxes();
        open(rows);
        waitForLoaded(&loaded, m_path, 1);
        m_model.fetchChildren();
        waitForLoaded(&loaded, m_path + QLatin1Char('/'), filesAreWatched ? rows : folders);
    }

    void waitForRows(int rows)
    {
        while (m_proxy.rowCount(m_view->rootIndex()) != rows)
            m_loop.exec();
        m_view->viewport()->repaint();
    }

    void sort(int column)
    {
        m_view->sortByColumn(column, Qt::AscendingOrder);
        m_view->viewport()->repaint();
    }

    void filter(const QStringList &patterns, int rows)
    {
        m_model.setNameFilters(patterns);
        waitForRows(rows);
    }

    void checkAll()
    {
        m_model.showBoxes();
        m_model.selectAll();
        m_view->viewport()->repaint();
    }

    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < m_proxy.rowCount(m_view->rootIndex()); ++row)
            names.append(m_proxy.index(row, 0, m_view->rootIndex()).data().toString());
        return names;
    }

    int checked() const
    {
        int number = 0;
        for (int row = 0; row < m_proxy.rowCount(m_view->rootIndex()); ++row) {
            const QModelIndex index = m_proxy.index(row, 0, m_view->rootIndex());
            number += index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? 1 : 0;
        }
        return number;
    }

private:
    /** Waits for @p count paths that begin with @p start; the model announces files, too. */
    void waitForLoaded(QSignalSpy *loaded, const QString &start, int count)
    {
        for (int found = 0; found < count;) {
            if (loaded->isEmpty())
                m_loop.exec();
            else if (loaded->takeFirst().first().toString().startsWith(start))
                ++found;
        }
    }

    const QString m_path;
    Model m_model;
    Proxy m_proxy;
    QEventLoop m_loop;                       // ends with what may have been waited for
    const std::unique_ptr<QTreeView> m_view; // goes before the models that it shows
};

typedef Tree<PlainCheckableModel, QSortFilterProxyModel> PlainTree;
typedef Tree<AskingModel, QSortFilterProxyModel> AskingTree;
typedef Tree<CheckableModel, FileSystemProxyModel> OurTree;

#endif // TREES_H
